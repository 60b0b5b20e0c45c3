#pragma once

#include <string>

/// Takes rights away from a thread and from every process that it starts from then on. There is no
/// way back, so it is for threads that do nothing else.
namespace broomtide::Confinement {

/// Leaves the calling thread the right to read files and to run `program`, an absolute path. What
/// it loses: creating, changing, removing and moving files (Landlock), running any other program
/// (Landlock), networks, and changing modes, owners, attributes and dates (seccomp). A program that
/// is a script may run other programs, because it consists of them. Never fails: what the system
/// cannot forbid, such as one before Linux 5.13, stays possible.
void confineThread(const std::string& program);

}  // namespace broomtide::Confinement

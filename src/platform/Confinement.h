#pragma once

#include <string>

/// Takes rights away from a thread and from every process that it starts from then on. There is no
/// way back, so it is for threads that do nothing else.
namespace broomtide::Confinement {

/// How much of it the system was able to do; systems before Linux 5.13 know only a part.
struct Extent {
  bool forbidsFiles = false;     ///< creating, changing, removing and moving files
  bool forbidsPrograms = false;  ///< running any other program
  bool forbidsSystem = false;    ///< networks, changing dates, modes, owners and attributes
};

/// Leaves the calling thread the right to read files and to run `program`, an absolute path, but
/// nothing else of what `Extent` names. A program that is a script may run other programs, because
/// it consists of them. Never fails: what cannot be forbidden stays possible, and the result says
/// what could.
Extent confineThread(const std::string& program);

}  // namespace broomtide::Confinement

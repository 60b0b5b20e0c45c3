#pragma once

/// The limit on the size of files under which the process may have been started (`ulimit -f`).
namespace broomtide::FileSizeLimit {

/// From now on a write beyond the limit fails like any other. Without this it ends the process, in
/// the middle of a cleanup. Holds for the whole process and may be called again.
void meetAsError();

}  // namespace broomtide::FileSizeLimit

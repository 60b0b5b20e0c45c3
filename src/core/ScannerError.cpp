#include "core/ScannerError.h"

namespace broomtide {

const char* ScannerError::what() const noexcept {
  switch (failure_) {
    case Case::invalidRoot:
      return "The selected folder no longer exists or is not a directory.";
    case Case::permissionDenied:
      break;
  }
  return "Broomtide does not have permission to access this folder. Choose it again or grant "
         "access in macOS Settings.";
}

const char* CancellationError::what() const noexcept { return "The operation was cancelled."; }

}  // namespace broomtide

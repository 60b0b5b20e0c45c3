#include "core/ScanCandidate.h"

#include <utility>

#include "core/Uuid.h"

namespace broomtide {

ScanIssue ScanIssue::about(std::string path, std::string message) {
  return {.id = newUuid(), .path = std::move(path), .message = std::move(message)};
}

}  // namespace broomtide

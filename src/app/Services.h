#pragma once

#include <memory>

#include "core/FileScanning.h"

/// The one place that puts the real services together.
namespace broomtide::services {

/// A scanner of this machine's file system.
std::unique_ptr<FileScanning> makeScanner();

}  // namespace broomtide::services

#pragma once

#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/FileManager.h"

/// Where file systems are mounted, as this process sees them.
namespace broomtide::MountTable {

/// The mount points in the text of a `mountinfo` file, as absolute paths.
std::vector<std::string> mountPoints(std::string_view mountInfo);

/// The mount points at this moment.
std::error_code read(FileManager& fileManager, std::vector<std::string>& mountPoints);

}  // namespace broomtide::MountTable

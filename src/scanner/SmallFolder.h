#pragma once

#include <optional>
#include <string>

#include "platform/DirectoryEnumerator.h"
#include "platform/FileManager.h"
#include "scanner/Measurement.h"

namespace broomtide {

/// Measures folders that hold a few files and nothing else on the spot, because handing such a
/// folder to another thread costs more than measuring it. One object serves many folders, one after
/// the other.
class SmallFolder {
 public:
  explicit SmallFolder(FileManager& fileManager);

  /// The measurement of a small open folder, which is closed; `path` is its absolute path. Nothing
  /// for any other folder, which stays open and will be read from its beginning.
  std::optional<Measurement::Result> measure(FileDescriptor& folder, const std::string& path);

 private:
  FileManager& fileManager_;
  std::error_code readError_;
  DirectoryEnumerator entries_;
};

}  // namespace broomtide

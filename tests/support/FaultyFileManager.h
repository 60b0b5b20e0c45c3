#pragma once

#include <functional>
#include <string>
#include <system_error>

#include "platform/FileManager.h"

namespace broomtide::test {

/// Forwards everything to the real file system, except what a test replaces.
class FaultyFileManager final : public FileManager {
 public:
  /// Called before an operation on a name; an error is returned instead of running the operation.
  using Interception = std::function<std::error_code(const std::string& name)>;

  Interception onOpen = [](const std::string&) { return std::error_code(); };
  Interception onAttributes = [](const std::string&) { return std::error_code(); };
  std::function<std::error_code()> onRead = [] { return std::error_code(); };
  /// Called before an operation on files, and before one that changes something, with its name and
  /// the name it works on, such as "createFile notes.txt".
  Interception onChange = [](const std::string&) { return std::error_code(); };
  /// Called before it is asked whether a path can be read or executed; an error makes the answer
  /// no.
  Interception onCheck = [](const std::string&) { return std::error_code(); };
  /// As if the buffer for the entries of a folder were this small, in bytes; 0 for as it is.
  std::size_t maxBytesPerRead = 0;
  bool hidesTypes = false;        ///< folders do not tell the types of their entries
  bool hasNoPermissions = false;  ///< everybody may do everything with every item

  std::error_code openFolder(int folder, const char* name, LinkPolicy links,
                             FileDescriptor& opened) override;
  std::error_code readFolder(int folder, std::span<std::byte> buffer, std::size_t& filled) override;
  std::error_code readAttributes(int folder, const char* name, LinkPolicy links,
                                 FileAttributes& attributes) override;
  bool isReadable(const std::string& path) override;
  bool isExecutableFile(const std::string& path) override;
  std::error_code openFile(int folder, const char* name, LinkPolicy links,
                           FileDescriptor& opened) override;
  std::error_code readFile(int file, std::span<char> buffer, std::size_t& filled) override;
  std::error_code createFile(int folder, const char* name, FileDescriptor& opened) override;
  std::error_code writeFile(int file, std::string_view bytes, std::size_t& written) override;
  std::error_code synchronize(int descriptor) override;
  std::error_code removeFile(int folder, const char* name) override;
  std::error_code createFolder(int folder, const char* name) override;
  std::error_code removeFolder(int folder, const char* name) override;
  std::error_code rename(int folder, const char* name, int newFolder, const char* newName,
                         IfExists ifExists) override;
  std::error_code tryLock(int folder) override;
};

}  // namespace broomtide::test

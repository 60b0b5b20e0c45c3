#include "platform/WholeFile.h"

namespace broomtide::WholeFile {
namespace {

std::error_code write(FileManager& fileManager, int file, std::string_view contents,
                      Durability durability) {
  while (!contents.empty()) {
    std::size_t written = 0;
    if (const std::error_code error = fileManager.writeFile(file, contents, written)) return error;
    if (written == 0) return std::make_error_code(std::errc::io_error);
    contents.remove_prefix(written);
  }
  if (durability == Durability::whenConvenient) return {};
  return fileManager.synchronize(file);
}

std::error_code createFolders(FileManager& fileManager, const std::string& path) {
  for (std::size_t end = path.find('/', 1);; end = path.find('/', end + 1)) {
    const std::string folder = path.substr(0, end);
    const std::error_code error = fileManager.createFolder(workingDirectory, folder.c_str());
    if (error && error != std::errc::file_exists) return error;
    if (end == std::string::npos) return {};
  }
}

}  // namespace

std::error_code read(FileManager& fileManager, int folder, const std::string& name,
                     LinkPolicy links, std::string& contents, std::size_t maxBytes) {
  FileDescriptor file;
  if (const auto error = fileManager.openFile(folder, name.c_str(), links, file)) return error;
  FileAttributes attributes;
  if (const std::error_code error =
          fileManager.readAttributes(file.get(), "", LinkPolicy::doNotFollow, attributes)) {
    return error;
  }
  if (!attributes.isRegularFile()) return std::make_error_code(std::errc::invalid_argument);

  constexpr std::size_t step = std::size_t{1} << 16U;
  contents.clear();
  for (std::size_t filled = 1; filled > 0;) {
    const std::size_t size = contents.size();
    contents.resize(size + step);
    const std::error_code error =
        fileManager.readFile(file.get(), std::span(contents).subspan(size), filled);
    contents.resize(size + (error ? 0 : filled));
    if (error) return error;
    if (contents.size() > maxBytes) return std::make_error_code(std::errc::file_too_large);
  }
  return {};
}

std::error_code create(FileManager& fileManager, int folder, const std::string& name,
                       std::string_view contents, Durability durability) {
  FileDescriptor file;
  std::error_code error = fileManager.createFile(folder, name.c_str(), file);
  if (error) return error;
  error = write(fileManager, file.get(), contents, durability);
  if (error) fileManager.removeFile(folder, name.c_str());
  return error;
}

std::error_code openOrCreateFolder(FileManager& fileManager, const std::string& path,
                                   FileDescriptor& opened) {
  const auto open = [&] {
    return fileManager.openFolder(workingDirectory, path.c_str(), LinkPolicy::follow, opened);
  };
  const std::error_code error = open();
  if (error != std::errc::no_such_file_or_directory) return error;
  if (const std::error_code failure = createFolders(fileManager, path)) return failure;
  return open();
}

}  // namespace broomtide::WholeFile

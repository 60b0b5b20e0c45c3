#include "support/FaultyFileManager.h"

#include <dirent.h>

#include <cstring>

namespace broomtide::test {

std::error_code FaultyFileManager::openFolder(int folder, const char* name, LinkPolicy links,
                                              FileDescriptor& opened) {
  if (const std::error_code error = onOpen(name)) return error;
  return systemFileManager().openFolder(folder, name, links, opened);
}

std::error_code FaultyFileManager::readFolder(int folder, std::span<std::byte> buffer,
                                              std::size_t& filled) {
  if (const std::error_code error = onRead()) return error;
  const std::error_code error = systemFileManager().readFolder(folder, buffer, filled);
  for (std::size_t position = 0; hidesTypes && position < filled;) {
    std::uint16_t length = 0;
    std::memcpy(&length, &buffer[position + offsetof(dirent64, d_reclen)], sizeof length);
    buffer[position + offsetof(dirent64, d_type)] = std::byte{DT_UNKNOWN};
    position += length;
  }
  return error;
}

std::error_code FaultyFileManager::rewindFolder(int folder) {
  return systemFileManager().rewindFolder(folder);
}

std::error_code FaultyFileManager::readAttributes(int folder, const char* name, LinkPolicy links,
                                                  FileAttributes& attributes) {
  if (const std::error_code error = onAttributes(name)) return error;
  return systemFileManager().readAttributes(folder, name, links, attributes);
}

bool FaultyFileManager::isReadable(const std::string& path) {
  return systemFileManager().isReadable(path);
}

bool FaultyFileManager::isExecutableFile(const std::string& path) {
  return systemFileManager().isExecutableFile(path);
}

}  // namespace broomtide::test

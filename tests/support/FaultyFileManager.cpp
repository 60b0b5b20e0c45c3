#include "support/FaultyFileManager.h"

#include <dirent.h>

#include <algorithm>
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
  if (maxBytesPerRead > 0) buffer = buffer.first(std::min(buffer.size(), maxBytesPerRead));
  const std::error_code error = systemFileManager().readFolder(folder, buffer, filled);
  for (std::size_t position = 0; hidesTypes && position < filled;) {
    std::uint16_t length = 0;
    std::memcpy(&length, &buffer[position + offsetof(dirent64, d_reclen)], sizeof length);
    buffer[position + offsetof(dirent64, d_type)] = std::byte{DT_UNKNOWN};
    position += length;
  }
  return error;
}

std::error_code FaultyFileManager::readAttributes(int folder, const char* name, LinkPolicy links,
                                                  FileAttributes& attributes) {
  if (const std::error_code error = onAttributes(name)) return error;
  const std::error_code error = systemFileManager().readAttributes(folder, name, links, attributes);
  if (hasNoPermissions) attributes.permissions |= 0777;
  return error;
}

bool FaultyFileManager::isReadable(const std::string& path) {
  return !onCheck(path) && systemFileManager().isReadable(path);
}

bool FaultyFileManager::isExecutableFile(const std::string& path) {
  return !onCheck(path) && systemFileManager().isExecutableFile(path);
}

std::error_code FaultyFileManager::openFile(int folder, const char* name, LinkPolicy links,
                                            FileDescriptor& opened) {
  if (const std::error_code error = onChange(std::string("openFile ") + name)) return error;
  return systemFileManager().openFile(folder, name, links, opened);
}

std::error_code FaultyFileManager::readFile(int file, std::span<char> buffer, std::size_t& filled) {
  if (const std::error_code error = onChange("readFile")) return error;
  return systemFileManager().readFile(file, buffer, filled);
}

std::error_code FaultyFileManager::createFile(int folder, const char* name,
                                              FileDescriptor& opened) {
  if (const std::error_code error = onChange(std::string("createFile ") + name)) return error;
  return systemFileManager().createFile(folder, name, opened);
}

std::error_code FaultyFileManager::writeFile(int file, std::string_view bytes,
                                             std::size_t& written) {
  if (const std::error_code error = onChange("writeFile")) return error;
  return systemFileManager().writeFile(file, bytes, written);
}

std::error_code FaultyFileManager::synchronize(int descriptor) {
  if (const std::error_code error = onChange("synchronize")) return error;
  return systemFileManager().synchronize(descriptor);
}

std::error_code FaultyFileManager::removeFile(int folder, const char* name) {
  if (const std::error_code error = onChange(std::string("removeFile ") + name)) return error;
  return systemFileManager().removeFile(folder, name);
}

std::error_code FaultyFileManager::createFolder(int folder, const char* name) {
  if (const std::error_code error = onChange(std::string("createFolder ") + name)) return error;
  return systemFileManager().createFolder(folder, name);
}

std::error_code FaultyFileManager::removeFolder(int folder, const char* name) {
  if (const std::error_code error = onChange(std::string("removeFolder ") + name)) return error;
  return systemFileManager().removeFolder(folder, name);
}

std::error_code FaultyFileManager::rename(int folder, const char* name, int newFolder,
                                          const char* newName, IfExists ifExists) {
  if (const std::error_code error = onChange(std::string("rename ") + name + " " + newName))
    return error;
  return systemFileManager().rename(folder, name, newFolder, newName, ifExists);
}

std::error_code FaultyFileManager::tryLock(int folder) {
  if (const std::error_code error = onChange("tryLock")) return error;
  return systemFileManager().tryLock(folder);
}

}  // namespace broomtide::test

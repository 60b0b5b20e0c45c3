#include "platform/FileIdentity.h"

namespace broomtide::FileIdentity {

std::string token(const FileAttributes& attributes) {
  return std::to_string(attributes.device) + ':' + std::to_string(attributes.inode) + ':' +
         std::to_string(attributes.typeBits);
}

std::optional<std::string> read(FileManager& fileManager, const std::string& path) {
  FileAttributes attributes;
  if (fileManager.readAttributes(workingDirectory, path.c_str(), LinkPolicy::doNotFollow,
                                 attributes)) {
    return std::nullopt;
  }
  return token(attributes);
}

bool isSymbolicLink(FileManager& fileManager, const std::string& path) {
  FileAttributes attributes;
  return !fileManager.readAttributes(workingDirectory, path.c_str(), LinkPolicy::doNotFollow,
                                     attributes) &&
         attributes.isLink();
}

}  // namespace broomtide::FileIdentity

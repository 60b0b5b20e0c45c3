#include "platform/UserFolders.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <vector>

#include "core/Paths.h"
#include "platform/PathSafety.h"

namespace broomtide::UserFolders {
namespace {

// A relative path in one of these variables has no meaning and counts as none.
std::optional<std::string> folderOfVariable(const char* name) {
  const char* value = std::getenv(name);
  if (value == nullptr || value[0] != '/') return std::nullopt;
  return paths::standardized(value);
}

}  // namespace

std::optional<std::string> realHome() {
  constexpr std::size_t usualSize = 1024, mostSize = std::size_t{1} << 20U;
  for (std::vector<char> texts(usualSize); texts.size() <= mostSize;
       texts.resize(texts.size() * 2)) {
    passwd entry{};
    passwd* found = nullptr;
    const int error = ::getpwuid_r(::getuid(), &entry, texts.data(), texts.size(), &found);
    if (error == ERANGE) continue;
    if (found == nullptr || found->pw_dir == nullptr || found->pw_dir[0] != '/') break;
    return paths::standardized(found->pw_dir);
  }
  return std::nullopt;
}

std::vector<std::string> homes() {
  std::vector<std::string> found;
  for (const std::optional<std::string>& home : {realHome(), folderOfVariable("HOME")}) {
    if (home) found.push_back(PathSafety::resolved(*home));
  }
  return found;
}

bool isHomeOfAnother() {
  const std::optional<std::string> home = folderOfVariable("HOME");
  struct stat status;
  return ::geteuid() == 0 && home && ::stat(home->c_str(), &status) == 0 && status.st_uid != 0;
}

std::optional<std::string> applicationData() {
  if (auto folder = folderOfVariable("XDG_DATA_HOME")) return folder;
  std::optional<std::string> home = folderOfVariable("HOME");
  if (!home) home = realHome();
  if (!home) return std::nullopt;
  return paths::appending(*home, ".local/share");
}

std::optional<std::string> homeTrash() {
  const std::optional<std::string> data = applicationData();
  if (!data) return std::nullopt;
  return paths::appending(*data, "Trash");
}

}  // namespace broomtide::UserFolders

#include "trash/TrashFormat.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <optional>
#include <unordered_set>

#include "core/Paths.h"
#include "core/Utf8.h"

namespace broomtide {
namespace {

constexpr std::size_t maxFileName = 255;
constexpr std::size_t maxTrashName = maxFileName - trashInfoSuffix.size();
constexpr std::size_t maxExtension = 64;  // a longer one says nothing of the kind of a file

// At most `most` bytes, whole characters.
std::string_view shortened(std::string_view text, std::size_t most) {
  std::size_t length = 0;
  while (length < text.size()) {
    const std::size_t next = length + utf8::decode(text.substr(length)).length;
    if (next > most) break;
    length = next;
  }
  return text.substr(0, length);
}

}  // namespace

bool isTrashOfMount(std::string_view name) {
  constexpr std::string_view shared = ".Trash";
  if (!name.starts_with(shared)) return false;
  name.remove_prefix(shared.size());
  return name.empty() || (name.size() > 1 && name.front() == '-' &&
                          name.find_first_not_of("0123456789", 1) == std::string_view::npos);
}

std::string trashName(std::string_view name, std::uint64_t number) {
  std::string_view extension = paths::pathExtension(name);
  if (extension.size() > maxExtension) extension = {};
  std::string ending = number == 1 ? std::string() : '.' + std::to_string(number);
  if (!extension.empty()) {
    ending.append(".").append(extension);
    name.remove_suffix(extension.size() + 1);
  }
  return std::string(shortened(name, maxTrashName - ending.size())) + ending;
}

std::string recordedPath(std::string_view path, std::string_view top) {
  if (top.empty()) return std::string(path);
  const std::size_t slash = top.ends_with('/') ? top.size() - 1 : top.size();  // "/" is all slash
  return std::string(path.substr(slash + 1));
}

std::string trashInfo(std::string_view path, Date movedAt) {
  const std::time_t second = std::chrono::system_clock::to_time_t(
      std::chrono::time_point_cast<std::chrono::system_clock::duration>(movedAt));
  std::tm local{};
  ::localtime_r(&second, &local);
  std::array<char, 32> date{};
  std::strftime(date.data(), date.size(), "%Y-%m-%dT%H:%M:%S", &local);
  return "[Trash Info]\nPath=" + paths::percentEncoded(path) + "\nDeletionDate=" + date.data() +
         '\n';
}

namespace {

bool isInteger(std::string_view text) {
  if (text.starts_with('-')) text.remove_prefix(1);
  return !text.empty() &&
         std::ranges::all_of(text, [](char digit) { return digit >= '0' && digit <= '9'; });
}

// Of which folder a line tells; nothing for a line of another form.
std::optional<std::string> nameIn(std::string_view line) {
  for (int field = 0; field < 2; ++field) {
    const std::size_t blank = line.find(' ');
    if (blank == std::string_view::npos || !isInteger(line.substr(0, blank))) return std::nullopt;
    line.remove_prefix(blank + 1);
  }
  // Other programs leave other bytes as they are, so that a name may be written in several ways.
  return paths::percentDecoded(line);
}

}  // namespace

std::string withDirectorySizes(std::string_view text, const std::vector<DirectorySize>& added) {
  std::unordered_set<std::string> names;
  for (const DirectorySize& folder : added) names.insert(folder.name);
  std::string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find('\n'));
    const std::optional<std::string> name = nameIn(line);
    if (!name || !names.contains(*name)) result.append(line).append("\n");
    text.remove_prefix(std::min(line.size() + 1, text.size()));
  }
  for (const DirectorySize& folder : added) {
    result += std::to_string(folder.size) + ' ' + std::to_string(folder.changedAt) + ' ' +
              paths::percentEncoded(folder.name) + '\n';
  }
  return result;
}

}  // namespace broomtide

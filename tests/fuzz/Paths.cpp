#include "core/Paths.h"

#include <filesystem>
#include <string>

#include "fuzz/Input.h"

namespace broomtide::fuzz {
namespace {

namespace fs = std::filesystem;

char lower(char byte) { return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte | 0x20) : byte; }

std::string lowered(std::string_view text) {
  std::string result(text);
  for (char& byte : result) byte = lower(byte);
  return result;
}

// What the library makes of a path, without the slashes that it keeps at the end.
std::string normal(const std::string& path) {
  std::string result = fs::path(path).lexically_normal();
  if (result.empty()) return ".";
  while (result.size() > 1 && result.ends_with('/')) result.pop_back();
  return result;
}

void checkStandardized(const std::string& path) {
  const std::string standard = paths::standardized(path);
  require(standard == normal(path), "standardising agrees with the library");
  require(paths::standardized(standard) == standard, "standardising twice changes nothing");
  require(standard.starts_with('/') == path.starts_with('/'), "absolute paths stay absolute");
  require(standard == "/" || !standard.ends_with('/'), "only the root folder ends with a slash");
}

void checkParts(const std::string& path) {
  const std::string_view last = paths::lastComponent(path);
  require(path == "/" ? last == "/" : last == std::string(fs::path(path).filename()),
          "the last component is what follows the last slash");
  const std::string standard = paths::standardized(path);
  if (!standard.starts_with('/')) return;
  const std::string folder(paths::enclosingFolder(standard));
  require(folder == std::string(fs::path(standard).parent_path()), "folders enclose their items");
  require(standard == "/" || paths::appending(folder, paths::lastComponent(standard)) == standard,
          "a path is its folder and its last component");
}

void checkRelation(const std::string& item, const std::string& root) {
  const std::string standardItem = paths::standardized(item);
  const std::string standardRoot = paths::standardized(root);
  const std::string relative = paths::relativePath(item, root);
  require(!relative.empty(), "no item is without a relative path");
  if (paths::isBelow(standardItem, standardRoot)) {
    require(standardItem == standardRoot + '/' + relative, "an item is its root and the rest");
    require(std::string(fs::path(standardItem).lexically_relative(standardRoot)) == relative,
            "relative paths agree with the library");
  } else {
    require(!standardItem.starts_with(standardRoot + '/'), "what is below is recognised");
    require(relative == paths::lastComponent(standardItem), "what is elsewhere is named");
  }
  if (!standardRoot.ends_with('/') && !item.empty()) {
    require(paths::isBelow(paths::appending(standardRoot, item), standardRoot),
            "what is appended is below");
  }
}

void checkName(std::string_view name) {
  if (name.find('/') != std::string_view::npos) return;
  std::string extension = fs::path(name).extension();
  if (!extension.empty()) extension.erase(0, 1);
  require(paths::pathExtension(name) == extension, "extensions agree with the library");
}

void checkCase(std::string_view left, std::string_view right) {
  constexpr std::size_t longest = 24;
  require(paths::equalIgnoringCase(left, right) == (lowered(left) == lowered(right)),
          "case is ignored in ASCII letters alone");
  require(paths::ShortLowercase(left).text() ==
              (left.size() <= longest ? lowered(left) : std::string()),
          "short texts are lowered, long ones empty");
}

}  // namespace
}  // namespace broomtide::fuzz

// Inputs are an item and a root.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace broomtide::fuzz;
  std::string_view input = text(data, size);
  const std::string item(takePart(input));
  const std::string root(input);
  for (const std::string& path : {item, root, root + '/' + item, '/' + item}) {
    checkStandardized(path);
    checkParts(path);
    checkName(path);
    checkRelation(path, root);
    checkCase(path, item);
  }
  checkCase(lowered(item), item);
  checkCase(root, item);
  return 0;
}

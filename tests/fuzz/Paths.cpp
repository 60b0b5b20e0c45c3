#include "core/Paths.h"

#include <filesystem>
#include <string>

#include "fuzz/Input.h"

namespace broomtide::fuzz {
namespace {

namespace fs = std::filesystem;

// What the library makes of a path, without the slashes that it keeps at the end.
std::string normal(const std::string& path) {
  std::string result = fs::path(path).lexically_normal();
  while (result.size() > 1 && result.ends_with('/')) result.pop_back();
  return result.empty() ? "." : result;
}

void checkPath(const std::string& path) {
  const std::string standard = paths::standardized(path);
  require(standard == normal(path), "standardising agrees with the library");
  const std::string_view last = paths::lastComponent(path);
  require(path == "/" ? last == "/" : last == std::string(fs::path(path).filename()),
          "the last component is what follows the last slash");
  std::string extension = fs::path(last).extension();
  require(path == "/" || paths::pathExtension(last) == extension.erase(0, 1),
          "extensions agree with the library");
  if (!standard.starts_with('/')) return;
  const std::string folder(paths::enclosingFolder(standard));
  require(folder == std::string(fs::path(standard).parent_path()), "folders enclose their items");
  require(standard == "/" || paths::appending(folder, paths::lastComponent(standard)) == standard,
          "a path is its folder and its last component");
}

void checkRelation(const std::string& item, const std::string& root) {
  const std::string path = paths::standardized(item), folder = paths::standardized(root);
  const bool isBelow = path.starts_with(folder + '/');
  require(isBelow ? paths::relativePath(item, root) ==
                        std::string(fs::path(path).lexically_relative(folder))
                  : folder == "/" || paths::relativePath(item, root) == paths::lastComponent(path),
          "relative paths agree with the library, and what is elsewhere is named");
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
    checkPath(path);
    checkRelation(path, root);
  }
  return 0;
}

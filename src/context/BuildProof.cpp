#include "context/BuildProof.h"

#include <array>
#include <cstddef>
#include <nlohmann/json.hpp>
#include <string_view>
#include <utility>

#include "core/Paths.h"
#include "platform/DirectoryEnumerator.h"
#include "platform/PathSafety.h"
#include "platform/WholeFile.h"
#include "rules/ProjectManifests.h"
#include "rules/ProvenRules.h"
#include "rules/VersionControl.h"

namespace broomtide {
namespace {

constexpr std::size_t maxCMakeCache = std::size_t{8} << 20U;
constexpr std::size_t maxDescription = std::size_t{1} << 20U;
constexpr std::size_t maxPath = 4095;  // longer ones the system takes from nobody
constexpr std::size_t maxTag = std::size_t{64} << 10U;

constexpr std::string_view tagSignature = "Signature: 8a477f597d28d172789f06886806bc55";
static_assert(tagSignature.size() == 43);

std::optional<std::string> contentsOf(FileManager& fileManager, int folder, const std::string& name,
                                      std::size_t maxBytes) {
  std::string text;
  if (WholeFile::read(fileManager, folder, name, LinkPolicy::doNotFollow, text, maxBytes)) {
    return std::nullopt;
  }
  return text;
}

bool isFile(FileManager& fileManager, int folder, const std::string& name) {
  FileAttributes attributes;
  return !fileManager.readAttributes(folder, name.c_str(), LinkPolicy::doNotFollow, attributes) &&
         attributes.isRegularFile();
}

// What follows the first line that begins like this, to its end.
std::optional<std::string> valueIn(std::string_view text, std::string_view beginning) {
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find('\n', start), text.size());
    std::string_view line = text.substr(start, end - start);
    if (line.starts_with(beginning)) {
      line.remove_prefix(beginning.size());
      if (line.ends_with('\r')) line.remove_suffix(1);
      return std::string(line);
    }
    start = end + 1;
  }
  return std::nullopt;
}

// The text at a place in a JSON document, which may have comments.
std::optional<std::string> textAt(const std::string& document, const char* place) {
  const auto json = nlohmann::json::parse(document, nullptr, false, true);
  const nlohmann::json::json_pointer pointer(place);
  if (json.is_discarded() || !json.contains(pointer) || !json[pointer].is_string()) {
    return std::nullopt;
  }
  return json[pointer].get<std::string>();
}

// The folder of the sources of a build tree, when it is there and apart from the tree.
std::optional<std::string> sourcesOf(FileManager& fileManager,
                                     const std::optional<std::string>& named,
                                     const std::string& tree, const char* description) {
  if (!named || !named->starts_with('/') || named->size() > maxPath) return std::nullopt;
  if (named->find('\0') != named->npos) return std::nullopt;
  std::string sources = paths::standardized(*named);
  const std::string resolved = PathSafety::resolved(sources);
  if (resolved == tree || paths::isBelow(resolved, tree)) return std::nullopt;
  if (!isFile(fileManager, workingDirectory, paths::appending(resolved, description))) {
    return std::nullopt;
  }
  return sources;
}

BuildProof builtFrom(const std::string& sources, const std::string& tree, const ScanRule& rule,
                     std::string_view reason, std::string_view command) {
  return {.rule = &rule,
          .reason = naming(reason, sources),
          .command = Message{.pattern = command,
                             .values = {nameValue(paths::shellQuoted(sources)),
                                        nameValue(paths::shellQuoted(tree))}}};
}

std::optional<BuildProof> byCMake(FileManager& fileManager, int folder, const std::string& tree) {
  const auto cache = contentsOf(fileManager, folder, "CMakeCache.txt", maxCMakeCache);
  if (!cache) return std::nullopt;
  const auto sources = sourcesOf(fileManager, valueIn(*cache, "CMAKE_HOME_DIRECTORY:INTERNAL="),
                                 tree, "CMakeLists.txt");
  if (!sources) return std::nullopt;
  return builtFrom(*sources, tree, ProvenRules::cmakeTree, messages::builtByCMake,
                   messages::runCMake);
}

std::optional<BuildProof> byMeson(FileManager& fileManager, int folder, const std::string& tree) {
  if (!isFile(fileManager, folder, "meson-private/coredata.dat")) return std::nullopt;
  const auto information =
      contentsOf(fileManager, folder, "meson-info/meson-info.json", maxDescription);
  if (!information) return std::nullopt;
  const auto sources =
      sourcesOf(fileManager, textAt(*information, "/directories/source"), tree, "meson.build");
  if (!sources) return std::nullopt;
  return builtFrom(*sources, tree, ProvenRules::mesonTree, messages::builtByMeson,
                   messages::runMeson);
}

std::optional<std::string> readTag(FileManager& fileManager, int folder) {
  auto tag = contentsOf(fileManager, folder, "CACHEDIR.TAG", maxTag);
  if (!tag || !tag->starts_with(tagSignature)) return std::nullopt;
  return tag;
}

// Whether an open folder is a project or a working copy. One that cannot be read may be.
bool isProject(FileManager& fileManager, int folder) {
  FileDescriptor again;
  if (fileManager.openFolder(folder, ".", LinkPolicy::doNotFollow, again)) return true;
  bool isFound = false;
  DirectoryEnumerator entries(fileManager, DirectoryEnumerator::Order::foldersAfter,
                              [&isFound](std::string_view, std::error_code) { isFound = true; });
  entries.begin(std::move(again));
  while (entries.next() && !isFound) {
    entries.skipDescendants();
    isFound = isOfProject(entries.name(), entries.type());
  }
  return isFound;
}

// The comment in the second line, shortened: who wrote the tag.
std::string writerOf(std::string_view tag) {
  constexpr std::size_t maxLength = 120;
  tag.remove_prefix(std::min(tag.find('\n'), tag.size() - 1) + 1);
  tag = tag.substr(0, std::min(tag.find('\n'), maxLength));
  const std::size_t start = tag.find_first_not_of("# \t\r");
  const std::size_t end = tag.find_last_not_of(" \t\r");
  return start == tag.npos ? std::string() : std::string(tag.substr(start, end + 1 - start));
}

}  // namespace

bool isOfProject(std::string_view name, EntryType type) {
  return versionControlSystem(name) != nullptr ||
         (type == EntryType::file && manifestKind(name).has_value());
}

std::optional<BuildProof> buildProof(FileManager& fileManager, int folder,
                                     const std::string& location, const FolderMarks& marks,
                                     Proofs proofs) {
  using enum FolderMarks::Mark;
  if (marks.has(cmakeCache)) {
    if (auto proof = byCMake(fileManager, folder, location)) return proof;
  }
  if (marks.has(meson)) {
    if (auto proof = byMeson(fileManager, folder, location)) return proof;
  }
  if (!marks.has(cacheTag) || (proofs == Proofs::ofBuilds && !marks.has(cargo)))
    return std::nullopt;
  const auto tag = readTag(fileManager, folder);
  if (!tag) return std::nullopt;
  if (marks.has(cargo)) {
    return BuildProof{.rule = &ProvenRules::cargoTarget,
                      .reason = {messages::builtByCargo},
                      .command = naming(messages::runCargo, paths::shellQuoted(location))};
  }
  const std::string writer = writerOf(*tag);
  return BuildProof{.rule = &ProvenRules::taggedCache,
                    .reason = writer.empty() ? Message{messages::taggedAsCache}
                                             : naming(messages::taggedAsCacheBy, writer),
                    .command = std::nullopt};
}

std::optional<BuildProof> buildProofOf(FileManager& fileManager, int folder,
                                       const std::string& name, const std::string& location) {
  FileDescriptor opened;
  if (fileManager.openFolder(folder, name.c_str(), LinkPolicy::doNotFollow, opened)) {
    return std::nullopt;
  }
  const FolderMarks marks = FolderMarks::of(fileManager, opened.get(), ".");
  if (!marks.mayBeGenerated() || isProject(fileManager, opened.get())) return std::nullopt;
  return buildProof(fileManager, opened.get(), location, marks, Proofs::ofBuilds);
}

bool isEditorExtension(FileManager& fileManager, int folder) {
  const auto manifest = contentsOf(fileManager, folder, "package.json", maxDescription);
  return manifest && textAt(*manifest, "/engines/vscode");
}

}  // namespace broomtide

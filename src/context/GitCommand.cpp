#include "context/GitCommand.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "core/Paths.h"

namespace broomtide::GitCommand {
namespace {

// No index can name what the system cannot open.
constexpr std::size_t maxPathLength = 4095;

ChildProcess::Command commandIn(const std::string& git, const std::string& folder) {
  return {
      .executable = git,
      // Threads reserve memory, each its own part; so do packs, unless they are mapped in pieces.
      .arguments = {"-C", folder, "-c", "core.quotepath=false", "-c", "core.fsmonitor=false", "-c",
                    "index.threads=1", "-c", "core.packedGitWindowSize=32m", "-c",
                    "core.packedGitLimit=256m"},
      // Where it finds no repository, or one that is broken, Git would answer for one around it.
      // The folder above is named in a way that no colon in its path can end.
      .environment = {"LC_ALL=C", "PATH=/usr/bin:/bin", "GIT_ALLOW_PROTOCOL=",
                      "GIT_LITERAL_PATHSPECS=1", "GIT_CEILING_DIRECTORIES=/proc/self/cwd/.."},
  };
}

}  // namespace

std::optional<ChildProcess::Limits> Budget::next() {
  const std::chrono::milliseconds lost = lost_;
  if (lost >= mostLost) return std::nullopt;
  const bool isPatient = lost < patience;
  return ChildProcess::Limits{.time = isPatient ? runLimit_ : std::min(runLimit_, hastyRunLimit),
                              .idleTime = isPatient ? idleLimit : hastyIdleLimit,
                              .allowance = &listings_};
}

void Budget::lose(std::chrono::milliseconds time) {
  std::chrono::milliseconds lost = lost_;
  while (!lost_.compare_exchange_weak(lost, lost + time)) {
  }
}

std::optional<std::string> locate(FileManager& fileManager, const char* developerFolder) {
  std::vector<std::string> places;
  if (developerFolder != nullptr && developerFolder[0] != '\0') {
    places.push_back(paths::appending(developerFolder, "usr/bin/git"));
  }
  places.insert(places.end(), {"/Applications/Xcode.app/Contents/Developer/usr/bin/git",
                               "/Applications/Xcode-beta.app/Contents/Developer/usr/bin/git",
                               "/Library/Developer/CommandLineTools/usr/bin/git", "/usr/bin/git"});
  for (std::string& place : places) {
    if (fileManager.isExecutableFile(place)) return std::move(place);
  }
  return std::nullopt;
}

const std::optional<std::string>& executable() {
  static const std::optional<std::string> found =
      locate(systemFileManager(), std::getenv("DEVELOPER_DIR"));
  return found;
}

Mark markOf(FileManager& fileManager, const std::string& folder) {
  FileAttributes attributes;
  const std::error_code error =
      fileManager.readAttributes(workingDirectory, paths::appending(folder, ".git").c_str(),
                                 LinkPolicy::doNotFollow, attributes);
  const bool isMissing =
      error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory;
  if (isMissing) return Mark::none;
  return error || attributes.isFolder() || attributes.isRegularFile() ? Mark::usable
                                                                      : Mark::unusable;
}

std::vector<std::string> repositoriesAround(FileManager& fileManager, const std::string& folder) {
  std::vector<std::string> found;
  for (std::string above = folder; above != "/";) {
    above = std::string(paths::enclosingFolder(above));
    if (markOf(fileManager, above) != Mark::none) found.push_back(above);
  }
  return found;
}

ChildProcess::Command listingCommand(const std::string& git, const std::string& folder,
                                     Listing listing) {
  ChildProcess::Command command = commandIn(git, folder);
  command.arguments.insert(command.arguments.end(), {"ls-files", "-z"});
  if (listing == Listing::tracked) {
    command.arguments.emplace_back("--cached");
  } else {
    command.arguments.insert(
        command.arguments.end(),
        {"--others", "--ignored", "--exclude-standard", "--directory", "--no-empty-directory"});
  }
  // A repository can say that its files are elsewhere; then Git refuses to look for these.
  command.arguments.insert(command.arguments.end(), {"--", folder});
  return command;
}

ChildProcess::Command indexCommand(const std::string& git, const std::string& folder) {
  ChildProcess::Command command = commandIn(git, folder);
  command.arguments.insert(command.arguments.end(), {"rev-parse", "--git-path", "index"});
  return command;
}

ChildProcess::Command countCommand(const std::string& git, const std::string& folder) {
  ChildProcess::Command command = commandIn(git, folder);
  command.arguments.insert(command.arguments.end(), {"count-objects", "-v"});
  return command;
}

bool countsNothing(std::string_view printed) {
  return printed.starts_with("count: 0\n") &&
         printed.find("\nin-pack: 0\n") != std::string_view::npos;
}

bool namesMissingIndex(FileManager& fileManager, const std::string& folder,
                       std::string_view printed) {
  if (printed.ends_with('\n')) printed.remove_suffix(1);
  const std::string index =
      printed.starts_with('/') ? std::string(printed) : paths::appending(folder, printed);
  FileAttributes ignored;
  return fileManager.readAttributes(workingDirectory, index.c_str(), LinkPolicy::follow, ignored) ==
         std::errc::no_such_file_or_directory;
}

bool hasWorkTrees(FileManager& fileManager, const std::string& folder) {
  FileAttributes ignored;
  return fileManager.readAttributes(
             workingDirectory, paths::appending(folder, ".git/worktrees").c_str(),
             LinkPolicy::doNotFollow, ignored) != std::errc::no_such_file_or_directory;
}

ChildProcess::Command workTreesCommand(const std::string& git, const std::string& folder) {
  ChildProcess::Command command = commandIn(git, folder);
  command.arguments.insert(command.arguments.end(), {"worktree", "list", "--porcelain"});
  return command;
}

std::string workTreesBelow(const std::string& folder, std::string_view printed) {
  const std::string label = "worktree " + paths::appending(folder, "");
  std::string found;
  for (std::size_t start = 0; start < printed.size();) {
    const std::size_t end = std::min(printed.find('\n', start), printed.size());
    const std::string_view line = printed.substr(start, end - start);
    if (line.starts_with(label)) found.append(line.substr(label.size())).push_back('\0');
    start = end + 1;
  }
  return found;
}

bool tellsOfFailure(std::string_view messages) {
  for (std::size_t start = 0; start < messages.size();) {
    const std::string_view line = messages.substr(start);
    if (line.starts_with("error:") || line.starts_with("fatal:")) return true;
    start = messages.find('\n', start);
    if (start == std::string_view::npos) return false;
    ++start;
  }
  return false;
}

bool isListingOfIndex(std::string_view listing) {
  std::string_view last;
  while (!listing.empty()) {
    const std::size_t end = listing.find('\0');
    if (end == std::string_view::npos) return false;
    const std::string_view path = listing.substr(0, end);
    const bool leadsAside =
        path.starts_with('/') || path.starts_with("./") || path.starts_with("../");
    const bool isPath = !path.empty() && path.size() <= maxPathLength && !leadsAside;
    if (!isPath || path < last) return false;
    last = path;
    listing.remove_prefix(end + 1);
  }
  return true;
}

void keepBelow(std::string& listing, std::string_view folder) {
  std::size_t kept = 0;
  for (std::size_t start = 0; start < listing.size();) {
    const std::size_t end = std::min(listing.find('\0', start), listing.size());
    if (paths::isBelow(std::string_view(listing).substr(start, end - start), folder)) {
      const std::size_t first = start + folder.size() + 1;
      std::copy_n(listing.data() + first, end - first, listing.data() + kept);
      kept += end - first;
      listing[kept++] = '\0';
    }
    start = end + 1;
  }
  listing.resize(kept);
  listing.shrink_to_fit();
}

bool isListingBelow(std::string_view listing) {
  using namespace std::string_view_literals;
  return !listing.starts_with("../") && listing.find("\0../"sv) == std::string_view::npos;
}

}  // namespace broomtide::GitCommand

#include "context/GitCommand.h"

#include <cstdlib>
#include <utility>

#include "core/Paths.h"

namespace broomtide::GitCommand {
namespace {

ChildProcess::Command commandIn(const std::string& git, const std::string& folder, Asked asked) {
  ChildProcess::Command command{
      .executable = git,
      .arguments = {"-C", folder, "-c", "core.quotepath=false", "-c", "core.fsmonitor=false"},
      .environment = {"LC_ALL=C", "PATH=/usr/bin:/bin",
                      "GIT_ALLOW_PROTOCOL=", "GIT_LITERAL_PATHSPECS=1"},
  };
  if (asked == Asked::own) {
    // Where it finds no repository, or one that is broken, Git would answer for one around it. The
    // folder above is named in a way that no colon in its path can end.
    command.environment.emplace_back("GIT_CEILING_DIRECTORIES=/proc/self/cwd/..");
  }
  return command;
}

}  // namespace

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

bool isInsideRepository(FileManager& fileManager, const std::string& folder) {
  for (std::string above = folder; above != "/";) {
    above = std::string(paths::enclosingFolder(above));
    if (markOf(fileManager, above) != Mark::none) return true;
  }
  return false;
}

ChildProcess::Command listingCommand(const std::string& git, const std::string& folder,
                                     Listing listing, Asked asked) {
  ChildProcess::Command command = commandIn(git, folder, asked);
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
  ChildProcess::Command command = commandIn(git, folder, Asked::own);
  command.arguments.insert(command.arguments.end(), {"rev-parse", "--git-path", "index"});
  return command;
}

ChildProcess::Command countCommand(const std::string& git, const std::string& folder) {
  ChildProcess::Command command = commandIn(git, folder, Asked::own);
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
    if (path.empty() || leadsAside || path < last) return false;
    last = path;
    listing.remove_prefix(end + 1);
  }
  return true;
}

bool isListingBelow(std::string_view listing) {
  using namespace std::string_view_literals;
  return !listing.starts_with("../") && listing.find("\0../"sv) == std::string_view::npos;
}

}  // namespace broomtide::GitCommand

#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ChildProcess.h"
#include "platform/FileManager.h"

/// How the Git command-line tool is asked what it tracks and ignores, and when its answer is
/// believed. Git is never asked to change anything, and the configuration of a repository, which is
/// not trusted, cannot make it run a program or reach a network.
namespace broomtide::GitCommand {

/// How long one run of Git may take before it counts as failed.
inline constexpr std::chrono::milliseconds runLimit = std::chrono::minutes(5);

/// How long Git may do nothing at all. A sleeping disk takes less to wake up; what takes longer is
/// a pipe, which a repository can have in the place of any file.
inline constexpr std::chrono::milliseconds idleLimit = std::chrono::seconds(30);

/// The Git tool: below `developerFolder` (the value of DEVELOPER_DIR, may be null) or in one of its
/// usual places; nothing when there is none.
std::optional<std::string> locate(FileManager& fileManager, const char* developerFolder);

/// The Git tool of this machine, looked up once in the life of the process.
const std::optional<std::string>& executable();

/// What a folder has under the name ".git".
enum class Mark {
  none,
  usable,    ///< a folder, a file that names one, or what cannot be examined: Git knows better
  unusable,  ///< a symlink or a special file: somewhere a repository, of which nothing is believed
};

Mark markOf(FileManager& fileManager, const std::string& folder);

/// Whether a folder above `folder`, an absolute path, has that mark.
bool isInsideRepository(FileManager& fileManager, const std::string& folder);

/// Which paths of a repository to list.
enum class Listing { tracked, ignored };

/// Which repository is asked about a folder: the one that it is the root of and no other, or the
/// one that it lies in.
enum class Asked { own, enclosing };

/// The command that lists the paths at and below `folder`, relative to it and each ended by a zero
/// byte.
ChildProcess::Command listingCommand(const std::string& git, const std::string& folder,
                                     Listing listing, Asked asked);

/// The command that prints where the index of the repository at `folder` is, relative to it.
ChildProcess::Command indexCommand(const std::string& git, const std::string& folder);

/// Whether what that command printed names an index that is not there.
bool namesMissingIndex(FileManager& fileManager, const std::string& folder,
                       std::string_view printed);

/// The command that counts the objects of the repository at `folder`.
ChildProcess::Command countCommand(const std::string& git, const std::string& folder);

/// Whether what that command printed says that there is none, so that nothing was ever added.
bool countsNothing(std::string_view printed);

/// Whether Git's messages tell that a listing is incomplete although Git ended well, as it does
/// when it cannot read the folders that a sparse index stands for.
bool tellsOfFailure(std::string_view messages);

/// Whether a listing of tracked paths is one that Git can mean: whole, and in the order of an
/// index. Git does not notice when an index has been cut off, and lists entries without names
/// instead.
bool isListingOfIndex(std::string_view listing);

/// Whether a listing of ignored paths names nothing above the repository, which only another
/// repository around it would.
bool isListingBelow(std::string_view listing);

}  // namespace broomtide::GitCommand

#pragma once

#include <chrono>
#include <map>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

#include "context/GitSnapshot.h"
#include "platform/ChildProcess.h"
#include "platform/FileManager.h"

/// Asks the Git command-line tool what it tracks and ignores. Git is never asked to change
/// anything, and the configuration of a repository, which is not trusted, cannot make it run a
/// program or reach a network.
namespace broomtide::GitInspector {

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

/// Whether a folder has the mark of a repository, a ".git" of whatever kind. What cannot be
/// examined counts as one.
bool isRepository(FileManager& fileManager, const std::string& folder);

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

/// One snapshot for each repository root, by standardised root path. Blocks until Git has answered
/// for all; a repository that Git cannot list within `limit`, or before `stop` is asked to stop,
/// gets a snapshot that is not available. For a folder that is no root, the repository around it
/// tells what it tracks there, and nothing of what it ignores.
std::map<std::string, GitSnapshot> inspect(const std::vector<std::string>& roots,
                                           std::stop_token stop,
                                           std::chrono::milliseconds limit = runLimit);

}  // namespace broomtide::GitInspector

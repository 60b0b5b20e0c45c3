#pragma once

#include <atomic>
#include <chrono>
#include <cstddef>
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

/// After so much time was lost with runs that gave no answer, the limits of each further one are
/// the hasty ones. What runs already by then keeps its own.
inline constexpr std::chrono::milliseconds patience = idleLimit;
inline constexpr std::chrono::milliseconds hastyRunLimit = std::chrono::minutes(1);
inline constexpr std::chrono::milliseconds hastyIdleLimit = std::chrono::seconds(2);

/// After so much lost time Git is not run any more.
inline constexpr std::chrono::milliseconds mostLost = std::chrono::minutes(10);

/// How many bytes the listings that are kept may have together: four million paths of 60 bytes.
inline constexpr std::size_t mostListed = 256'000'000;

/// What Git may still cost, of memory and of time, however many repositories it is asked about.
/// Safe to use from several threads at once.
class Budget {
 public:
  /// `limit` bounds one run.
  explicit Budget(std::chrono::milliseconds limit) : runLimit_(limit) {}

  /// The limits of the next run, valid as long as the budget; nothing when no more may be run.
  std::optional<ChildProcess::Limits> next();

  /// Tells of the time that a run took which gave no answer.
  void lose(std::chrono::milliseconds time);

  /// Tells that so many bytes which a run has printed are not kept.
  void drop(std::size_t bytes) { listings_.giveBack(bytes); }

 private:
  const std::chrono::milliseconds runLimit_;
  ChildProcess::Allowance listings_{mostListed};
  std::atomic<std::chrono::milliseconds> lost_{std::chrono::milliseconds(0)};
};

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

/// The folders above `folder`, an absolute path, that have such a mark; the nearest one first.
std::vector<std::string> repositoriesAround(FileManager& fileManager, const std::string& folder);

/// Which paths of a repository to list.
enum class Listing { tracked, ignored };

/// The command that lists the paths of the repository at `folder`, relative to it and each ended by
/// a zero byte. It fails where `folder` is not the root of a repository.
ChildProcess::Command listingCommand(const std::string& git, const std::string& folder,
                                     Listing listing);

/// The command that prints where the index of the repository at `folder` is, relative to it.
ChildProcess::Command indexCommand(const std::string& git, const std::string& folder);

/// Whether what that command printed names an index that is not there.
bool namesMissingIndex(FileManager& fileManager, const std::string& folder,
                       std::string_view printed);

/// The command that counts the objects of the repository at `folder`.
ChildProcess::Command countCommand(const std::string& git, const std::string& folder);

/// Whether what that command printed says that there is none, so that nothing was ever added.
bool countsNothing(std::string_view printed);

/// Whether the repository at `folder` may have linked work trees.
bool hasWorkTrees(FileManager& fileManager, const std::string& folder);

/// The command that prints where all work trees of the repository at `folder` are.
ChildProcess::Command workTreesCommand(const std::string& git, const std::string& folder);

/// Those that lie below `folder`, a path without symlinks, in what that command printed: relative
/// to it and each ended by a zero byte.
std::string workTreesBelow(const std::string& folder, std::string_view printed);

/// Whether Git's messages tell that a listing is incomplete although Git ended well, as it does
/// when it cannot read the folders that a sparse index stands for.
bool tellsOfFailure(std::string_view messages);

/// Whether a listing of tracked paths is one that Git can mean: whole, in the order of an index,
/// and of paths that can be opened. Git does not notice when an index has been cut off, and lists
/// entries without names instead; and an index can say a path of any length in a few bytes.
bool isListingOfIndex(std::string_view listing);

/// Keeps of a listing what lies below `folder`, a relative path, and makes it relative to that.
void keepBelow(std::string& listing, std::string_view folder);

/// Whether a listing of ignored paths names nothing above the repository, which only another
/// repository around it would.
bool isListingBelow(std::string_view listing);

}  // namespace broomtide::GitCommand

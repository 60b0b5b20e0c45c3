#pragma once

#include <array>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

/// Every sentence that the engine says, and those that the command line and the window share.
///
/// A sentence is a constant pattern, in English, with places for values: "%1" to "%9" stand for the
/// values in their order, and "%n" for a number that decides about the form of the words around it.
/// The engine hands out a pattern together with its values. The command line, JSON and the history
/// fill them in as they are (`Message::text`). The window translates the pattern first, which it
/// finds by the constant itself, and so never has to take an English sentence apart.
///
/// Sentences without places are mostly handed out as plain text. Titles of enumerations and what
/// the tables of rules say stand in their tables.
namespace broomtide {

/// What stands at one place of a sentence: a text or terms.
struct MessageValue {
  std::string text = {};  ///< names or a number: the same in every language
  std::vector<std::string> terms =
      {};  ///< each is translated on its own; shown with commas between

  bool operator==(const MessageValue&) const = default;
};

MessageValue nameValue(std::string name);
MessageValue namesValue(const std::vector<std::string>& names);
MessageValue termsValue(std::vector<std::string> terms);
MessageValue countValue(std::size_t count);

/// A sentence with its values, or a bare text in the shape of one.
struct Message {
  std::string_view pattern = {};  ///< a constant, which lives as long as the program
  std::vector<MessageValue> values = {};

  /// The English sentence, as bytes: names stay what they are.
  std::string text() const;

  bool operator==(const Message&) const = default;
};

/// A sentence with one place, at which a name or a path stands.
Message naming(std::string_view pattern, std::string name);

/// Whether the first value is a number that decides about the form of the words around it.
bool hasCount(std::string_view pattern);

/// Whether a line of evidence is one of `messages::cautions`.
bool isCaution(const Message& reason);

/// A name or a path, alone.
Message bareName(std::string name);

/// A sentence without places, or a text of the system, that is translated as a whole.
Message bareSentence(std::string text);

/// What people read of an error: the system's own text where the system failed.
Message messageOf(const std::exception& error);

/// A pattern with texts at its places. Places in the texts themselves are not looked at; a place
/// without a text stays as it is.
std::string filled(std::string_view pattern, const std::vector<std::string>& texts);

namespace messages {

inline constexpr std::string_view bare = "%1";

// Why a scan did not take place.
inline constexpr std::string_view invalidRoot =
    "The selected folder no longer exists or is not a directory.";
inline constexpr std::string_view permissionDenied =
    "Broomtide does not have permission to access this folder. Choose it again or grant access in "
    "macOS Settings.";
inline constexpr std::string_view wholeFileSystem =
    "This is the whole file system. Choose a folder below it.";
inline constexpr std::string_view operationCancelled = "The operation was cancelled.";
inline constexpr std::string_view scanCancelled = "Scan cancelled. No files were changed.";
inline constexpr std::string_view noCachesFound =
    "No known developer cache locations were found under “%1”. When scanning developer caches, "
    "select your home folder (%2) in the picker.";
inline constexpr std::string_view yourHomeFolder = "your home folder";

// Where a scan is.
inline constexpr std::string_view preparing = "Preparing scan…";
inline constexpr std::string_view scanningDownloads = "Scanning Downloads…";
inline constexpr std::string_view projectsDetected = "Detected %n project context(s)…";
inline constexpr std::string_view calculating = "Calculating %1…";
inline constexpr std::string_view scanComplete = "Scan complete";

// What a candidate was judged by.
inline constexpr std::string_view projectDetected = "Detected %1 project from %2.";
inline constexpr std::string_view noProject =
    "Recognized artifact signature, but no supported project manifest was found nearby.";
inline constexpr std::string_view ignoredByGit = "The path is ignored by Git.";
inline constexpr std::string_view untrackedByGit =
    "The path is untracked, but not explicitly ignored by Git.";
inline constexpr std::string_view gitUnverified = "Git status could not be verified.";
inline constexpr std::string_view noRepository = "No Git repository was detected for this project.";
inline constexpr std::string_view genericName =
    "This is a generic artifact name, so Broomtide requires manual selection.";
inline constexpr std::string_view nameAgrees = "The artifact name and project ecosystem agree.";
inline constexpr std::string_view downloadsRule = "Matched the Downloads cleanup rule.";
inline constexpr std::string_view cacheLocation = "Well-known developer cache location (~/%1).";
inline constexpr std::string_view holdsRepository = "It holds a %1 repository of its own: %2";
inline constexpr std::string_view holdsProtectedFile = "It holds a file that may be of value: %1";
inline constexpr std::string_view holdsGuardedFolder = "It holds a folder that may be of value: %1";
inline constexpr std::string_view holdsSource = "It holds a file that people write: %1";
inline constexpr std::string_view holdsManifest = "It is a project of its own: %1";
inline constexpr std::string_view notAllRead = "Not all of it could be read: %1";
inline constexpr std::string_view noEnvironment =
    "It has no pyvenv.cfg, so it may not be a Python environment.";
inline constexpr std::string_view underVersionControl =
    "It lies in a %1 working copy, and Broomtide can only ask Git: %2";
inline constexpr std::string_view insideInstalled =
    "It lies in a place where programs are installed: %1";
inline constexpr std::string_view insideHiddenFolder =
    "It lies in a hidden folder of a home, where programs keep what they need: %1";
inline constexpr std::string_view projectIsHome = "The project around it is a home folder: %1";
inline constexpr std::string_view builtByCMake = "CMake built it from the sources in %1.";
inline constexpr std::string_view builtByMeson = "Meson built it from the sources in %1.";
inline constexpr std::string_view builtByCargo = "Cargo wrote its build output here.";
inline constexpr std::string_view taggedAsCache = "The program that wrote it calls it a cache.";
inline constexpr std::string_view taggedAsCacheBy =
    "The program that wrote it calls it a cache: %1";

// Commands, the same in every language.
inline constexpr std::string_view runCMake = "cmake -S %1 -B %2";
inline constexpr std::string_view runMeson = "meson setup %2 %1";
inline constexpr std::string_view runCargo = "cargo build --target-dir %1";

// What a scan left out.
inline constexpr std::string_view disappeared = "The item disappeared while it was being scanned.";
inline constexpr std::string_view itemsSkipped = "%n item(s) could not be read and were skipped.";

// Why a cleanup left an item alone.
inline constexpr std::string_view cleanupCancelled = "Cleanup was cancelled.";
inline constexpr std::string_view noLongerInside =
    "The item is no longer inside the selected folder.";
inline constexpr std::string_view becameLink =
    "The item changed into a symbolic link and was skipped.";
inline constexpr std::string_view gone =
    "This item no longer exists. It may have been moved or deleted.";
inline constexpr std::string_view replaced =
    "The item changed after the scan. Rescan before cleaning it.";
inline constexpr std::string_view modified =
    "The item was modified after the scan. Rescan before cleaning it.";
inline constexpr std::string_view contentsChanged =
    "Something of value may have come into the item after the scan. Rescan before cleaning it.";
inline constexpr std::string_view gitUnknown =
    "Git status could not be revalidated. Broomtide left the item untouched.";
inline constexpr std::string_view nowTracked =
    "The item is now tracked by Git. Broomtide left it untouched.";
inline constexpr std::string_view noLongerIgnored =
    "The item is no longer ignored by Git. Rescan before cleaning it.";
inline constexpr std::string_view inUse =
    "The item is in use by %1 (%2). Broomtide left it untouched.";
inline constexpr std::string_view notMoved =
    "Broomtide could not move this item to Trash. It may be locked, in use, or require additional "
    "permission.";
inline constexpr std::string_view historyNotSaved =
    "Cleanup finished, but Broomtide could not save the local history.";

// What folder pickers say.
inline constexpr std::string_view chooseProject = "Choose a project folder";
inline constexpr std::string_view chooseDownloads = "Choose your Downloads folder";
inline constexpr std::string_view chooseHome = "Choose your home folder";
inline constexpr std::string_view scanFolder = "Scan Folder";
inline constexpr std::string_view scanCaches = "Scan Caches";
inline constexpr std::string_view onlyThisFolder =
    "Broomtide scans only the folder you choose. Nothing is uploaded.";
inline constexpr std::string_view keepHomeSelected =
    "Keep your home folder selected and press Scan Caches. Broomtide checks well-known developer "
    "cache locations under it. Nothing is uploaded.";

// What the command line and the window say alike.
inline constexpr std::string_view nothingFound = "Nothing to clean here";
inline constexpr std::string_view cachesClean =
    "The known developer cache locations under this folder are already clean.";
inline constexpr std::string_view nothingSupported =
    "Broomtide scanned %n items but did not find a supported disposable artifact in this folder.";
inline constexpr std::string_view moveToTrash = "Move selected items to Trash?";
inline constexpr std::string_view cleanupComplete = "Cleanup complete";
inline constexpr std::string_view noHistory = "No cleanup history";
inline constexpr std::string_view historyAppears = "Completed cleanups will appear here.";
inline constexpr std::string_view homeOfAnother =
    "Broomtide runs as root with the home folder of another user, in which it would keep what "
    "belongs to root. Run it as that user, or with the home folder of root (sudo -H).";

/// What speaks against an item although its name, its project and Git do not.
inline constexpr std::array cautions{
    holdsRepository,    holdsProtectedFile, holdsGuardedFolder,  holdsSource,
    holdsManifest,      noEnvironment,      underVersionControl, insideInstalled,
    insideHiddenFolder, projectIsHome,      notAllRead,
};

/// All of them but the bare one and the commands, for translators.
inline constexpr std::array all{
    invalidRoot,
    permissionDenied,
    wholeFileSystem,
    operationCancelled,
    scanCancelled,
    noCachesFound,
    yourHomeFolder,
    preparing,
    scanningDownloads,
    projectsDetected,
    calculating,
    scanComplete,
    projectDetected,
    noProject,
    ignoredByGit,
    untrackedByGit,
    gitUnverified,
    noRepository,
    genericName,
    nameAgrees,
    downloadsRule,
    cacheLocation,
    disappeared,
    itemsSkipped,
    holdsRepository,
    notAllRead,
    holdsProtectedFile,
    holdsGuardedFolder,
    holdsSource,
    holdsManifest,
    noEnvironment,
    underVersionControl,
    insideInstalled,
    insideHiddenFolder,
    projectIsHome,
    builtByCMake,
    builtByMeson,
    builtByCargo,
    taggedAsCache,
    taggedAsCacheBy,
    contentsChanged,
    cleanupCancelled,
    noLongerInside,
    becameLink,
    gone,
    replaced,
    modified,
    gitUnknown,
    nowTracked,
    noLongerIgnored,
    inUse,
    notMoved,
    historyNotSaved,
    chooseProject,
    chooseDownloads,
    chooseHome,
    scanFolder,
    scanCaches,
    onlyThisFolder,
    keepHomeSelected,
    nothingFound,
    cachesClean,
    nothingSupported,
    moveToTrash,
    cleanupComplete,
    noHistory,
    historyAppears,
    homeOfAnother,
};

}  // namespace messages
}  // namespace broomtide

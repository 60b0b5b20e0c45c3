#include "cleanup/JSONHistoryStore.h"

#include <algorithm>
#include <chrono>
#include <system_error>
#include <thread>
#include <utility>

#include "core/Paths.h"
#include "platform/UserFolders.h"
#include "platform/WholeFile.h"

namespace broomtide {
namespace {

using namespace std::chrono_literals;
using HistoryCodec::Defect;

// Others hold the lock for as long as one append takes, so that whoever holds it longer hangs.
constexpr auto maxWait = 10s;
constexpr auto pause = 100us;  // short enough to meet the moment between two appends of another

std::optional<std::string> defaultFile() {
  const std::optional<std::string> data = UserFolders::applicationData();
  if (!data) return std::nullopt;
  return paths::appending(*data, "Broomtide/history.json");
}

void throwIf(std::error_code error) {
  if (error) throw std::system_error(error);
}

// On a file system without locks the history is written all the same.
void lock(FileManager& fileManager, int folder) {
  const auto end = std::chrono::steady_clock::now() + maxWait;
  while (fileManager.tryLock(folder) == std::errc::operation_would_block) {
    if (std::chrono::steady_clock::now() > end) throwIf(std::make_error_code(std::errc::timed_out));
    std::this_thread::sleep_for(pause);
  }
}

std::string reasonOf(Defect defect) {
  switch (defect) {
    case Defect::undecodable:
      return "undecodable";
    case Defect::otherVersion:
      break;
  }
  return "other-version";
}

}  // namespace

JSONHistoryStore::JSONHistoryStore(std::optional<std::string> fileURL, FileManager& fileManager)
    : file_(fileURL ? std::move(fileURL) : defaultFile()), fileManager_(fileManager) {}

std::vector<CleanupHistoryEntry> JSONHistoryStore::load() noexcept {
  const std::lock_guard lock(oneAtATime_);
  return read().entries;
}

void JSONHistoryStore::append(const CleanupHistoryEntry& entry) {
  const std::lock_guard oneAtATime(oneAtATime_);
  if (!file_) throwIf(std::make_error_code(std::errc::no_such_file_or_directory));
  FileDescriptor folder;
  throwIf(WholeFile::openOrCreateFolder(fileManager_, std::string(paths::enclosingFolder(*file_)),
                                        folder));
  lock(fileManager_, folder.get());
  Contents contents = read();
  contents.entries.insert(contents.entries.begin(), entry);
  replace(folder.get(), HistoryCodec::encode(contents.entries), contents);
}

JSONHistoryStore::Contents JSONHistoryStore::read() const {
  if (!file_) return {};
  std::string text;
  const std::error_code error =
      WholeFile::read(fileManager_, workingDirectory, *file_, LinkPolicy::follow, text);
  FileAttributes link;
  const bool isMissing =
      error == std::errc::no_such_file_or_directory &&
      fileManager_.readAttributes(workingDirectory, file_->c_str(), LinkPolicy::doNotFollow, link);
  if (isMissing) {
    return {.entries = {}, .reason = std::nullopt, .ifExists = IfExists::fail};
  }
  if (error) return {.entries = {}, .reason = "unreadable"};
  HistoryCodec::Decoded decoded = HistoryCodec::decode(text);
  if (decoded.defect) return {.entries = {}, .reason = reasonOf(*decoded.defect)};
  std::ranges::stable_sort(decoded.entries, std::ranges::greater(), &CleanupHistoryEntry::date);
  return {.entries = std::move(decoded.entries), .reason = std::nullopt};
}

// The lock is held, so that a file under the temporary name is one that was left behind.
void JSONHistoryStore::replace(int folder, const std::string& text, const Contents& former) {
  const std::string name(paths::lastComponent(*file_));
  const std::string newName = '.' + name + ".new";
  fileManager_.removeFile(folder, newName.c_str());
  throwIf(WholeFile::create(fileManager_, folder, newName, text, WholeFile::Durability::onDisk));
  std::error_code error =
      former.reason ? setAside(folder, name, *former.reason) : std::error_code();
  if (!error) error = putInPlace(folder, newName, former.ifExists);
  if (error) fileManager_.removeFile(folder, newName.c_str());
  throwIf(error);
  fileManager_.synchronize(folder);  // the entry is there; only a power cut could still lose it
}

std::error_code JSONHistoryStore::putInPlace(int folder, const std::string& newName,
                                             IfExists ifExists) const {
  const std::string name(paths::lastComponent(*file_));
  const std::error_code error =
      fileManager_.rename(folder, newName.c_str(), folder, name.c_str(), ifExists);
  const bool isUnknown = error == std::errc::invalid_argument && ifExists == IfExists::fail;
  if (!isUnknown) return error;
  // A file system that cannot leave a file alone on request, such as a network's.
  return fileManager_.rename(folder, newName.c_str(), folder, name.c_str(), IfExists::replace);
}

std::error_code JSONHistoryStore::setAside(int folder, const std::string& name,
                                           const std::string& reason) const {
  constexpr int maxTries = 1000;
  std::string date =
      iso8601(std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now()));
  std::ranges::replace(date, ':', '-');
  const std::string base = name + '.' + date + '.' + reason;
  std::error_code error;
  for (int number = 1; number <= maxTries; ++number) {
    const std::string asideName = number == 1 ? base : base + '.' + std::to_string(number);
    error = fileManager_.rename(folder, name.c_str(), folder, asideName.c_str(), IfExists::fail);
    if (error != std::errc::file_exists) return error;
  }
  return error;
}

}  // namespace broomtide

#include "soak/CleanupCheck.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <array>
#include <filesystem>
#include <fstream>

#include "soak/Mismatch.h"

namespace broomtide::soak {
namespace {

std::string folderOf(const std::string& path) { return path.substr(0, path.rfind('/')); }

std::string localTime(Date date) {
  const std::time_t moment = std::chrono::system_clock::to_time_t(
      std::chrono::time_point_cast<std::chrono::system_clock::duration>(date));
  std::tm local{};
  ::localtime_r(&moment, &local);
  std::array<char, 32> text{};
  std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%S", &local);
  return text.data();
}

}  // namespace

CleanupCheck::CleanupCheck(const Plan& plan, const Expectation& expected,
                           std::vector<std::string> selected, Refusals refusals, std::string trash,
                           Figures& figures)
    : plan_(plan),
      expected_(expected),
      selected_(std::move(selected)),
      refusals_(std::move(refusals)),
      trash_(std::move(trash)),
      figures_(figures) {
  for (const std::string& item : selected_) {
    if (refusals_.contains(item)) continue;
    struct stat folder {};
    ::lstat(folderOf(plan.path(item)).c_str(), &folder);
    moved_[item] = {.state = stateOf(plan.path(item)), .folderDate = folder.st_mtim};
  }
}

void CleanupCheck::checkResult(const CleanupResult& result) const {
  std::vector<std::string> moved, refused, expectedMoved, expectedRefused;
  for (const ScanCandidate& item : result.moved) moved.push_back(item.relativePath);
  for (const CleanupFailure& item : result.failures) {
    refused.push_back(item.path + ": " + item.message);
  }
  std::int64_t bytes = 0;
  for (const std::string& item : selected_) {
    const auto refusal = refusals_.find(item);
    if (refusal != refusals_.end()) {
      expectedRefused.push_back(item + ": " + std::string(refusal->second));
    } else {
      expectedMoved.push_back(item);
      bytes += expected_.offers.at(item).bytes;
    }
  }
  requireEqual(refused, expectedRefused, "what was left alone");
  requireEqual(moved, expectedMoved, "what was moved");
  requireEqual(result.movedBytes(), bytes, "bytes of what was moved");
  figures_.refused += refused.size();
  figures_.moved += moved.size();
}

void CleanupCheck::checkTrash() const {
  std::map<std::string, std::int64_t> sizes = recordedSizes();
  const bool isMade = std::filesystem::exists(trash_ + "/files");
  const auto items = isMade ? test::trashedItems(trash_) : std::vector<test::TrashedItem>();
  requireEqual(items.size(), moved_.size(), "items in the Trash");
  for (const test::TrashedItem& trashed : items) {
    const std::string item = checkItem(trashed);
    const auto size = sizes.extract(trashed.name);
    const bool isFolder = plan_.artefacts.at(item).kind == CandidateKind::directory;
    requireEqual(!size.empty(), isFolder, "directorysizes has " + item);
    if (isFolder) requireEqual(size.mapped(), expected_.offers.at(item).bytes, "size of " + item);
  }
  require(sizes.empty(), "directorysizes has what is not there");
}

// Returns where the item was, below the scanned folder.
std::string CleanupCheck::checkItem(const test::TrashedItem& trashed) const {
  const auto& [path, date] = trashed.info;
  require(path.starts_with(plan_.root + '/'), "the Trash has " + path);
  const std::string item = path.substr(plan_.root.size() + 1);
  require(moved_.contains(item), "the Trash has " + path);
  const std::string latest = localTime(std::chrono::system_clock::now());
  require(date >= localTime(begin_) && date <= latest, "the Trash has " + path + " since " + date);
  requireSame(stateOf(trash_ + "/files/" + trashed.name), moved_.at(item).state,
              path + " is not in the Trash as it was", figures_);
  return item;
}

void CleanupCheck::restore() const {
  if (moved_.empty()) return;
  for (const test::TrashedItem& item : test::trashedItems(trash_)) {
    test::restore(trash_, item);
    ++figures_.restored;
  }
  std::filesystem::remove(trash_ + "/directorysizes");
  for (const auto& [item, before] : moved_) {
    const std::array<timespec, 2> dates{before.folderDate, before.folderDate};
    ::utimensat(AT_FDCWD, folderOf(plan_.path(item)).c_str(), dates.data(), 0);
  }
}

// By name in the Trash.
std::map<std::string, std::int64_t> CleanupCheck::recordedSizes() const {
  std::map<std::string, std::int64_t> sizes;
  std::ifstream file(trash_ + "/directorysizes");
  std::int64_t size = 0, changedAt = 0;
  std::string name;
  while (file >> size >> changedAt >> name) {
    const std::optional<std::string> decoded = test::percentDecoded(name);
    require(decoded && sizes.emplace(*decoded, size).second, "directorysizes has " + name);
    struct stat info {};
    ::lstat((trash_ + "/info/" + *decoded + ".trashinfo").c_str(), &info);
    requireEqual(changedAt, std::int64_t{info.st_mtim.tv_sec}, "date in directorysizes");
  }
  return sizes;
}

}  // namespace broomtide::soak

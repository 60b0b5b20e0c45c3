#include "scanner/TreeWalk.h"

#include <chrono>
#include <exception>
#include <limits>
#include <optional>
#include <utility>

#include "context/BuildProof.h"
#include "core/Paths.h"
#include "core/ServiceInterfaces.h"
#include "platform/DirectoryEnumerator.h"
#include "platform/PathSafety.h"
#include "rules/InstalledPlaces.h"
#include "rules/ScanRule.h"
#include "rules/ScanRules.h"
#include "rules/VersionControl.h"
#include "scanner/FolderEntrance.h"

namespace broomtide {
namespace {

// Nothing of a project scan is read before everything is there.
constexpr std::size_t maxBatchesOf(ScanMode mode) {
  return mode == ScanMode::project ? std::numeric_limits<std::size_t>::max() : 16;
}

constexpr std::size_t maxRecords = 512;
constexpr std::size_t maxText = 64 * 1024;

using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds maxStay{10};
constexpr std::size_t entriesPerClockReading = 16;

}  // namespace

// What the walk's thread does.
class TreeWalk::Walker {
 public:
  Walker(Setup setup, ProjectDetector& projects, BoundedQueue<WalkBatch>& batches,
         std::stop_token stop)
      : setup_(std::move(setup)),
        projects_(projects),
        batches_(batches),
        stop_(std::move(stop)),
        entries_(
            setup_.fileManager, DirectoryEnumerator::Order::byName,
            [this](std::string_view path, std::error_code error) { addFolderIssue(path, error); },
            stop_) {}

  // Returns what a project scan found.
  ProjectDiscovery run(FileDescriptor top) {
    entries_.begin(std::move(top));
    while (entries_.next()) {
      if (stop_.stop_requested()) throw CancellationError();
      entries_.isFirstInFolder() ? enterFolder() : visit();
      if (isTimeToFlush()) flush();
    }
    setup_.measurements.finish();
    flush();
    return projects_.finish();
  }

 private:
  // Waking another thread up costs as much as many steps, so the reader and the threads that
  // measure get what there is for them in large portions.
  bool isTimeToFlush() {
    const WalkBatch& batch = steps_.batch();
    if (batch.recordCount() >= maxRecords || batch.textSize() >= maxText) return true;
    return ++entriesSeen_ % entriesPerClockReading == 0 && Clock::now() - lastFlush_ > maxStay;
  }

  void flush() {
    setup_.measurements.start();
    lastFlush_ = Clock::now();
    batches_.push(steps_.take(), stop_);
  }

  // What a folder says about itself is known before anything in it is matched.
  void enterFolder() {
    using enum FolderEntrance::Verdict;
    switch (entrance_.enter(entries_)) {
      case enter:
        visit();
        return;
      case offer:
        addProvenFolder(entrance_.takeProof());
        break;
      case passOver:
        break;
    }
    entries_.skipRestOfFolder();
  }

  void addProvenFolder(BuildProof proof) {
    const std::string path(entries_.folderPath());
    WalkMatch match = proven(path, std::move(proof));
    match.around = projects_.around(path);
    steps_.addProven(path, std::move(match));
  }

  WalkMatch proven(const std::string& path, BuildProof proof) {
    WalkMatch match = measured(path, *proof.rule);
    match.proof = std::make_unique<BuildProof>(std::move(proof));
    return match;
  }

  WalkMatch measured(const std::string& path, const ScanRule& rule) {
    WalkMatch match;
    match.rule = &rule;
    match.measurement = setup_.measurements.measure(path, rule.contents);
    return match;
  }

  void visit() {
    switch (entries_.type()) {
      case EntryType::unreadable:
        addEntryIssue(entries_.typeError().message());
        break;
      case EntryType::folder:
        visitFolder();
        break;
      case EntryType::file:
        visitFile();
        break;
      case EntryType::link:
      case EntryType::other:
        steps_.addPassedOver();
        break;
    }
  }

  void visitFolder() {
    if (isClosed(entries_.name()) || isTrash() || isInstalledPlace()) {
      entries_.skipDescendants();
      steps_.addPassedOver();
      return;
    }
    const ScanRule* rule = matchingRule(CandidateKind::directory, std::nullopt);
    if (rule == nullptr) {
      addUnmatched();
      return;
    }
    entries_.skipDescendants();
    if (!isAllowedHere(*rule)) {
      visitRefused();
    } else if (isEnvironmentAlone(*rule)) {
      steps_.addPassedOver();
    } else {
      addMatch(measured(std::string(entries_.relativePath()), *rule));
    }
  }

  // A folder whose name says nothing where it lies may still be a build tree.
  void visitRefused() {
    const std::string path(entries_.relativePath());
    auto proof = buildProofOf(setup_.fileManager, entries_.folder(), std::string(entries_.name()),
                              paths::appending(resolvedRoot_, path));
    if (proof) {
      addMatch(proven(path, *std::move(proof)));
    } else {
      steps_.addPassedOver();
    }
  }

  // A Python environment that no project has made is where a program is installed.
  bool isEnvironmentAlone(const ScanRule& rule) {
    if (!rule.contents.isEnvironment ||
        projects_.around(entries_.folderPath()).project != nullptr) {
      return false;
    }
    const std::string mark = paths::appending(entries_.name(), environmentMark);
    FileAttributes attributes;
    return !setup_.fileManager.readAttributes(entries_.folder(), mark.c_str(),
                                              LinkPolicy::doNotFollow, attributes) &&
           attributes.isRegularFile();
  }

  void visitFile() {
    const std::string_view name = entries_.name();
    if (isProjectScan() && ScanRules::isProtectedFile(name)) {
      steps_.addPassedOver();
      return;
    }
    if (!ScanRules::recognises(name, CandidateKind::file, setup_.mode)) {
      addUnmatched();
      return;
    }
    WalkMatch match;
    match.error = entries_.readAttributes(match.attributes);
    if (!match.error && !match.attributes.isRegularFile()) {
      steps_.addPassedOver();
      return;
    }
    match.rule = matchingRule(CandidateKind::file, match.attributes.modificationDate);
    if (match.rule == nullptr && match.error) {
      addEntryIssue(match.error.message());
    } else if (match.rule == nullptr) {
      addUnmatched();
    } else if (isAllowedHere(*match.rule)) {
      addMatch(std::move(match));
    } else {
      steps_.addPassedOver();
    }
  }

  // Files in a repository's own folder are called as its branches are, also like a download.
  bool isClosed(std::string_view name) const {
    if (isProjectScan() && ScanRules::isSensitiveDirectory(name)) return true;
    const VersionControlSystem* system = versionControlSystem(name);
    return system != nullptr && system->hasFolder;
  }

  bool isInstalledPlace() const {
    return isProjectScan() && broomtide::isInstalledPlace(resolvedRoot_, entries_.folderPath(),
                                                          entries_.name(), setup_.homes);
  }

  bool isTrash() const {
    return setup_.trashes.isTrash(resolvedRoot_, entries_.folderPath(), entries_.name());
  }

  bool isProjectScan() const { return setup_.mode == ScanMode::project; }

  const ScanRule* matchingRule(CandidateKind kind, std::optional<Date> modificationDate) const {
    return ScanRules::match(entries_.name(), kind, setup_.mode, modificationDate, setup_.now);
  }

  // What no answer of Git could make acceptable need not be measured.
  bool isAllowedHere(const ScanRule& rule) {
    return !isProjectScan() || rule.policy.accepts(projects_.around(entries_.folderPath()).project);
  }

  void addUnmatched() { steps_.addUnmatched(entries_.folderPath(), entries_.name()); }

  void addMatch(WalkMatch match) {
    if (isProjectScan()) match.around = projects_.around(entries_.folderPath());
    steps_.addMatch(entries_.folderPath(), entries_.name(), std::move(match));
  }

  void addEntryIssue(std::string issue) {
    steps_.addEntryIssue(entries_.folderPath(), entries_.name(), std::move(issue));
  }

  void addFolderIssue(std::string_view path, std::error_code error) {
    if (isProjectScan()) projects_.addIssue(path, error);
    steps_.addFolderIssue(path, error.message());
  }

  Setup setup_;
  ProjectDetector& projects_;
  BoundedQueue<WalkBatch>& batches_;
  const std::stop_token stop_;
  DirectoryEnumerator entries_;
  WalkWriter steps_;
  std::size_t entriesSeen_ = 0;
  Clock::time_point lastFlush_ = Clock::now();
  const std::string resolvedRoot_ = PathSafety::resolved(setup_.root);
  FolderEntrance entrance_{setup_.fileManager, setup_.mode,    resolvedRoot_,
                           setup_.homes,       setup_.trashes, projects_};
};

TreeWalk::TreeWalk(FileDescriptor top, Setup setup, std::stop_token stop)
    : stopping_(std::move(stop)),
      projects_(setup.root, setup.onRepository),
      batches_(maxBatchesOf(setup.mode)) {
  thread_ = std::jthread([this, folder = std::move(top), what = std::move(setup)]() mutable {
    try {
      discovery_.set_value(
          Walker(std::move(what), projects_, batches_, stopping_.token()).run(std::move(folder)));
      batches_.close();
    } catch (...) {
      discovery_.set_exception(std::current_exception());
      batches_.close(std::current_exception());
    }
  });
}

TreeWalk::~TreeWalk() { stopping_.requestStop(); }

ProjectDiscovery TreeWalk::awaitDiscovery() { return discovery_.get_future().get(); }

const WalkStep* TreeWalk::next() {
  for (;;) {
    if (const WalkStep* step = reader_.next()) return step;
    std::optional<WalkBatch> batch = batches_.pop(stopping_.token());
    if (!batch) return nullptr;
    reader_.begin(*std::move(batch));
  }
}

}  // namespace broomtide

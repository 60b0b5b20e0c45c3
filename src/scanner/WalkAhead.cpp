#include "scanner/WalkAhead.h"

#include <chrono>
#include <exception>
#include <utility>

#include "core/Paths.h"
#include "platform/DirectoryEnumerator.h"
#include "platform/PathSafety.h"
#include "rules/ContextPolicy.h"
#include "rules/ScanRules.h"

namespace broomtide {
namespace {

constexpr std::size_t mostBatches = 16;
constexpr std::size_t mostSteps = 512;
constexpr std::size_t mostText = 64 * 1024;
constexpr std::size_t mostFolders = 8;

using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds longestDelay{10};
constexpr std::size_t stepsPerClockReading = 16;

}  // namespace

// What the walk's thread does.
class WalkAhead::Walker {
 public:
  Walker(Setup setup, BoundedQueue<WalkBatch>& batches, std::stop_token stop)
      : setup_(std::move(setup)),
        batches_(batches),
        stop_(std::move(stop)),
        entries_(
            setup_.fileManager, DirectoryEnumerator::Order::byName,
            [this](std::string_view relativePath, std::error_code error) {
              batch_.addIssue(WalkBatch::Kind::folderIssue, relativePath, {}, error.message());
            },
            stop_) {}

  void run(FileDescriptor top) {
    entries_.begin(std::move(top));
    while (entries_.next()) {
      if (stop_.stop_requested()) return;
      visit();
      if (isTimeToFlush() && !flush()) return;
    }
    flush();
  }

 private:
  // Waking the reader up costs as much as many steps, so it gets them in large portions.
  bool isTimeToFlush() {
    const std::size_t steps = batch_.steps().size();
    if (steps >= mostSteps || batch_.textSize() >= mostText || folders_ >= mostFolders) return true;
    return steps % stepsPerClockReading == 0 && Clock::now() - lastFlush_ > longestDelay;
  }

  // While this waits for the measuring threads, the reader has all folders that came before.
  bool flush() {
    setup_.measurements.start(stop_);
    folders_ = 0;
    lastFlush_ = Clock::now();
    return batches_.push(std::exchange(batch_, {}), stop_);
  }

  void visit() {
    switch (entries_.type()) {
      case EntryType::unreadable:
        addEntryIssue(entries_.typeError().message());
        return;
      case EntryType::link:
        batch_.addPassedOver();
        return;
      case EntryType::folder:
      case EntryType::file:
      case EntryType::other:
        break;
    }
    // Without following links an entry can only be outside when nothing counts as inside.
    if (nothingIsInside_) {
      entries_.skipDescendants();
      addEntryIssue("Skipped an item outside the selected folder.");
    } else if (entries_.type() == EntryType::folder) {
      visitFolder();
    } else if (entries_.type() == EntryType::file) {
      visitFile();
    } else {
      batch_.addPassedOver();
    }
  }

  void visitFolder() {
    if (isProjectScan() && ScanRules::isSensitiveDirectory(entries_.name())) {
      entries_.skipDescendants();
      batch_.addPassedOver();
      return;
    }
    const ScanRule* rule = matchingRule(CandidateKind::directory, std::nullopt);
    if (rule == nullptr) {
      addUnmatched();
      return;
    }
    entries_.skipDescendants();
    WalkMatch match;
    match.rule = rule;
    match.project = nearestProject();
    if (isAllowedHere(match) && examineFolder(match)) {
      addMatch(std::move(match));
    } else {
      batch_.addPassedOver();
    }
  }

  void visitFile() {
    const std::string_view name = entries_.name();
    if (isProjectScan() && ScanRules::isProtectedFile(name)) {
      batch_.addPassedOver();
      return;
    }
    if (!ScanRules::recognises(name, CandidateKind::file, setup_.mode)) {
      addUnmatched();
      return;
    }
    WalkMatch match;
    match.project = nearestProject();
    match.error = entries_.readAttributes(match.attributes);
    if (!match.error && !match.attributes.isRegularFile()) {
      batch_.addPassedOver();
      return;
    }
    match.rule = matchingRule(CandidateKind::file, match.attributes.modificationDate);
    if (match.rule == nullptr && match.error) {
      addEntryIssue(match.error.message());
    } else if (match.rule == nullptr) {
      addUnmatched();
    } else if (isAllowedHere(match)) {
      addMatch(std::move(match));
    } else {
      batch_.addPassedOver();
    }
  }

  bool isProjectScan() const { return setup_.mode == ScanMode::project; }

  const ScanRule* matchingRule(CandidateKind kind, std::optional<Date> modificationDate) const {
    return ScanRules::match(entries_.name(), kind, setup_.mode, modificationDate, setup_.now);
  }

  const ProjectContext* nearestProject() {
    if (!isProjectScan()) return nullptr;
    return setup_.projects.nearestProject(paths::appending(setup_.root, entries_.relativePath()));
  }

  // What no answer of Git could make acceptable need not be measured.
  bool isAllowedHere(const WalkMatch& match) const {
    return !isProjectScan() || contextPolicy(match.rule->id).accepts(match.project);
  }

  // Opens the current folder and has what was opened identified and measured, so that both concern
  // the same folder. False when it has turned into something else.
  bool examineFolder(WalkMatch& match) {
    FileDescriptor folder;
    const std::error_code error = entries_.open(folder);
    if (isNoFolderAnyMore(error)) return false;
    if (error) {
      match.error = entries_.readAttributes(match.attributes);
      return match.error || match.attributes.isFolder();
    }
    match.error = setup_.fileManager.readAttributes(folder.get(), "", LinkPolicy::doNotFollow,
                                                    match.attributes);
    if (match.error) return true;
    const std::string location = paths::appending(setup_.root, entries_.relativePath());
    match.measurement = setup_.measurements.measure(std::move(folder), location);
    ++folders_;
    return true;
  }

  void addUnmatched() { batch_.addUnmatched(entries_.folderPath(), entries_.name()); }

  void addMatch(WalkMatch match) {
    batch_.addMatch(entries_.folderPath(), entries_.name(), std::move(match));
  }

  void addEntryIssue(std::string message) {
    batch_.addIssue(WalkBatch::Kind::entryIssue, entries_.folderPath(), entries_.name(),
                    std::move(message));
  }

  Setup setup_;
  BoundedQueue<WalkBatch>& batches_;
  const std::stop_token stop_;
  DirectoryEnumerator entries_;
  WalkBatch batch_;
  std::size_t folders_ = 0;  // in the batch that are to be measured
  Clock::time_point lastFlush_ = Clock::now();
  const bool nothingIsInside_ = PathSafety::resolved(setup_.root) == "/";
};

WalkAhead::WalkAhead(FileDescriptor top, Setup setup, std::stop_token stop)
    : stopping_(std::move(stop)), batches_(mostBatches) {
  thread_ = std::jthread([this, folder = std::move(top), what = std::move(setup)]() mutable {
    try {
      Walker(std::move(what), batches_, stopping_.token()).run(std::move(folder));
      batches_.close();
    } catch (...) {
      batches_.close(std::current_exception());
    }
  });
}

WalkAhead::~WalkAhead() { stopping_.requestStop(); }

}  // namespace broomtide

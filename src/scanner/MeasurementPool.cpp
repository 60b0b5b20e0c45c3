#include "scanner/MeasurementPool.h"

#include <algorithm>
#include <exception>
#include <iterator>
#include <utility>

#include "context/ContentsReader.h"
#include "core/Paths.h"
#include "platform/DirectoryEnumerator.h"

// How work is shared. Whole folders wait in a queue, first come, first served. A thread takes one,
// opens and identifies it, and adds up what is in it. Whenever some thread is idle and nothing
// waits
// (`hasIdleThread`, one relaxed read for each entry), a thread that measures detaches a subfolder
// that it has not entered yet and puts it on the stack of subtrees, from which idle threads take
// before they take the next whole folder: so one large folder is shared by all, and small ones cost
// no hand-over. A measurement counts its parts, one for the whole folder and one for each detached
// subtree, and is over when the last part is.
//
// Entries are added to a measurement in portions of at most `progressInterval`, so that its lock is
// taken once for many entries, and progress can be told exactly at every interval. While the walk
// still hands in folders, one processor is left to it. A thread that is asked to stop leaves its
// measurement unfinished; whoever waits for that one is asked to stop as well.

namespace broomtide {
namespace {

// How many threads leave a processor to the one that hands in the folders.
std::size_t threadsBesideAnother(std::size_t threads) {
  const std::size_t processors = std::max(std::thread::hardware_concurrency(), 1U);
  return std::max<std::size_t>(std::min(threads, processors) - 1, 1);
}

}  // namespace

// What one thread does.
class MeasurementPool::Worker {
 public:
  Worker(MeasurementPool& pool, std::stop_token stop)
      : pool_(pool),
        stop_(std::move(stop)),
        entries_(pool.fileManager_, DirectoryEnumerator::Order::foldersAfter,
                 [this](std::string_view relativePath, std::error_code error) {
                   part_.measurement->addIssue(pathInMeasurement(relativePath), error);
                 }) {}

  void run() {
    while (std::optional<Part> part = pool_.take(stop_)) {
      part_ = std::move(*part);
      try {
        if (!measure()) return;
      } catch (...) {
        part_.measurement->fail(std::current_exception());
      }
    }
  }

 private:
  // False when it was interrupted; the measurement then never ends.
  bool measure() {
    if (!part_.pathFromTop.empty()) openWhole();
    if (part_.folder.isOpen() && !addEntries()) return false;
    part_.measurement->endPart();
    part_.measurement.reset();
    return true;
  }

  // Identifies what is opened, so that what is measured is what was identified.
  void openWhole() {
    const std::string path = std::exchange(part_.pathFromTop, {});
    if (part_.measurement->isAbandoned()) return;
    Measurement::Folder folder;
    folder.error = openFolderBelow(pool_.fileManager_, pool_.top_.get(), path, part_.folder);
    if (!folder.error) {
      folder.error = pool_.fileManager_.readAttributes(part_.folder.get(), "",
                                                       LinkPolicy::doNotFollow, folder.attributes);
      if (folder.error) part_.folder.reset();
    } else if (isNoFolderAnyMore(folder.error)) {
      folder.error.clear();
    } else {
      folder.error =
          readAttributesBelow(pool_.fileManager_, pool_.top_.get(), path, folder.attributes);
    }
    folder.isOpen = part_.folder.isOpen();
    part_.measurement->setFolder(folder);
  }

  // False when it was interrupted.
  bool addEntries() {
    bytesToAdd_ = entriesToAdd_ = 0;
    stores_ = {};
    entries_.begin(std::move(part_.folder));
    while (entries_.next()) {
      if (stop_.stop_requested()) return false;
      if (part_.measurement->isAbandoned()) break;
      ++entriesToAdd_;
      addSigns();
      if (entries_.type() == EntryType::file) {
        addFile();
      } else if (entries_.type() == EntryType::unreadable) {
        addIssue(entries_.typeError());
      }
      if (entriesToAdd_ == Measurement::progressInterval) addToMeasurement(endOfInterval());
      if (pool_.hasIdleThread()) giveSubtree();
    }
    addToMeasurement(Measurement::IntervalEnd::told);
    return true;
  }

  void addFile() {
    FileAttributes attributes;
    if (const std::error_code error = entries_.readAttributes(attributes)) {
      addIssue(error);
    } else if (attributes.isRegularFile()) {
      bytesToAdd_ += attributes.allocatedBytes;
    }
  }

  void addSigns() {
    findSigns(part_.measurement->policy(), entries_, stores_, part_.path.empty(),
              [this](Sign sign, std::string_view path) {
                part_.measurement->addSign(sign, pathInMeasurement(path));
              });
  }

  void addIssue(std::error_code error) {
    part_.measurement->addIssue(pathInMeasurement(entries_.relativePath()), error);
  }

  Measurement::IntervalEnd endOfInterval() const {
    const EntryType type = entries_.type();
    const bool isSilent = type == EntryType::link || type == EntryType::unreadable;
    return isSilent ? Measurement::IntervalEnd::silent : Measurement::IntervalEnd::told;
  }

  void addToMeasurement(Measurement::IntervalEnd end) {
    part_.measurement->add(std::exchange(bytesToAdd_, 0), std::exchange(entriesToAdd_, 0), end);
  }

  void giveSubtree() {
    std::optional<DirectoryEnumerator::Subtree> subtree = entries_.detachSubtree();
    if (!subtree) return;
    part_.measurement->beginPart();
    pool_.give({.measurement = part_.measurement,
                .pathFromTop = {},
                .folder = std::move(subtree->folder),
                .path = pathInMeasurement(subtree->relativePath)});
  }

  std::string pathInMeasurement(std::string_view path) const {
    if (part_.path.empty()) return std::string(path);
    if (path.empty()) return part_.path;
    return paths::appending(part_.path, path);
  }

  MeasurementPool& pool_;
  const std::stop_token stop_;
  DirectoryEnumerator entries_;
  StoreFinder stores_;
  Part part_;
  std::int64_t bytesToAdd_ = 0;
  std::int64_t entriesToAdd_ = 0;
};

MeasurementPool::MeasurementPool(FileManager& fileManager, FileDescriptor top, std::size_t threads,
                                 std::stop_token stop)
    : fileManager_(fileManager),
      top_(std::move(top)),
      threadCount_(threads),
      threadsBeside_(threadsBesideAnother(threads)),
      stopping_(std::move(stop)) {}

MeasurementPool::~MeasurementPool() { stopping_.requestStop(); }

std::shared_ptr<Measurement> MeasurementPool::measure(std::string path,
                                                      const ContentsPolicy& policy) {
  auto measurement = std::make_shared<Measurement>(policy);
  collected_.push_back(
      {.measurement = measurement, .pathFromTop = std::move(path), .folder = {}, .path = {}});
  return measurement;
}

void MeasurementPool::start() {
  if (collected_.empty()) return;
  startThreads(threadsBeside_);
  {
    const std::scoped_lock lock(mutex_);
    std::ranges::move(collected_, std::back_inserter(folders_));
    updateIdle();
  }
  collected_.size() == 1 ? added_.notify_one() : added_.notify_all();
  collected_.clear();
}

void MeasurementPool::finish() {
  start();
  if (!threads_.empty()) startThreads(threadCount_);
}

void MeasurementPool::startThreads(std::size_t count) {
  threads_.reserve(threadCount_);
  while (threads_.size() < count) {
    threads_.emplace_back([this] { Worker(*this, stopping_.token()).run(); });
  }
}

std::optional<MeasurementPool::Part> MeasurementPool::take(const std::stop_token& stop) {
  std::unique_lock lock(mutex_);
  ++idleThreads_;
  updateIdle();
  added_.wait(lock, stop, [this] { return !folders_.empty() || !subtrees_.empty(); });
  --idleThreads_;
  if (stop.stop_requested()) return std::nullopt;

  Part part;
  if (!subtrees_.empty()) {
    part = std::move(subtrees_.back());
    subtrees_.pop_back();
  } else {
    part = std::move(folders_.front());
    folders_.pop_front();
  }
  updateIdle();
  return part;
}

void MeasurementPool::give(Part part) {
  {
    const std::scoped_lock lock(mutex_);
    subtrees_.push_back(std::move(part));
    updateIdle();
  }
  added_.notify_one();
}

void MeasurementPool::updateIdle() {
  const bool hasIdleThread = idleThreads_ > folders_.size() + subtrees_.size();
  hasIdleThread_.store(hasIdleThread, std::memory_order_relaxed);
}

}  // namespace broomtide

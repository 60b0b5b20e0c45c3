#pragma once

#include <mutex>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "cleanup/HistoryCodec.h"
#include "core/ServiceInterfaces.h"
#include "platform/FileManager.h"

namespace broomtide {

/// Keeps the history in one JSON file. Any number of processes may append at the same time; readers
/// see the file before or after an append, whole.
class JSONHistoryStore final : public HistoryStoring {
 public:
  /// `fileURL` is the file, an absolute path; without one it is `Broomtide/history.json` below the
  /// user's application data. Nothing is read or created yet. The file manager must outlive the
  /// store.
  JSONHistoryStore(std::optional<std::string> fileURL, FileManager& fileManager);

  std::vector<CleanupHistoryEntry> load() noexcept override;

  /// A file that cannot be read as a history is kept under another name that tells when and why.
  /// Throws std::system_error when the entry cannot be made persistent or another process keeps the
  /// history locked; the file is then as it was.
  void append(const CleanupHistoryEntry& entry) override;

 private:
  // What is in the file, or why it counts as empty.
  struct Contents {
    std::vector<CleanupHistoryEntry> entries;
    std::optional<std::string> reason;      // absent also when there is no file
    IfExists ifExists = IfExists::replace;  // what it means when there is a file after all
  };

  Contents read() const;
  void replace(int folder, const std::string& text, const Contents& former);
  std::error_code putInPlace(int folder, const std::string& newName, IfExists ifExists) const;
  std::error_code setAside(int folder, const std::string& name, const std::string& reason) const;

  const std::optional<std::string> file_;  // nothing when no place for it is known
  FileManager& fileManager_;
  std::mutex oneAtATime_;
};

}  // namespace broomtide

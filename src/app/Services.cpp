#include "app/Services.h"

#include <optional>
#include <string>

#include "cleanup/DefaultTrashManager.h"
#include "cleanup/JSONHistoryStore.h"
#include "context/GitInspector.h"
#include "core/Paths.h"
#include "platform/UserFolders.h"
#include "scanner/DefaultFileScanner.h"

namespace broomtide::services {
namespace {

std::optional<std::string> homeTrash() {
  const std::optional<std::string> data = UserFolders::applicationData();
  if (!data) return std::nullopt;
  return paths::appending(*data, "Trash");
}

}  // namespace

std::unique_ptr<FileScanning> makeScanner() {
  return std::make_unique<DefaultFileScanner>(systemFileManager());
}

std::unique_ptr<TrashManaging> makeTrashManager() {
  return std::make_unique<DefaultTrashManager>(
      systemFileManager(),
      [](const std::vector<std::string>& roots, const std::stop_token& stop) {
        return GitInspector::inspect(roots, stop);
      },
      homeTrash());
}

std::unique_ptr<HistoryStoring> makeHistoryStore() {
  return std::make_unique<JSONHistoryStore>(std::nullopt, systemFileManager());
}

}  // namespace broomtide::services

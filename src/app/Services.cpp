#include "app/Services.h"

#include <optional>
#include <string>
#include <utility>

#include "cleanup/DefaultTrashManager.h"
#include "cleanup/JSONHistoryStore.h"
#include "context/GitInspector.h"
#include "platform/FileManager.h"
#include "platform/UserFolders.h"
#include "scanner/DefaultFileScanner.h"

namespace broomtide::services {
namespace {

std::unique_ptr<TrashManaging> makeTrashManager() {
  return std::make_unique<DefaultTrashManager>(
      systemFileManager(),
      [](const std::vector<std::string>& roots, const std::stop_token& stop) {
        return GitInspector::inspect(roots, stop);
      },
      UserFolders::homeTrash());
}

}  // namespace

std::unique_ptr<AppModel> makeModel(MainThread& mainThread, FolderPicking& folderPicker,
                                    AccessGranting& access) {
  ignoreFileSizeSignal();
  AppModel::Services services;
  services.scanner = std::make_unique<DefaultFileScanner>(systemFileManager());
  services.trashManager = makeTrashManager();
  services.historyStore = std::make_unique<JSONHistoryStore>(std::nullopt, systemFileManager());
  return std::make_unique<AppModel>(std::move(services),
                                    AppModel::Surroundings{.mainThread = mainThread,
                                                           .folderPicker = folderPicker,
                                                           .access = access,
                                                           .homeFolder = UserFolders::realHome()});
}

std::optional<std::string_view> refusal() {
  if (UserFolders::isHomeOfAnother()) return messages::homeOfAnother;
  return std::nullopt;
}

}  // namespace broomtide::services

#pragma once

#include <memory>
#include <optional>
#include <string_view>

#include "app/AppModel.h"

/// The one place that puts the real services together.
namespace broomtide::services {

/// An app model that works on this machine's file system, with the Trash of its desktop and the
/// user's own history. What it is given must outlive it. A limit on the size of files, which would
/// end the process, is an error like others from then on.
std::unique_ptr<AppModel> makeModel(MainThread& mainThread, FolderPicking& folderPicker,
                                    AccessGranting& access);

/// Why Broomtide must not run as whom it was started, a sentence for people; nothing when it may.
/// To be asked before anything is created.
std::optional<std::string_view> refusal();

}  // namespace broomtide::services

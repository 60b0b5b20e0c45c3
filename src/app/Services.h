#pragma once

#include <memory>

#include "app/AppModel.h"

/// The one place that puts the real services together.
namespace broomtide::services {

/// An app model that works on this machine's file system, with the Trash of its desktop and the
/// user's own history. What it is given must outlive it. A limit on the size of files, which would
/// end the process, is an error like others from then on.
std::unique_ptr<AppModel> makeModel(MainThread& mainThread, FolderPicking& folderPicker,
                                    AccessGranting& access);

}  // namespace broomtide::services

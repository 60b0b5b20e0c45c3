#pragma once

#include <memory>

#include "core/FileScanning.h"
#include "core/HistoryStoring.h"
#include "core/TrashManaging.h"

/// The one place that puts the real services together.
namespace broomtide::services {

/// A scanner of this machine's file system.
std::unique_ptr<FileScanning> makeScanner();

/// What moves items to the Trash of this machine's desktop.
std::unique_ptr<TrashManaging> makeTrashManager();

/// The history of the user.
std::unique_ptr<HistoryStoring> makeHistoryStore();

}  // namespace broomtide::services

#pragma once

#include <stop_token>
#include <string>

#include "platform/FileManager.h"
#include "scanner/ScanReports.h"
#include "scanner/ScannerSettings.h"

namespace broomtide {

/// Measures the well-known developer cache locations below `root`, a standardised absolute path;
/// nothing else is read. Throws as FileScanning::scan does.
ScanOutcome scanKnownCaches(const std::string& root, FileManager& fileManager,
                            const ScannerSettings& settings, ScanReports& reports,
                            const std::stop_token& stop);

}  // namespace broomtide

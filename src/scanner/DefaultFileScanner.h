#pragma once

#include <stop_token>
#include <string>

#include "core/ServiceInterfaces.h"
#include "platform/FileManager.h"
#include "scanner/ScannerSettings.h"

namespace broomtide {

/// The scanner of real folders. It keeps nothing between scans; several may run at once.
class DefaultFileScanner final : public FileScanning {
 public:
  /// The file manager must outlive the scanner.
  explicit DefaultFileScanner(FileManager& fileManager,
                              ScannerSettings settings = ScannerSettings::forThisMachine());

  ScanResult scan(const std::string& root, ScanMode mode, Date now, const UpdateFunction& onUpdate,
                  std::stop_token stop) override;

 private:
  void validate(const std::string& root) const;

  FileManager& fileManager_;
  const ScannerSettings settings_;
};

}  // namespace broomtide

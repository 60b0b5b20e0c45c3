#include "app/Services.h"

#include "scanner/DefaultFileScanner.h"

namespace broomtide::services {

std::unique_ptr<FileScanning> makeScanner() {
  return std::make_unique<DefaultFileScanner>(systemFileManager());
}

}  // namespace broomtide::services

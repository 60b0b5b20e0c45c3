#include "ui/shell/DesktopFolders.h"

#include <QFile>
#include <QStandardPaths>

#include "core/Paths.h"

namespace broomtide::ui {

std::optional<std::string> desktopDownloads() {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
  if (!folder.startsWith('/')) return std::nullopt;
  return paths::standardized(QFile::encodeName(folder).toStdString());
}

}  // namespace broomtide::ui

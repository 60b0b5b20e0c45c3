#pragma once

#include <QPointer>
#include <QWidget>

#include "app/Surroundings.h"

namespace broomtide::ui {

/// Lets people choose a folder in a dialog.
class FolderDialog final : public FolderPicking {
 public:
  /// The window that the dialog belongs to from now on.
  void setWindow(QWidget* window) { window_ = window; }

  std::optional<std::string> pickFolder(const FolderRequest& request) override;
  std::optional<std::string> desktopDownloads() const override;

 private:
  QPointer<QWidget> window_;
};

}  // namespace broomtide::ui

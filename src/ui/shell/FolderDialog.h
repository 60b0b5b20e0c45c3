#pragma once

#include <QPointer>
#include <QWidget>

#include "app/Surroundings.h"

namespace broomtide::ui {

/// Picks a folder in a modal dialog, with an event loop of its own.
class FolderDialog final : public FolderPicking {
 public:
  /// Sets the parent of the dialogs to come; it may be deleted before this object.
  void setWindow(QWidget* window) { window_ = window; }

  std::optional<std::string> pickFolder(const FolderRequest& request) override;
  std::optional<std::string> desktopDownloads() const override;

 private:
  QPointer<QWidget> window_;
};

}  // namespace broomtide::ui

#pragma once

#include <QDialog>

namespace broomtide::ui {

/// Says which version this is and that nothing leaves the machine. There is nothing to set.
class SettingsPanel final : public QDialog {
  Q_OBJECT
 public:
  explicit SettingsPanel(QWidget* parent);
};

}  // namespace broomtide::ui

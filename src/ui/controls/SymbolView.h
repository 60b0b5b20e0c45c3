#pragma once

#include <QWidget>

#include "ui/look/Theme.h"

namespace broomtide::ui {

/// A named icon of a fixed size. It says nothing that the text beside it does not say.
class SymbolView final : public QWidget {
 public:
  /// `side` is the length of its sides.
  SymbolView(QString name, int side, Tone tone, QWidget* parent = nullptr);

  const QString& name() const { return name_; }
  Tone tone() const { return tone_; }
  QSize sizeHint() const override { return {side_, side_}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString name_;
  int side_;
  Tone tone_;
};

}  // namespace broomtide::ui

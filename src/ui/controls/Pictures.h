#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

#include "ui/look/Theme.h"

namespace broomtide::ui {

/// The mark of the application, for the eye alone.
class BrandMark final : public QWidget {
 public:
  /// `side` is the length of its sides.
  explicit BrandMark(int side, QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

/// A named icon of a fixed size. It says nothing that the text beside it does not say.
class SymbolView final : public QWidget {
 public:
  /// `side` is the length of its sides.
  SymbolView(QString name, int side, Tone tone, QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString name_;
  Tone tone_;
};

/// A line across, between parts of a screen.
class Divider final : public QWidget {
 public:
  explicit Divider(QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

/// A turning wheel: something is going on, and nobody knows for how long.
class BusyIndicator final : public QWidget {
  Q_OBJECT
 public:
  explicit BusyIndicator(QWidget* parent = nullptr);

 protected:
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QTimer frames_;
  QElapsedTimer time_;
};

}  // namespace broomtide::ui

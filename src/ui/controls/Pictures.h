#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

#include "ui/look/Theme.h"

namespace broomtide::ui {

/// The logo of the application: decoration without an accessible name.
class BrandMark final : public QWidget {
 public:
  /// `side` is its fixed width and height in pixels.
  explicit BrandMark(int side, QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

/// A named icon (`symbols::paint`): decoration beside a text that says the same.
class SymbolView final : public QWidget {
 public:
  /// `side` is its fixed width and height in pixels.
  SymbolView(QString name, int side, Tone tone, QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString name_;
  Tone tone_;
};

/// A horizontal separator.
class Divider final : public QWidget {
 public:
  explicit Divider(QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

/// A spinner for progress of unknown length, animated while it is visible.
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

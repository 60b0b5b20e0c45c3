#pragma once

#include <QAbstractButton>
#include <QVariantAnimation>

namespace broomtide::ui {

/// A large button in the shape of a card that starts a scan, highlighted while it is hovered.
class ScanModeCard final : public QAbstractButton {
  Q_OBJECT
 public:
  ScanModeCard(QString icon, const QString& title, QString detail, QWidget* parent = nullptr);

  QSize sizeHint() const override;
  int heightForWidth(int width) const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void setHovered(bool isHovered);

  const QString icon_;
  const QString detail_;
  QVariantAnimation highlight_;  // from 0, at rest, to 1, hovered
};

}  // namespace broomtide::ui

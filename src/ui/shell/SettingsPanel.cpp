#include "ui/shell/SettingsPanel.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "ui/controls/BrandMark.h"
#include "ui/controls/Label.h"

namespace broomtide::ui {
namespace {

constexpr int panelWidth = 420;
constexpr int padding = 24;
constexpr int markSide = 58;

QString version() {
  const QString version = QCoreApplication::applicationVersion();
  return version.isEmpty() ? QStringLiteral("—") : version;
}

}  // namespace

SettingsPanel::SettingsPanel(QWidget* parent) : QDialog(parent) {
  setObjectName("settings");
  setWindowTitle(tr("Settings"));
  setAttribute(Qt::WA_DeleteOnClose);
  auto* name = new Label(tr("Broomtide"), TextStyle::secondTitle);
  auto* promise = new Label(
      tr("Scans stay on this Mac. Broomtide never uploads file names, paths, or scan results."),
      TextStyle::body, Tone::secondary);
  promise->setObjectName("promise");
  promise->setWordWrap(true);
  auto* number = new Label(tr("Version %1").arg(version()), TextStyle::smallest, Tone::tertiary);
  number->setObjectName("version");
  number->makeSelectable();

  auto* column = new QVBoxLayout;
  column->setSpacing(8);
  for (Label* label : {name, promise, number}) column->addWidget(label);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(padding, padding, padding, padding);
  row->setSpacing(16);
  row->addWidget(new BrandMark(markSide), 0, Qt::AlignTop);
  row->addLayout(column, 1);
  setFixedWidth(panelWidth);
  setFixedHeight(row->heightForWidth(panelWidth));
}

}  // namespace broomtide::ui

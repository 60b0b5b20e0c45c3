#include "ui/screens/WelcomeView.h"

#include <QDragEnterEvent>
#include <QHBoxLayout>
#include <QMimeData>
#include <QPainter>
#include <QSysInfo>
#include <QUrl>
#include <filesystem>
#include <optional>
#include <string>

#include "ui/controls/Button.h"
#include "ui/controls/Column.h"
#include "ui/controls/Label.h"
#include "ui/controls/Pictures.h"
#include "ui/look/Drawing.h"
#include "ui/screens/ScanModeCard.h"

namespace broomtide::ui {
namespace {

constexpr int maxWelcomeWidth = 960;

QWidget* trustNote(const QString& icon, const QString& text) {
  auto* note = new QWidget;
  auto* row = new QHBoxLayout(note);
  row->setContentsMargins({});
  row->setSpacing(6);
  constexpr int side = 16;
  row->addWidget(new SymbolView(icon, side, Tone::secondary));
  row->addWidget(new Label(text, TextStyle::small, Tone::secondary));
  return note;
}

// The URL of a file may name its host.
bool isOnThisMachine(const QUrl& url) {
  const QString host = url.host();
  return url.isLocalFile() &&
         (host.isEmpty() || host == "localhost" || host == QSysInfo::machineHostName().toLower());
}

// The path of the one folder that is being dragged, in bytes.
std::optional<std::string> folderOf(const QMimeData& data) {
  const QList<QUrl> urls = data.urls();
  if (urls.size() != 1 || !isOnThisMachine(urls.front())) return std::nullopt;
  const QByteArray path =
      QByteArray::fromPercentEncoding(urls.front().path(QUrl::FullyEncoded).toLatin1());
  // A NUL would end the path; a query or a fragment is part of a name that was not percent-encoded.
  if (!path.startsWith('/') || path.contains('\0')) return std::nullopt;
  if (urls.front().hasQuery() || urls.front().hasFragment()) return std::nullopt;
  std::error_code error;
  if (!std::filesystem::is_directory(path.toStdString(), error)) return std::nullopt;
  return path.toStdString();
}

}  // namespace

WelcomeView::WelcomeView(AppModel& model, QWidget* parent) : QWidget(parent), model_(model) {
  setObjectName("welcome");
  setAcceptDrops(true);
  auto* history = new Button(tr("View Cleanup History"), Button::Look::plain);
  history->setObjectName("viewHistory");
  connect(history, &Button::clicked, this, [&model] { model.showHistory(); });

  QVBoxLayout& lines = (new Column(*this, maxWelcomeWidth))->lines();
  lines.addStretch(2);
  constexpr int markSide = 92;
  lines.addWidget(new BrandMark(markSide), 0, Qt::AlignHCenter);
  lines.addSpacing(8);
  auto* title = new Label(tr("Broomtide"), TextStyle::display);
  title->setObjectName("title");
  lines.addWidget(title, 0, Qt::AlignHCenter);
  lines.addWidget(new Label(tr("Free up space without breaking your projects."),
                            TextStyle::headline, Tone::secondary),
                  0, Qt::AlignHCenter);
  lines.addSpacing(28);
  lines.addLayout(cards());
  lines.addSpacing(12);
  lines.addWidget(history, 0, Qt::AlignHCenter);
  lines.addStretch(3);
  lines.addLayout(trustNotes());
  lines.addSpacing(20);
}

QLayout* WelcomeView::cards() {
  auto* row = new QHBoxLayout;
  row->setSpacing(16);
  const auto add = [&](const char* name, const char* icon, const QString& title,
                       const QString& detail, auto action) {
    auto* card = new ScanModeCard(QString::fromLatin1(icon), title, detail);
    card->setObjectName(name);
    connect(card, &ScanModeCard::clicked, this, action);
    row->addWidget(card);
    if (focusProxy() == nullptr) setFocusProxy(card);
  };
  AppModel& model = model_;
  add("projectCard", "shippingbox.fill", tr("Project Folder"),
      tr("Find build outputs, caches, and dependencies inside your repositories."),
      [&model] { model.presentFolderPicker(std::nullopt, ScanMode::project); });
  add("cachesCard", "internaldrive.fill", tr("Developer Caches"),
      tr("Check Xcode DerivedData plus global npm, pip, Homebrew, Gradle, and Cargo caches."),
      [&model] { model.presentFolderPicker(model.homeFolder(), ScanMode::caches); });
  add("downloadsCard", "arrow.down.circle.fill", tr("Downloads"),
      tr("Surface old installers, archives, and screenshots that piled up."),
      [&model] { model.chooseDownloadsFolder(); });
  return row;
}

QLayout* WelcomeView::trustNotes() {
  auto* row = new QHBoxLayout;
  row->setSpacing(32);
  row->addStretch();
  row->addWidget(trustNote("laptopcomputer", tr("Local only")));
  row->addWidget(trustNote("icloud.slash", tr("No cloud upload")));
  row->addWidget(trustNote("trash", tr("Trash only")));
  row->addWidget(trustNote("checklist", tr("You review first")));
  row->addStretch();
  return row;
}

void WelcomeView::dragEnterEvent(QDragEnterEvent* event) {
  if (!folderOf(*event->mimeData())) return;
  event->setDropAction(Qt::CopyAction);
  event->accept();
  setDropTarget(true);
}

void WelcomeView::dragLeaveEvent(QDragLeaveEvent*) { setDropTarget(false); }

void WelcomeView::dropEvent(QDropEvent* event) {
  setDropTarget(false);
  const std::optional<std::string> folder = folderOf(*event->mimeData());
  if (!folder) return;
  event->setDropAction(Qt::CopyAction);
  event->accept();
  model_.beginScan(*folder, ScanMode::project, true);
}

void WelcomeView::setDropTarget(bool isDropTarget) {
  isDropTarget_ = isDropTarget;
  update();
}

void WelcomeView::paintEvent(QPaintEvent*) {
  if (!isDropTarget_) return;
  constexpr int edge = 8;
  const Theme& theme = Theme::of(palette());
  QPainter painter(this);
  const QRect area = rect().adjusted(edge, edge, -edge, -edge);
  drawing::surface(painter, area, Theme::faint(theme.accent), {}, drawing::cardRadius);
  drawing::focusRing(painter, area, theme.accent, drawing::cardRadius);
}

}  // namespace broomtide::ui

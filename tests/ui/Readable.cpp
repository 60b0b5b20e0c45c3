#include "ui/Readable.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QRegularExpression>
#include <algorithm>

#include "ui/DrawnText.h"
#include "ui/controls/Label.h"

namespace broomtide::test {
namespace {

constexpr const char* reachesBeyond = "reaches beyond its part";

bool isTranslated(QString text) {
  static const QRegularExpression escape(QStringLiteral(R"(\\(x|u)[0-9a-f]+)"));
  text.remove(escape);  // what a name shows of a character that deceives
  return std::ranges::none_of(
      text, [](QChar letter) { return letter.unicode() < 0x80 && letter.isLetter(); });
}

// Names and titles may be longer than any window is wide.
bool isElided(const QWidget& part) {
  return dynamic_cast<const ui::ElidedLabel*>(&part) != nullptr;
}

class Reader {
 public:
  void readWindow(QWidget& window) {
    read(window);
    for (QWidget* part : window.findChildren<QWidget*>()) {
      if (part->isVisible() && part->window() == &window) read(*part);
    }
  }

  std::vector<std::string> take() { return std::move(faults_); }

 private:
  void read(QWidget& part) {
    part_ = QStringLiteral("%1 %2").arg(part.metaObject()->className(), part.objectName());
    readDrawn(part);
    for (const QString& text : {part.accessibleName(), part.accessibleDescription(), part.toolTip(),
                                part.isWindow() ? part.windowTitle() : QString()})
      expectTranslated(text);
    for (const QAction* action : part.actions()) readMenu(*action);
    if (const auto* box = qobject_cast<QComboBox*>(&part)) {
      for (int item = 0; item < box->count(); ++item) expectTranslated(box->itemText(item));
    }
    if (const auto* line = qobject_cast<QLineEdit*>(&part))
      expectTranslated(line->placeholderText());
    if (const auto* view = qobject_cast<QAbstractItemView*>(&part)) readRows(*view);
  }

  // Rows at the end of a list go on beyond it, and are there to be scrolled to.
  void readDrawn(QWidget& part) {
    const auto* list = qobject_cast<QAbstractItemView*>(part.parentWidget());
    const bool scrolls = list != nullptr && list->viewport() == &part;
    QString all;
    for (const DrawnText& drawn : drawnBy(part)) {
      all += drawn.text;
      constexpr double hair = 1.5;
      const QRectF room = QRectF(part.rect()).adjusted(-hair, -hair, hair, hair);
      const bool isSideways =
          drawn.place.left() < room.left() || drawn.place.right() > room.right();
      const bool isAcross = drawn.place.top() < room.top() || drawn.place.bottom() > room.bottom();
      if (isSideways || (isAcross && !scrolls)) fault(reachesBeyond, drawn.text);
    }
    expectTranslated(all);
    if (isElided(part)) return;
    if (all.contains(u'…') || all.count(u'⟦') != all.count(u'⟧')) fault("is shortened", all);
  }

  void readRows(const QAbstractItemView& view) {
    for (int row = 0; row < view.model()->rowCount(); ++row) {
      for (const int role : {Qt::DisplayRole, Qt::AccessibleTextRole, Qt::AccessibleDescriptionRole,
                             Qt::ToolTipRole})
        expectTranslated(view.model()->index(row, 0).data(role).toString());
    }
  }

  void readMenu(const QAction& action) {
    expectTranslated(action.text());
    if (action.menu() == nullptr) return;
    for (const QAction* command : action.menu()->actions()) readMenu(*command);
  }

  void expectTranslated(const QString& text) {
    if (!isTranslated(text)) fault("is not translated", text);
  }

  void fault(const char* what, const QString& text) {
    faults_.push_back(QStringLiteral("%1: “%2” %3").arg(part_, text, what).toStdString());
  }

  QString part_;
  std::vector<std::string> faults_;
};

}  // namespace

std::vector<std::string> unreadable(QWidget& window) {
  Reader reader;
  reader.readWindow(window);
  return reader.take();
}

std::vector<std::string> cutOff(QWidget& window) {
  std::vector<std::string> faults = unreadable(window);
  std::erase_if(faults, [](const std::string& fault) { return !fault.ends_with(reachesBeyond); });
  return faults;
}

}  // namespace broomtide::test

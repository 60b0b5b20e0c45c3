#include "ui/Readable.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QImage>
#include <QLineEdit>
#include <QMenu>
#include <QPaintEngine>
#include <QRegularExpression>
#include <algorithm>

#include "ui/controls/Label.h"

namespace broomtide::test {
namespace {

constexpr const char* reachesBeyond = "reaches beyond its part";

// A piece of text as it reaches the screen, after all shortening and wrapping, and the room that it
// takes in the widget that drew it.
struct DrawnText {
  QString text;
  QRectF place;
};

// Notes texts and draws nothing.
class NotingEngine final : public QPaintEngine {
 public:
  NotingEngine() : QPaintEngine(AllFeatures) {}

  bool begin(QPaintDevice*) override { return true; }
  bool end() override { return true; }
  Type type() const override { return User; }
  void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
  void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
  void drawPath(const QPainterPath&) override {}

  void updateState(const QPaintEngineState& change) override {
    if ((change.state() & DirtyTransform) != 0) transform_ = change.transform();
  }

  void drawTextItem(const QPointF& start, const QTextItem& item) override {
    const QRectF place(start.x(), start.y() - item.ascent(), item.width(),
                       item.ascent() + item.descent());
    texts.push_back({item.text(), transform_.mapRect(place)});
  }

  std::vector<DrawnText> texts;

 private:
  QTransform transform_;
};

// As large and as dense as an image of the widget would be.
class NotingDevice final : public QImage {
 public:
  explicit NotingDevice(QSize size) : QImage(size, Format_ARGB32) {}

  QPaintEngine* paintEngine() const override { return &engine; }

  mutable NotingEngine engine;
};

// What a visible widget draws by itself, without its children.
std::vector<DrawnText> drawnBy(QWidget& widget) {
  NotingDevice device(widget.size());
  widget.render(&device, QPoint(), QRegion(), QWidget::RenderFlags());
  return device.engine.texts;
}

bool isTranslated(QString text) {
  static const QRegularExpression escape(QStringLiteral(R"(\\(x|u)[0-9a-f]+)"));
  text.remove(escape);  // what a name shows of a character that deceives
  return std::ranges::none_of(
      text, [](QChar letter) { return letter.unicode() < 0x80 && letter.isLetter(); });
}

class Reader {
 public:
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

  std::vector<std::string> faults;

 private:
  // Rows at the end of a list go on beyond it, and are there to be scrolled to.
  void readDrawn(QWidget& part) {
    const auto* list = qobject_cast<QAbstractItemView*>(part.parentWidget());
    const bool scrolls = list != nullptr && list->viewport() == &part;
    constexpr double hair = 1.5;
    const double across = scrolls ? QWIDGETSIZE_MAX : hair;
    const QRectF room = QRectF(part.rect()).adjusted(-hair, -across, hair, across);
    QString all;
    for (const DrawnText& drawn : drawnBy(part)) {
      all += drawn.text;
      if (!room.contains(drawn.place)) fault(reachesBeyond, drawn.text);
    }
    expectTranslated(all);
    // Names and titles may be longer than any window is wide.
    if (dynamic_cast<const ui::ElidedLabel*>(&part) != nullptr) return;
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
    faults.push_back(QStringLiteral("%1: “%2” %3").arg(part_, text, what).toStdString());
  }

  QString part_;
};

}  // namespace

std::vector<std::string> unreadable(QWidget& window) {
  Reader reader;
  reader.read(window);
  for (QWidget* part : window.findChildren<QWidget*>()) {
    if (part->isVisible() && part->window() == &window) reader.read(*part);
  }
  return reader.faults;
}

std::vector<std::string> cutOff(QWidget& window) {
  std::vector<std::string> faults = unreadable(window);
  std::erase_if(faults, [](const std::string& fault) { return !fault.ends_with(reachesBeyond); });
  return faults;
}

}  // namespace broomtide::test

// All screens in several languages: everything is translated and can be read to its end.

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QTableView>
#include <latch>

#include "ui/Person.h"
#include "ui/SpokenLanguage.h"
#include "ui/controls/Label.h"
#include "ui/look/Theme.h"
#include "ui/results/ResultsModel.h"

namespace broomtide {
namespace {

using namespace std::chrono_literals;

constexpr std::int64_t wideSize = 888'880'000'000;

// An item whose names have no letters, with much to be said about it.
ScanCandidate item(int number, SafetyLevel safety, GitItemStatus status) {
  ScanCandidate result = test::makeCandidate("1/" + std::to_string(number), wideSize, safety);
  result.url = "/1/2/" + result.relativePath;
  result.modificationDate = std::chrono::sys_days{2026y / 12 / 28} + 12h;
  result.category = "Dependency Cache";
  result.explanation =
      "Debug symbols copied from connected iOS devices. Xcode copies them again on "
      "the next connection, which takes a while.";
  result.projectRoot = "/1/2/1";
  result.projectKinds = {ProjectKind::javascript, ProjectKind::swift};
  using namespace messages;
  const auto project = {termsValue({std::string(title(ProjectKind::dotnet)), "Python"}),
                        namesValue({"1.2", "3.4"})};
  result.evidence = {{projectDetected, project},
                     {noProject},
                     {ignoredByGit},
                     {untrackedByGit},
                     {gitUnverified},
                     {noRepository},
                     {genericName},
                     {nameAgrees},
                     {downloadsRule},
                     {holdsRepository, {nameValue("1"), nameValue("2/3")}},
                     {cacheLocation, {nameValue("1/2")}}};
  result.regenerationCommand = Message{
      "Recreate the environment and install dependencies from the project "
      "lock or requirements file."};
  if (status == GitItemStatus::untracked) result.confidence = DetectionConfidence::medium;
  result.gitStatus = status;
  return result;
}

ScanResult everything() {
  using enum SafetyLevel;
  using enum GitItemStatus;
  ScanResult result{{item(1, safe, ignored), item(2, usuallySafe, unavailable),
                     item(3, reviewFirst, untracked), item(4, reviewFirst, tracked)},
                    {},
                    {}};
  for (ScanCandidate& candidate : result.candidates) candidate.isSelected = true;
  result.candidates.back().modificationDate.reset();
  result.candidates.back().relativePath += "\u200b";
  for (int number = 0; number < 12; ++number)
    result.issues.push_back(
        ScanIssue::about("/1/2/" + std::to_string(number), "Permission denied"));
  return result;
}

// Names in these screens have no letters, so a letter without an accent was not translated.
bool isTranslated(QString text) {
  static const QRegularExpression escape(QStringLiteral(R"(\\(x|u)[0-9a-f]+)"));
  text.remove(escape);  // what a name shows of a character that deceives
  return std::ranges::none_of(
      text, [](QChar letter) { return letter.unicode() < 0x80 && letter.isLetter(); });
}

// The texts that a part of a window shows or says.
QStringList textsOf(const QWidget& part) {
  QStringList texts{part.accessibleName(), part.accessibleDescription(), part.toolTip(),
                    part.isWindow() ? part.windowTitle() : QString()};
  for (const char* property : {"text", "placeholderText"})
    texts << part.property(property).toString();
  for (const QAction* action : part.actions()) texts << action->text();
  if (const auto* box = qobject_cast<const QComboBox*>(&part)) {
    for (int item = 0; item < box->count(); ++item) texts << box->itemText(item);
  }
  if (const auto* view = qobject_cast<const QAbstractItemView*>(&part)) {
    for (int row = 0; row < view->model()->rowCount(); ++row) {
      for (const int role : {Qt::DisplayRole, Qt::AccessibleTextRole, Qt::ToolTipRole})
        texts << view->model()->index(row, 0).data(role).toString();
    }
  }
  return texts;
}

// Labels and buttons that have no room for all of their text; some labels are made to be elided.
bool isCutOff(const QWidget& part) {
  if (dynamic_cast<const ui::ElidedLabel*>(&part) != nullptr) return false;
  const auto* label = qobject_cast<const QLabel*>(&part);
  if (label != nullptr && label->wordWrap()) {
    return part.height() < label->heightForWidth(part.width());
  }
  const auto* button = qobject_cast<const QAbstractButton*>(&part);
  const bool isRead = label != nullptr || (button != nullptr && !button->text().isEmpty());
  return isRead && part.width() < part.sizeHint().width();
}

// Goes through all screens in one language, in the smallest window.
class AllScreens : public testing::TestWithParam<const char*> {
 protected:
  AllScreens() : spoken({GetParam()}), test("/1/2") {}

  void read(const char* what, QWidget* window = nullptr) {
    const bool isPseudo = GetParam() == std::string_view("pseudo");  // longer than any other
    if (window == nullptr) window = &test.window();
    test.window().resize(820, 624);
    test::show(test.window());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    for (int round = 0; round < 5; ++round) QCoreApplication::processEvents();
    QList<QWidget*> parts = window->findChildren<QWidget*>();
    parts << window;
    for (const QWidget* part : parts) {
      if (!part->isVisible()) continue;
      for (const QString& text : textsOf(*part)) {
        EXPECT_TRUE(!isPseudo || isTranslated(text)) << what << ": " << text.toStdString();
      }
      const bool isSeen = !part->visibleRegion().isEmpty();
      EXPECT_FALSE(!isPseudo && isSeen && isCutOff(*part))
          << what << ": " << textsOf(*part).join('|').toStdString();
    }
  }

  const test::SpokenLanguage spoken;
  test::TestWindow test;
};

TEST_P(AllScreens, AreTranslatedAndShowTheirTextsWhole) {
  read("welcome");
  test.model().setRoute(Route::scanning);
  read("scanning");
  test.scan(everything(), ScanMode::project, "/1/2");
  auto& list = test::find<QTableView>(test.window(), "candidates");
  for (int number = list.model()->rowCount() - 1; number >= 0; --number) {
    list.model()->setData(list.model()->index(number, 0), true, ui::ExpandedRole);
    list.scrollTo(list.model()->index(number, 0), QAbstractItemView::PositionAtTop);
    read("results");
  }
  test::find<QLineEdit>(test.window(), "filter").setText("9");
  read("filtered");
  test::find(test.window(), "tabs").findChildren<QPushButton*>().at(1)->click();
  read("projects");
  for (const ScanMode mode : {ScanMode::caches, ScanMode::project}) {
    test.scan({{}, everything().issues, {}}, mode, "/1/2");
    read("nothing found");
  }
  test.scan(everything(), ScanMode::project, "/1/2");
  test.script.clean = [](const auto& items, const auto&) {
    return CleanupResult{items, {{"1", "1/2", Message{messages::notMoved}}}};
  };
  test.model().setRoute(Route::confirmation);
  read("confirmation");
  test.model().cleanSelectedItems();
  test.runUntil(Route::summary);
  read("summary");
  for (const char* history : {"history", "no history"}) {
    test.model().setRoute(Route::welcome);
    test.model().showHistory();
    test.runUntil(Route::history);
    read(history);
    test.script.history.clear();
  }
  test::press(Qt::Key_Comma, Qt::ControlModifier);
  read("settings", &test::find(test.window(), "settings"));
}
INSTANTIATE_TEST_SUITE_P(InManyLanguages, AllScreens, testing::Values("pseudo", "de", "zh_CN"),
                         [](const auto& row) { return row.param; });

}  // namespace
}  // namespace broomtide

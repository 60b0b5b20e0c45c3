// Which language the window speaks, and what follows from that for texts and values.

#include <QComboBox>
#include <QTableView>

#include "app/FolderChoice.h"
#include "app/Services.h"
#include "support/TemporaryTree.h"
#include "ui/Candidates.h"
#include "ui/Person.h"
#include "ui/SpokenLanguage.h"
#include "ui/look/DisplayText.h"
#include "ui/look/EngineText.h"

namespace broomtide {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

TEST(EngineText, AnythingThatAScanSaysIsTranslated) {
  const test::TemporaryTree tree;
  tree.file("1/package.json", "{}");
  tree.file("1/node_modules/2/3", "4");
  tree.file(".npm/_cacache/1", "2");
  tree.file("9.csv", "1");
  const test::SpokenLanguage pseudo({"pseudo"});
  test::ScriptedPicker picker;
  test::RecordedAccess access;
  ui::QtMainThread main;
  const std::unique_ptr<AppModel> model = services::makeModel(main, picker, access);
  for (const ScanMode mode : {ScanMode::project, ScanMode::downloads, ScanMode::caches}) {
    std::set<std::string> places;
    const auto observation = model->observe([&](AppModel::Field field) {
      if (field == AppModel::Field::progress) places.insert(model->progress().currentPath);
    });
    model->beginScan(tree.root(), mode, true);
    test::TestWindow::runUntil([&] { return model->route() == Route::results; });
    ASSERT_THAT(model->candidates(), SizeIs(1)) << static_cast<int>(mode);
    const ScanCandidate& found = model->candidates().front();
    for (const std::string& place : places) {
      const bool isPath = place == found.relativePath || tree.root().ends_with(place);
      EXPECT_EQ(ui::enginetext::place(place).startsWith(u'⟦'), !isPath) << place;
    }
    for (const std::string& line : found.evidence.lines())
      EXPECT_TRUE(ui::enginetext::statement(line).startsWith(u'⟦')) << line;
  }
}

TEST(EngineText, KeepsWhatStandsInASentence) {
  const test::SpokenLanguage german({"de"});
  const std::vector<std::pair<std::string, QString>> statements{
      {"Detected JavaScript / TypeScript, Python project from a.csproj, package.json.",
       "Projekt (JavaScript / TypeScript, Python) anhand von a.csproj, package.json erkannt."},
      {"Well-known developer cache location (~/.npm/%2).",
       "Bekannter Ort für Entwickler-Caches (~/.npm/%2)."},
      {FolderChoice::refusal("/tmp/a\u202eb ”. c", "/home/%1"),
       "In „a\\u202eb ”. c“ wurden keine bekannten Entwickler-Caches gefunden. Wählen Sie zum "
       "Scannen von Entwickler-Caches Ihren persönlichen Ordner (/home/%1) aus."},
      {FolderChoice::refusal("/tmp/Logs", std::nullopt),
       "In „Logs“ wurden keine bekannten Entwickler-Caches gefunden. Wählen Sie zum Scannen von "
       "Entwickler-Caches Ihren persönlichen Ordner (Ihr persönlicher Ordner) aus."},
      {"npm ci", "npm ci"},
      {"", ""},
  };
  for (const auto& [english, shown] : statements)
    EXPECT_EQ(ui::enginetext::statement(english), shown);
  const std::vector<std::pair<std::string, QString>> places{
      {"Calculating a/Cache…", "Größe von a/Cache wird ermittelt …"},
      {"Detected 1 project context(s)…", "1 Projekt erkannt …"},
      {"Detected 12 project context(s)…", "12 Projekte erkannt …"},
      {"Detected foo project context(s)…", "Detected foo project context(s)…"},  // a folder
      {"Detected 99999999999 project context(s)…", "Detected 99999999999 project context(s)…"},
      {"Cache", "Cache"},
      {"Logs", "Logs"},  // a folder, not the category
      {"a\nb", "a\\nb"},
  };
  for (const auto& [english, shown] : places) EXPECT_EQ(ui::enginetext::place(english), shown);
}

TEST(Languages, TheFirstThatTheWindowSpeaksDecidesAboutTextsAndValues) {
  const Date date = std::chrono::sys_days{2026y / 3 / 1} + 9h + 30min;
  struct Row {
    QStringList wanted;
    const char* cancel;
    const char* size;
    const char* dateAndTime;
  };
  for (const auto& [wanted, cancel, size, dateAndTime] : std::vector<Row>{
           {{}, "Cancel", "-1.25 TB", "Mar 1, 2026 at 9:30 AM"},
           {{"fr", "tlh"}, "Cancel", "-1.25 TB", "Mar 1, 2026 at 9:30 AM"},
           {{"en_DE", "de"}, "Cancel", "-1.25 TB", "1 Mar 2026 at 09:30"},
           {{"de"}, "Abbrechen", "-1,25 TB", "01.03.2026 um 09:30"},
           {{"fr_FR", "de_AT", "en"}, "Abbrechen", "-1,25 TB", "01.03.2026 um 09:30"},
           {{"zh-Hans-CN"}, "取消", "-1.25 TB", "2026年3月1日 09:30"},
           {{"zh_SG"}, "取消", "-1.25 TB", "2026年3月1日 上午9:30"},
           {{"zh_TW"}, "Cancel", "-1.25 TB", "Mar 1, 2026 at 9:30 AM"},
       }) {
    SCOPED_TRACE(wanted.join(' ').toStdString());
    const test::SpokenLanguage language(wanted);
    EXPECT_EQ(QCoreApplication::translate("broomtide::ui::ConfirmationView", "Cancel"), cancel);
    EXPECT_EQ(ui::display::size(-1'250'000'000'000), size);
    EXPECT_EQ(ui::display::dateAndTime(date), dateAndTime);
  }
}

TEST(Languages, NamesAreInTheirOrderAndCategoriesAreFoundAsTheyAreShown) {
  const test::SpokenLanguage chinese({"zh_CN"});
  test::TestWindow test;
  test::show(test.window());
  test.scan(test::resultOf(
      {test::makeCandidate("重"), test::makeCandidate("啊"), test::makeCandidate("大")}));
  auto& list = test::find<QTableView>(test.window(), "candidates");
  const auto shown = [&] {
    std::vector<std::string> names;
    for (int row = 1; row < list.model()->rowCount(); ++row)
      names.push_back(list.model()->index(row, 0).data().toString().toStdString());
    return names;
  };
  test::find<QComboBox>(test.window(), "sort").setCurrentIndex(1);
  EXPECT_THAT(shown(), ElementsAre("啊", "大", "重"));
  auto& filter = test::find<QLineEdit>(test.window(), "filter");
  filter.setText("构建 大");
  EXPECT_THAT(shown(), ElementsAre("大"));
  filter.setText("Build");
  EXPECT_THAT(shown(), IsEmpty());
}

}  // namespace
}  // namespace broomtide

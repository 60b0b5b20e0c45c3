// Texts and colours: which language the window speaks, how names and values are shown, and what can
// be read.

#include <QComboBox>
#include <QLineEdit>
#include <QPainter>
#include <QTableView>
#include <cmath>

#include "app/FolderChoice.h"
#include "app/Services.h"
#include "support/TemporaryTree.h"
#include "ui/Person.h"
#include "ui/SpokenLanguage.h"
#include "ui/look/DisplayText.h"
#include "ui/look/EngineText.h"
#include "ui/look/Theme.h"
#include "ui/shell/Languages.h"

namespace broomtide {
namespace {

namespace display = ui::display;
using ui::Theme;
using ui::Tone;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

TEST(EngineText, KeepsWhatStandsInASentence) {
  const test::SpokenLanguage german({"de"});
  using namespace messages;
  const std::vector<std::pair<Message, QString>> sentences{
      {{projectDetected,
        {termsValue({"JavaScript / TypeScript", "Cache"}), namesValue({"a.csproj", "Cache"})}},
       "Projekt (JavaScript / TypeScript, Cache) anhand von a.csproj, Cache erkannt."},
      {{cacheLocation, {nameValue(".npm/%2")}}, "Bekannter Ort für Entwickler-Caches (~/.npm/%2)."},
      {FolderChoice::refusal("/tmp/a\u202eb ”. c", "/home/%1"),
       "In „a\\u202eb ”. c“ wurden keine bekannten Entwickler-Caches gefunden. Wählen Sie zum "
       "Scannen von Entwickler-Caches Ihren persönlichen Ordner (/home/%1) aus."},
      {FolderChoice::refusal("/tmp/Logs", std::nullopt),
       "In „Logs“ wurden keine bekannten Entwickler-Caches gefunden. Wählen Sie zum Scannen von "
       "Entwickler-Caches Ihren persönlichen Ordner (Ihr persönlicher Ordner) aus."},
      {{calculating, {nameValue("a/Cache")}}, "Größe von a/Cache wird ermittelt …"},
      {{projectsDetected, {countValue(1)}}, "1 Projekt erkannt …"},
      {{projectsDetected, {countValue(12)}}, "12 Projekte erkannt …"},
      {bareName("Logs"), "Logs"},  // a folder, not the category
      {bareName("a\nb%1"), "a\\nb%1"},
      {bareSentence("npm ci"), "npm ci"},
  };
  for (const auto& [message, shown] : sentences)
    EXPECT_EQ(ui::enginetext::sentence(message), shown);
  EXPECT_EQ(ui::enginetext::statement("Logs"), "Protokolle");
  EXPECT_EQ(ui::enginetext::statement("a\nb"), "a\\nb");
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

// LANGUAGE counts beside a locale other than C, as in other programs.
TEST(Languages, AreWantedWhereALocaleIsSet) {
  const QByteArray former = qgetenv("LC_ALL");
  struct Row {
    const char *all, *messages, *lang;
    bool areWanted;
  };
  for (const auto& [all, messages, lang, areWanted] :
       {Row{"", "", "", false}, Row{"", "", "de_DE.UTF-8", true},
        Row{"", "C", "de_DE.UTF-8", false}, Row{"", "de_DE.UTF-8", "C", true},
        Row{"POSIX", "de_DE.UTF-8", "", false}, Row{"de_DE.UTF-8", "C.UTF-8", "", true}}) {
    qputenv("LC_ALL", all);
    qputenv("LC_MESSAGES", messages);
    qputenv("LANG", lang);
    EXPECT_EQ(!ui::languages::preferred().isEmpty(), areWanted) << all << messages << lang;
  }
  qputenv("LC_ALL", former);
  qunsetenv("LC_MESSAGES");
  qunsetenv("LANG");
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

// A mark that runs from left to right (‹ here) after each slash, and around it all.
TEST(DisplayText, KeepsTheComponentsOfAPathInTheirOrder) {
  for (const auto& [path, shown] : std::vector<std::pair<std::string, QString>>{
           {"אבג/דהו", "‹אבג/‹דהו‹"},
           {"/دهل/١٢٣/abc", "‹/‹دهل/‹١٢٣/‹abc‹"},
           {"𞤀𞤁/1", "‹𞤀𞤁/‹1‹"},
           {"é/日本/😀", "é/日本/😀"},
           {"\u202eabc/\xff", "\\u202eabc/\ufffd"},
       }) {
    EXPECT_EQ(display::text(path).replace(QChar(0x200E), u'‹'), shown);
    EXPECT_FALSE(display::unmarked(display::text(path)).contains(QChar(0x200E)));
  }
}

TEST(DisplayText, CopiesPathsThatCanBePasted) {
  for (const auto& [path, copied] : std::vector<std::pair<std::string, QString>>{
           {"/a b'c", "/a b'c"},
           {"/back\\slash", "/back\\slash"},
           {"/x\nrm 'y'", "$'/x\\nrm \\'y\\''"},
           {"/\x1b[2J\\", "$'/\\x1b[2J\\\\'"},
           {"/\u009b2Jé", "$'/\\xc2\\x9b2Jé'"},
           {"/photo\u202egpj", "$'/photo\\xe2\\x80\\xaegpj'"},
           {"/un\u200bseen'", "$'/un\\xe2\\x80\\x8bseen\\''"},
           {"/caf\xe9/\xe2\x80", "$'/caf\\xe9/\\xe2\\x80'"},
           {"/אבג/דהו", "/אבג/דהו"},
       })
    EXPECT_EQ(display::pasteable(path), copied);
}

// The relative luminance that the guidelines for accessible web content define.
double luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
         0.0722 * linear(colour.blueF());
}

double contrast(const QColor& a, const QColor& b) {
  const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
  return (lighter + 0.05) / (darker + 0.05);
}

// What is seen of a translucent colour over another one.
QColor over(const QColor& behind, const QColor& translucent) {
  QImage image(1, 1, QImage::Format_ARGB32);
  image.fill(behind);
  QPainter(&image).fillRect(image.rect(), translucent);
  return image.pixelColor(0, 0);
}

TEST(Colours, AreReadable) {
  for (const Theme* theme : {&Theme::light(), &Theme::dark()}) {
    EXPECT_GE(contrast(theme->onAccent, theme->accent), 4.5);
    for (const Tone tone : {Tone::primary, Tone::secondary, Tone::tertiary, Tone::accent,
                            Tone::safe, Tone::usuallySafe, Tone::reviewFirst}) {
      const QColor colour = theme->colour(tone);
      for (const QColor& behind : {theme->window, theme->card, theme->cardHovered})
        EXPECT_GE(contrast(colour, behind), 4.5) << colour.name().toStdString();
      if (tone < Tone::safe) continue;
      for (const QColor& behind : {theme->card, theme->cardHovered})  // a badge on it
        EXPECT_GE(contrast(colour, over(behind, Theme::faint(colour))), 4.5)
            << colour.name().toStdString();
    }
  }
}

}  // namespace
}  // namespace broomtide

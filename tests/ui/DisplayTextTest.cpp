#include "ui/look/DisplayText.h"

#include <gmock/gmock.h>
#include <unicode/ubidi.h>

#include <memory>

#include "core/VisibleText.h"

namespace broomtide {
namespace {

namespace display = ui::display;

// Where each of these parts of a text begins to be seen, from the left; its direction is that of
// its first letter, as wherever the window draws.
std::vector<int> places(const QString& text, const QStringList& parts) {
  const std::unique_ptr<UBiDi, decltype(&ubidi_close)> order(ubidi_open(), ubidi_close);
  UErrorCode status = U_ZERO_ERROR;
  ubidi_setPara(order.get(), reinterpret_cast<const UChar*>(text.utf16()),
                static_cast<int>(text.size()), UBIDI_DEFAULT_LTR, nullptr, &status);
  std::vector<int> found;
  qsizetype from = 0;
  for (const QString& part : parts) {
    from = text.indexOf(part, from);
    int first = static_cast<int>(text.size());
    for (qsizetype at = from; at < from + part.size(); ++at) {
      first = std::min(first, ubidi_getVisualIndex(order.get(), static_cast<int>(at), &status));
    }
    found.push_back(first);
  }
  EXPECT_EQ(status, U_ZERO_ERROR);
  return found;
}

TEST(DisplayText, KeepsTheComponentsOfAPathInTheirOrder) {
  for (const QStringList& components : {QStringList{"אבג", "דהו"},
                                        {"אבג", "node_modules"},
                                        {"", "אבג", "123", "דהו"},
                                        {"123", "אבג", "4.5"},
                                        {"", "دهل", "١٢٣", "abc", "!"},
                                        {"𞤀𞤁", "1"},
                                        {"(אבג)", "[1]", "..."}}) {
    const QString path = components.join('/');
    const QString shown = display::text(path.toStdString());
    // What stands beside it must stay there as well.
    const QString line = shown + ", 12 KB";
    QStringList parts = components + QStringList{"12", "KB"};
    parts.removeAll(QString());
    EXPECT_TRUE(std::ranges::is_sorted(places(line, parts))) << shown.toStdString();
    EXPECT_FALSE(std::ranges::is_sorted(places(path + ", 12 KB", parts))) << shown.toStdString();
    EXPECT_EQ(display::unmarked(shown), path);
  }
}

TEST(DisplayText, LeavesOtherTextsAsTheyAre) {
  for (const char* text : {"", "/home/ada", "é/日本/😀", "a\u200eb", "\u202eabc/d", "\xff/x"}) {
    EXPECT_EQ(display::text(text).toStdString(), visible(text));
    EXPECT_EQ(display::unmarked(display::text(text)), display::text(text));
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

TEST(DisplayText, WarnsOfNamesThatAreNotWhatTheySeem) {
  for (const char* name :
       {"a\nb", "\x1b[31m", "photo\u202egpj", "a\u200bb", "\xff", "ü/\u009b", "\u200eאבג"}) {
    EXPECT_EQ(display::warning(name), "Unusual characters") << name;
  }
  for (const char* name : {"", "a b", "back\\slash", "é/日本/😀", "אבג/דהו", "☁\ufe0f"}) {
    EXPECT_EQ(display::warning(name), "") << name;
  }
}

}  // namespace
}  // namespace broomtide

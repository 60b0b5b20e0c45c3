#include "cli/TerminalText.h"

namespace broomtide::cli {
namespace {

TEST(TerminalText, ShowsWhatCouldDeceive) {
  const std::vector<std::pair<std::string, std::string>> cases{
      {"plain ü 😀", "plain ü 😀"},
      {"a\nb\tc\rd", "a\\nb\\tc\\rd"},
      {"\x1b[31mred\x07", "\\x1b[31mred\\x07"},
      {"\x7f\xc2\x9b", "\\x7f\\u009b"},
      {"a\\nb", "a\\\\nb"},
      {"a\u00adb\u3164\U000e0041☁\ufe0f", "a\\u00adb\\u3164\\U000e0041☁\ufe0f"},
      {"photo\u202egpj.exe", "photo\\u202egpj.exe"},
      {"a\u2028b\u200bc\ufeff", "a\\u2028b\\u200bc\\ufeff"},
      {"\xff", "\uFFFD"},
  };
  for (const auto& [name, shown] : cases) EXPECT_EQ(visible(name), shown);
}

TEST(TerminalText, ShortensInTheMiddle) {
  EXPECT_EQ(shortened("abcdef", 6), "abcdef");
  EXPECT_EQ(shortened("abcdefg", 6), "abc…fg");
  EXPECT_EQ(shortened("äöüäöü", 5), "äö…öü");
  EXPECT_EQ(shortened("日本語の名前", 6), "日…前");
  EXPECT_EQ(columns("日本e\u0301"), 5U);
  EXPECT_EQ(shortened("abc", 1), "…");
  EXPECT_EQ(shortened("abc", 0), "");
}

}  // namespace
}  // namespace broomtide::cli

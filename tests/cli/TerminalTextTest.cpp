#include "cli/TerminalText.h"

namespace broomtide::cli {
namespace {

TEST(TerminalText, ShortensInTheMiddle) {
  EXPECT_EQ(shortened("abcdef", 6), "abcdef");
  EXPECT_EQ(shortened("abcdefg", 6), "abc…fg");
  EXPECT_EQ(shortened("äöüäöü", 5), "äö…öü");
  EXPECT_EQ(shortened("日本語の名前", 6), "日…前");
  EXPECT_EQ(shortened("ab☁\ufe0fé☁\ufe0fde\u0301", 6), "ab☁\ufe0f…de\u0301");
  EXPECT_EQ(columns("日本e\u0301"), 5U);
  EXPECT_EQ(shortened("abc", 1), "…");
  EXPECT_EQ(shortened("abc", 0), "");
}

}  // namespace
}  // namespace broomtide::cli

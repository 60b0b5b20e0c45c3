#include "cli/TerminalText.h"

namespace broomtide::cli {
namespace {

TEST(TerminalText, ShortensInTheMiddle) {
  EXPECT_EQ(elideMiddle("abcdef", 6), "abcdef");
  EXPECT_EQ(elideMiddle("abcdefg", 6), "abc…fg");
  EXPECT_EQ(elideMiddle("äöüäöü", 5), "äö…öü");
  EXPECT_EQ(elideMiddle("日本語の名前", 6), "日…前");
  EXPECT_EQ(elideMiddle("ab☁\ufe0fé☁\ufe0fde\u0301", 6), "ab☁\ufe0f…de\u0301");
  EXPECT_EQ(displayWidth("日本e\u0301"), 5U);
  EXPECT_EQ(elideMiddle("abc", 1), "…");
  EXPECT_EQ(elideMiddle("abc", 0), "");
}

}  // namespace
}  // namespace broomtide::cli

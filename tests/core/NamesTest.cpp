#include "core/SortOrder.h"
#include "core/VisibleText.h"

namespace broomtide {
namespace {

TEST(Names, ShowWhatCouldDeceive) {
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

ScanCandidate candidate(const std::string& path, SafetyLevel safety, std::int64_t size,
                        std::optional<int> day = std::nullopt) {
  ScanCandidate result;
  result.relativePath = path;
  result.safety = safety;
  result.size = size;
  if (day) result.modificationDate = Date(std::chrono::hours(24) * *day);
  return result;
}

TEST(Names, AreSortedWithinEachSafetyLevel) {
  using enum SafetyLevel;
  const std::vector<ScanCandidate> candidates{
      candidate("x/b10", safe, 1, 5), candidate("x/B9", safe, 9), candidate("x/a", safe, 5, 9),
      candidate("0", usuallySafe, 100, 1)};
  const auto order = [&](SortOrder wanted) {
    CandidateRows rows = rowsOf(candidates);
    sortRows(rows, wanted);
    std::string paths;
    for (const ScanCandidate* item : rows) paths += item->relativePath + ' ';
    return paths;
  };
  EXPECT_EQ(order(SortOrder::name), "x/a x/B9 x/b10 0 ");
  EXPECT_EQ(order(SortOrder::date), "x/b10 x/a x/B9 0 ");
  EXPECT_EQ(order(SortOrder::size), "x/B9 x/a x/b10 0 ");
}

}  // namespace
}  // namespace broomtide

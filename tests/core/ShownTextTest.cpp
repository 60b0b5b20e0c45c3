#include <unicode/locid.h>
#include <unicode/timezone.h>

#include <algorithm>
#include <random>

#include "core/DateText.h"
#include "core/EscapedText.h"
#include "core/SortOrder.h"

namespace broomtide {
namespace {

// The user's language, as long as this lives.
class Language {
 public:
  explicit Language(const char* name) { set(icu::Locale(name)); }
  ~Language() { set(former_); }

  Language(const Language&) = delete;
  Language& operator=(const Language&) = delete;

 private:
  static void set(const icu::Locale& locale) {
    UErrorCode status = U_ZERO_ERROR;
    icu::Locale::setDefault(locale, status);
  }

  const icu::Locale former_ = icu::Locale::getDefault();
};

TEST(ShownText, ShowsWhatCouldDeceive) {
  const std::vector<std::pair<std::string, std::string>> cases{
      {"", ""},
      {" plain!~", " plain!~"},
      {"plain ü 😀", "plain ü 😀"},
      {"a\nb\tc\rd", "a\\nb\\tc\\rd"},
      {"\x1b[31mred\x07", "\\x1b[31mred\\x07"},
      {"\x7f", "\\x7f"},
      {"\x7f\xc2\x9b", "\\x7f\\u009b"},
      {"a\\nb", "a\\\\nb"},
      {"a\u00adb\u3164\U000e0041☁\ufe0f", "a\\u00adb\\u3164\\U000e0041☁\ufe0f"},
      {"a\ufe0f1\ufe0f😀\ufe0f", "a\\ufe0f1\\ufe0f😀\\ufe0f"},
      {"photo\u202egpj.exe", "photo\\u202egpj.exe"},
      {"a\u2028b\u200bc\ufeff", "a\\u2028b\\u200bc\\ufeff"},
      {"a\ufff9b\u0600", "a\\ufff9b\\u0600"},
      {"\xff", "\uFFFD"},
  };
  for (const auto& [name, shown] : cases) EXPECT_EQ(escaped(name), shown);
}

TEST(ShownText, DatesAreInTheUsersLanguage) {
  struct Row {
    const char* language;
    const char* date;
    const char* dateAndTime;
  };
  icu::TimeZone::adoptDefault(icu::TimeZone::createTimeZone("America/New_York"));
  const Date date = dateFromIso8601("2025-03-02T01:30:00Z").value();
  for (const Row& row : {
           Row{"en_US", "Mar 1, 2025", "Mar 1, 2025 at 8:30 PM"},
           Row{"de_DE", "01.03.2025", "01.03.2025 um 20:30"},
           Row{"fr_FR", "1 mars 2025", "1 mars 2025 à 20:30"},
       }) {
    const Language language(row.language);
    const DateText text;
    EXPECT_EQ(text.date(date), row.date);
    EXPECT_EQ(text.dateAndTime(date), row.dateAndTime);
    EXPECT_EQ(text.date(date), row.date);
  }
  icu::TimeZone::adoptDefault(icu::TimeZone::createTimeZone("UTC"));
}

TEST(ShownText, NamesAreOrderedAsFileManagersDo) {
  using Names = std::vector<std::string>;
  struct Row {
    const char* language;
    Names names;
    Names ordered;
  };
  const std::string deep(3000, 'd');  // longer than any room that is kept ready for one name
  for (const Row& row : {
           Row{"en_US", {}, {}},
           Row{"en_US", {"a", ""}, {"", "a"}},
           Row{"en_US", {"a100", "a10", "a2"}, {"a2", "a10", "a100"}},
           Row{"en_US", {"v2", "v1.10/b", "v1.9", "v1.10/a"}, {"v1.9", "v1.10/a", "v1.10/b", "v2"}},
           Row{"en_US", {"c", "b", "B", "b", "a"}, {"a", "b", "B", "b", "c"}},
           Row{"en_US", {"x2", "x01", "x1", "x001"}, {"x01", "x1", "x001", "x2"}},
           Row{"en_US",
               {"b", "a\xff", "a\xfe", "a\xc3", "a"},
               {"a", "a\xff", "a\xfe", "a\xc3", "b"}},
           Row{"en_US", {"日本b", "日本a", "日", "😀"}, {"😀", "日", "日本a", "日本b"}},
           Row{"en_US", {deep + "10", deep + "2", deep}, {deep, deep + "2", deep + "10"}},
           Row{"en_US", {"zoo", "Äpfel", "apple"}, {"Äpfel", "apple", "zoo"}},
           Row{"sv_SE", {"zoo", "Äpfel", "apple"}, {"apple", "zoo", "Äpfel"}},
           Row{"en_US_POSIX", {"b", "C", "a"}, {"a", "b", "C"}},
       }) {
    const Language language(row.language);
    Names ordered;
    const std::vector<std::string_view> views(row.names.begin(), row.names.end());
    for (const std::size_t index : naturalOrder(views)) ordered.push_back(row.names.at(index));
    EXPECT_EQ(ordered, row.ordered);
  }
}

TEST(ShownText, CandidatesAreSortedWithinEachSafetyLevel) {
  using enum SafetyLevel;
  const auto candidate = [](const char* path, SafetyLevel safety, std::int64_t size,
                            std::optional<int> day = std::nullopt) {
    ScanCandidate result;
    result.relativePath = path;
    result.safety = safety;
    result.size = size;
    if (day) result.modificationDate = Date(std::chrono::hours(24) * *day);
    return result;
  };
  const std::vector<ScanCandidate> candidates{
      candidate("x/b10", safe, 1, 5), candidate("0", usuallySafe, 100, 1),
      candidate("x/B9", safe, 9),     candidate("x/a", safe, 5, 9),
      candidate("x/b9", safe, 9),     candidate("y", safe, 0, -1)};
  const auto order = [&](SortOrder wanted) {
    CandidateRows rows = rowsOf(candidates);
    sortRows(rows, wanted);
    std::string paths;
    for (const ScanCandidate* item : rows) paths += item->relativePath + ' ';
    return paths;
  };
  EXPECT_EQ(order(SortOrder::name), "x/a x/B9 x/b9 x/b10 y 0 ");
  EXPECT_EQ(order(SortOrder::date), "y x/b10 x/a x/B9 x/b9 0 ");
  EXPECT_EQ(order(SortOrder::size), "x/B9 x/b9 x/a x/b10 y 0 ");
}

}  // namespace
}  // namespace broomtide

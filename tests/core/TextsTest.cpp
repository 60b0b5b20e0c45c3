// How sizes, dates, names and paths are told, and how names are ordered.

#include <unicode/locid.h>
#include <unicode/timezone.h>

#include <limits>

#include "core/ByteCount.h"
#include "core/Date.h"
#include "core/DateText.h"
#include "core/EscapedText.h"
#include "core/Paths.h"
#include "core/SortOrder.h"

namespace broomtide {
namespace {

TEST(Formats, ByteCounts) {
  const std::vector<std::pair<std::int64_t, std::string>> cases{
      {0, "Zero KB"},
      {1, "1 byte"},
      {999, "999 bytes"},
      {1'000, "1 KB"},
      {1'499, "1 KB"},
      {1'500, "2 KB"},
      {999'499, "999 KB"},
      {999'500, "1 MB"},
      {1'000'000, "1 MB"},
      {1'250'000, "1.3 MB"},
      {999'950'000, "1 GB"},
      {1'200'000'000, "1.2 GB"},
      {1'234'567'890, "1.23 GB"},
      {5'050'000'000, "5.05 GB"},
      {999'999'999'999, "1 TB"},
      {std::numeric_limits<std::int64_t>::max(), "9.22 EB"},
      {-1'500, "-2 KB"},
      {std::numeric_limits<std::int64_t>::min(), "-9.22 EB"}};
  for (const auto& [bytes, text] : cases) EXPECT_EQ(formatByteCount(bytes), text) << bytes;
}

TEST(Formats, Dates) {
  using std::chrono::nanoseconds;
  EXPECT_EQ(iso8601(Date(nanoseconds(0))), "1970-01-01T00:00:00Z");
  EXPECT_EQ(iso8601(Date(nanoseconds(1'740'821'400'000'000'012))),
            "2025-03-01T09:30:00.000000012Z");
  EXPECT_EQ(iso8601(Date(nanoseconds(-1))), "1969-12-31T23:59:59.999999999Z");
  EXPECT_EQ(iso8601(Date::max()), "2262-04-11T23:47:16.854775807Z");
}

TEST(Formats, FileUrlsKeepEveryByte) {
  EXPECT_EQ(paths::fileUrl("/"), "file:///");
  EXPECT_EQ(paths::fileUrl("/a-b._~/Z9"), "file:///a-b._~/Z9");
  EXPECT_EQ(paths::fileUrl("/a b%\n\xff/ü+&"), "file:///a%20b%25%0A%FF/%C3%BC%2B%26");
}

TEST(Paths, AreStandardisedByTheirTextAlone) {
  const std::vector<std::pair<std::string, std::string>> cases{
      {"/a/b", "/a/b"},       {"/a/b/", "/a/b"},   {"//a///b//", "/a/b"},
      {"/a/./b/.", "/a/b"},   {"/a/../b", "/b"},   {"/a/b/../..", "/"},
      {"/../..", "/"},        {"/", "/"},          {"a/../..", ".."},
      {"../../a", "../../a"}, {"", "."},           {"./", "."},
      {"/a/...", "/a/..."},   {"/a/..b", "/a/..b"}};
  for (const auto& [path, expected] : cases) EXPECT_EQ(paths::standardized(path), expected) << path;
}

TEST(Paths, BelowMeansPastASlash) {
  EXPECT_TRUE(paths::isBelow("/src/app/x", "/src/app"));
  EXPECT_FALSE(paths::isBelow("/src/application", "/src/app"));
  EXPECT_FALSE(paths::isBelow("/src/app", "/src/app"));
  EXPECT_FALSE(paths::isBelow("/src", "/"));
}

TEST(Paths, AreRelativeToTheRootOrElseALastComponent) {
  EXPECT_EQ(paths::relativePath("/r/a/../b/c", "/r/"), "b/c");
  EXPECT_EQ(paths::relativePath("/elsewhere/node_modules", "/r"), "node_modules");
  EXPECT_EQ(paths::relativePath("/r", "/r"), "r");
  EXPECT_EQ(paths::relativePath("/r/\xff/ü", "/r"), "\xff/ü");
}

TEST(Paths, ExtensionFollowsTheLastDotThatDoesNotLead) {
  const std::vector<std::pair<std::string, std::string>> cases{
      {"a.log", "log"}, {"a.tar.gz", "gz"}, {".log", ""}, {"..log", "log"}, {"a.", ""}, {"a", ""}};
  for (const auto& [name, extension] : cases) {
    EXPECT_EQ(paths::pathExtension(name), extension) << name;
  }
}

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
      {"\xff", "\uFFFD"}};
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

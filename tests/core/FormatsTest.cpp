#include <limits>

#include "core/ByteCount.h"
#include "core/Date.h"
#include "core/Paths.h"

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
      {std::numeric_limits<std::int64_t>::min(), "-9.22 EB"},
  };
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

}  // namespace
}  // namespace broomtide

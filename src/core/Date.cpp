#include "core/Date.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace broomtide {
namespace {

// Only the years between these two can be held whole.
constexpr std::chrono::year floorYear{1677};
constexpr std::chrono::year ceilingYear{2262};

// Whether digits stand where the form has a zero, and everything else is the same.
bool hasForm(std::string_view text, std::string_view form) {
  return std::ranges::equal(text, form, [](char given, char wanted) {
    return wanted == '0' ? given >= '0' && given <= '9' : given == wanted;
  });
}

int numberIn(std::string_view digits) {
  int value = 0;
  for (const char digit : digits) value = value * 10 + (digit - '0');
  return value;
}

// How far a local time is ahead of UTC: "Z", "+01:00", "-0330".
std::optional<std::chrono::minutes> offsetFromUtc(std::string_view text) {
  using namespace std::chrono;
  if (text == "Z") return minutes(0);
  const bool isKnown = !text.empty() && (text[0] == '+' || text[0] == '-') &&
                       (hasForm(text.substr(1), "00:00") || hasForm(text.substr(1), "0000"));
  if (!isKnown) return std::nullopt;
  const int hour = numberIn(text.substr(1, 2));
  const int minute = numberIn(text.substr(text.size() - 2));
  if (hour > 23 || minute > 59) return std::nullopt;
  return (hours(hour) + minutes(minute)) * (text[0] == '-' ? -1 : 1);
}

}  // namespace

std::string iso8601(Date date) {
  using namespace std::chrono;
  const auto second = floor<seconds>(date);
  const auto day = floor<days>(second);
  const year_month_day calendar{day};
  const hh_mm_ss clock{second - day};
  const auto fraction = (date - second).count();

  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02d",
                static_cast<int>(calendar.year()), static_cast<unsigned>(calendar.month()),
                static_cast<unsigned>(calendar.day()), static_cast<int>(clock.hours().count()),
                static_cast<int>(clock.minutes().count()),
                static_cast<int>(clock.seconds().count()));
  std::string result = text.data();
  if (fraction != 0) {
    std::snprintf(text.data(), text.size(), ".%09lld", static_cast<long long>(fraction));
    result += text.data();
  }
  return result + 'Z';
}

std::optional<Date> dateFromIso8601(std::string_view text) {
  using namespace std::chrono;
  constexpr std::string_view form = "0000-00-00T00:00:00";
  const auto offset = offsetFromUtc(text.substr(std::min(text.size(), form.size())));
  if (!offset || !hasForm(text.substr(0, form.size()), form)) return std::nullopt;
  const auto number = [text](std::size_t start, std::size_t length) {
    return numberIn(text.substr(start, length));
  };
  const year_month_day calendar{year(number(0, 4)), month(static_cast<unsigned>(number(5, 2))),
                                day(static_cast<unsigned>(number(8, 2)))};
  const int hour = number(11, 2), minute = number(14, 2), second = number(17, 2);
  if (!calendar.ok() || hour > 23 || minute > 59 || second > 59) return std::nullopt;
  const auto inUtc = sys_days(calendar) + hours(hour) + minutes(minute) + seconds(second) - *offset;
  const year yearInUtc = year_month_day(floor<days>(inUtc)).year();
  const bool isHeld = yearInUtc > floorYear && yearInUtc < ceilingYear;
  return isHeld ? std::optional(Date(inUtc)) : std::nullopt;
}

}  // namespace broomtide

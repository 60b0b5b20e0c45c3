#include "core/Date.h"

#include <array>
#include <cstdio>

namespace broomtide {

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

}  // namespace broomtide

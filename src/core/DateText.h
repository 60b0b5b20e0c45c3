#pragma once

#include <memory>
#include <string>

#include "core/Date.h"

namespace broomtide {

/// Dates in the user's language and time zone, which are looked up once for each object and form. A
/// format that cannot be had is replaced by ISO 8601. One thread at a time uses an object.
class DateText {
 public:
  DateText();
  ~DateText();

  DateText(const DateText&) = delete;
  DateText& operator=(const DateText&) = delete;

  /// The abbreviated date alone, such as "Mar 1, 2025" in English.
  std::string date(Date date) const;

  /// The same with a short time, such as "Mar 1, 2025 at 9:30 AM" in English.
  std::string dateAndTime(Date date) const;

 private:
  class Format;
  mutable std::unique_ptr<Format> date_;  // each made when it is first needed, which takes a while
  mutable std::unique_ptr<Format> dateAndTime_;
};

/// Makes this language, such as "de_AT", the one in which dates and the order of names are shown
/// from now on, whatever the surroundings of the program say. No other thread may be showing
/// anything meanwhile.
void setLanguage(const std::string& name);

}  // namespace broomtide

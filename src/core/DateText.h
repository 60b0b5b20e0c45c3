#pragma once

#include <memory>
#include <string>

#include "core/Date.h"

namespace broomtide {

/// Dates in the user's language and time zone: abbreviated, with a short time, such as
/// "Mar 1, 2025 at 9:30 AM" in English.
class DateText {
 public:
  DateText();
  ~DateText();

  DateText(const DateText&) = delete;
  DateText& operator=(const DateText&) = delete;

  std::string operator()(Date date) const;

 private:
  class Format;
  std::unique_ptr<Format> format_;
};

}  // namespace broomtide

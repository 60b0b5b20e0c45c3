#include "core/DateText.h"

#include <unicode/dtptngen.h>
#include <unicode/smpdtfmt.h>

namespace broomtide {
namespace {

using Pattern = icu::UnicodeString;

Pattern patternOf(icu::DateFormat* owned) {
  const std::unique_ptr<icu::DateFormat> format(owned);
  const auto* simple = dynamic_cast<const icu::SimpleDateFormat*>(format.get());
  Pattern pattern;
  if (simple != nullptr) simple->toPattern(pattern);
  return pattern;
}

// The library joins a date and a time with words in its long forms alone, so that the way of
// joining is taken from those and the date from the medium one.
Pattern userPattern(const icu::Locale& user, UErrorCode& status) {
  const std::unique_ptr<icu::DateTimePatternGenerator> generator(
      icu::DateTimePatternGenerator::createInstance(user, status));
  if (U_FAILURE(status)) return {};
  Pattern pattern = generator->getDateTimeFormat(UDAT_LONG, status);
  pattern.findAndReplace(
      "{1}", patternOf(icu::DateFormat::createDateInstance(icu::DateFormat::kMedium, user)));
  pattern.findAndReplace(
      "{0}", patternOf(icu::DateFormat::createTimeInstance(icu::DateFormat::kShort, user)));
  return pattern;
}

}  // namespace

class DateText::Format {
 public:
  Format() : format_(userPattern(icu::Locale(), status_), icu::Locale(), status_) {}

  std::string text(Date date) const {
    if (U_FAILURE(status_)) return iso8601(date);
    const auto milliseconds = std::chrono::duration<double, std::milli>(date.time_since_epoch());
    icu::UnicodeString text;
    format_.format(milliseconds.count(), text);
    constexpr char16_t narrowSpace = 0x202F;  // many terminal fonts lack it
    text.findAndReplace(icu::UnicodeString(narrowSpace), icu::UnicodeString(u' '));
    std::string bytes;
    return text.toUTF8String(bytes);
  }

 private:
  UErrorCode status_ = U_ZERO_ERROR;
  icu::SimpleDateFormat format_;
};

DateText::DateText() : format_(std::make_unique<Format>()) {}

DateText::~DateText() = default;

std::string DateText::operator()(Date date) const { return format_->text(date); }

}  // namespace broomtide

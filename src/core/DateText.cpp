#include "core/DateText.h"

#include <unicode/dtptngen.h>
#include <unicode/locid.h>
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

Pattern datePattern(const icu::Locale& user, UErrorCode&) {
  return patternOf(icu::DateFormat::createDateInstance(icu::DateFormat::kMedium, user));
}

// The library joins a date and a time with words in its long forms alone, so that the way of
// joining is taken from those and the date from the medium one.
Pattern dateAndTimePattern(const icu::Locale& user, UErrorCode& status) {
  const std::unique_ptr<icu::DateTimePatternGenerator> generator(
      icu::DateTimePatternGenerator::createInstance(user, status));
  if (U_FAILURE(status)) return {};
  Pattern pattern = generator->getDateTimeFormat(UDAT_LONG, status);
  pattern.findAndReplace("{1}", datePattern(user, status));
  pattern.findAndReplace(
      "{0}", patternOf(icu::DateFormat::createTimeInstance(icu::DateFormat::kShort, user)));
  return pattern;
}

}  // namespace

class DateText::Format {
 public:
  using MakePattern = Pattern(const icu::Locale& user, UErrorCode& status);

  explicit Format(MakePattern& makePattern)
      : format_(makePattern(icu::Locale(), status_), icu::Locale(), status_) {}

  // In the format of `made`, which is made with `makePattern` unless it has been.
  static std::string text(std::unique_ptr<Format>& made, MakePattern& makePattern, Date date) {
    if (made == nullptr) made = std::make_unique<Format>(makePattern);
    return made->text(date);
  }

 private:
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

  UErrorCode status_ = U_ZERO_ERROR;
  icu::SimpleDateFormat format_;
};

DateText::DateText() = default;

DateText::~DateText() = default;

std::string DateText::date(Date date) const { return Format::text(date_, datePattern, date); }

std::string DateText::dateAndTime(Date date) const {
  return Format::text(dateAndTime_, dateAndTimePattern, date);
}

void setLanguage(const std::string& name) {
  UErrorCode status = U_ZERO_ERROR;
  icu::Locale::setDefault(icu::Locale(name.c_str()), status);
}

}  // namespace broomtide

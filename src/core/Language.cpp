#include "core/Language.h"

#include <unicode/locid.h>

namespace broomtide {

void setLanguage(const std::string& name) {
  UErrorCode status = U_ZERO_ERROR;
  icu::Locale::setDefault(icu::Locale(name.c_str()), status);
}

}  // namespace broomtide

#pragma once

#include <string>

namespace broomtide {

/// Makes this language, such as "de_AT", the one in which dates and the order of names are shown
/// from now on, whatever the surroundings of the program say. No other thread may be showing
/// anything meanwhile.
void setLanguage(const std::string& name);

}  // namespace broomtide

#pragma once

#include <QWidget>
#include <string>
#include <vector>

namespace broomtide::test {

/// What is wrong with the texts of a window in the pseudo-language, with all its parts that are to
/// be seen: a letter without an accent was not translated, and a text without both its marks, with
/// dots or reaching beyond its part cannot be read to its end. Labels that are made to be shortened
/// may be. Names in it must have no letters.
std::vector<std::string> unreadable(QWidget& window);

/// The texts of a window in any language that reach beyond the part that draws them.
std::vector<std::string> cutOff(QWidget& window);

}  // namespace broomtide::test

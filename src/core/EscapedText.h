#pragma once

#include <string>
#include <string_view>

namespace broomtide {

/// A name as people can be shown it, on a terminal or in a window: what could start a new line,
/// move the cursor, change colours, turn the direction of the text or stay unseen becomes a visible
/// escape such as \n, \x1b or \u202e, a backslash is doubled, and bytes that are not UTF-8 become
/// U+FFFD. The result takes one line.
std::string escaped(std::string_view name);

/// Whether anything of a name can only be shown as something else: characters that deceive or
/// bytes that are not UTF-8. A backslash does not count.
bool hasUnusualCharacters(std::string_view name);

}  // namespace broomtide

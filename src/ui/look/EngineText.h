#pragma once

#include <QString>
#include <string_view>

/// What the engine says, which is English, in the language of the window. Texts that nobody has
/// translated stay as they are.
namespace broomtide::ui::enginetext {

/// A constant of the engine: a title, a category, what a folder dialog says.
QString title(std::string_view constant);

/// A constant or a sentence that may hold names, which are shown as `display::text` shows them.
QString statement(std::string_view text);

/// Where a scan is: one of its phases, or a path, which is shown as `display::text` shows it even
/// if it reads like a title.
QString place(std::string_view progress);

}  // namespace broomtide::ui::enginetext

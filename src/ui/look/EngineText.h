#pragma once

#include <QString>
#include <string_view>

#include "core/Messages.h"

/// What the engine says, which is English, in the language of the window. Texts that nobody has
/// translated stay as they are.
namespace broomtide::ui::enginetext {

/// A constant of the engine: a title, a category, what a folder dialog says.
QString title(std::string_view constant);

/// A sentence without places, or a text of the system; what is no such constant is shown as
/// `display::text` shows it.
QString statement(std::string_view text);

/// A sentence with its values, names among them as `display::text` shows them.
QString sentence(const Message& message);

}  // namespace broomtide::ui::enginetext

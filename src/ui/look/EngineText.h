#pragma once

#include <QString>
#include <string_view>

#include "core/Messages.h"

/// Translates the English texts of the engine, in the translation context "Engine". A text without
/// a translation stays as it is.
namespace broomtide::ui::enginetext {

/// A constant of the engine: a title, a category, what a folder dialog says.
QString title(std::string_view constant);

/// A sentence without placeholders, or a text of the system, as `display::text` shows it.
QString statement(std::string_view text);

/// A sentence with its placeholders replaced, as `display::text` shows it. The pattern is
/// translated first, in the plural form of its count.
QString sentence(const Message& message);

}  // namespace broomtide::ui::enginetext

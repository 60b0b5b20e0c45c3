#pragma once

#include <QStringList>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/Date.h"

/// Values as the window shows them, in its language and locale. For the main thread alone.
namespace broomtide::ui::display {

/// Names, paths and messages that may hold names, with escapes for what could deceive (`escaped`).
/// When letters run from right to left, left-to-right marks (U+200E) keep the bidirectional
/// algorithm from reordering the components of a path and the text around it.
QString text(std::string_view bytes);

/// A result of text() or name() without those marks, for the clipboard and for accessible texts.
QString unmarked(QString text);

/// A word of warning about a name that text() shows with escapes; empty for others.
QString warning(std::string_view name);

/// The last component of a path, as text() shows it.
QString name(std::string_view path);

/// A path that is safe to paste into a shell as one line: itself, or quoted as $'...' when it holds
/// control characters, characters that deceive or bytes that are not UTF-8. Spaces are not quoted.
QString pasteable(const std::string& path);

/// A size in bytes, such as 1.2 GB in English.
QString size(std::int64_t bytes);

/// A count, without grouping of its digits.
QString count(std::int64_t number);

/// A count for the plural forms of tr(), clamped to what these can take.
int quantity(std::int64_t number);

/// A date without its time, or `fallback` when there is none.
QString date(const std::optional<Date>& date, const QString& fallback);

/// A date with a short time.
QString dateAndTime(Date date);

/// The parts of one line with a separator between them, those that are empty left out.
QString joined(QStringList parts, const QString& separator = QStringLiteral(" · "));

}  // namespace broomtide::ui::display

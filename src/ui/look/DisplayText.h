#pragma once

#include <QStringList>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/Date.h"

/// Values as people read them in the window.
namespace broomtide::ui::display {

/// Names, paths and messages that may hold names: what could deceive is shown as an escape. Letters
/// that run from right to left stay, and directional marks keep the components of a path in their
/// order and the text around where it is.
QString text(std::string_view bytes);

/// What text() and name() gave without those marks, for what can be copied or is read aloud.
QString unmarked(QString text);

/// A word of warning about a name that holds what text() shows as something else; empty for others.
QString warning(std::string_view name);

/// The last component of a path.
QString name(std::string_view path);

/// A path as it can be pasted into a terminal: itself, or quoted for a shell when it holds what
/// would end the line, steer the terminal, deceive the eye or not be text.
QString pasteable(const std::string& path);

/// A size in bytes, such as 1.2 GB in English.
QString size(std::int64_t bytes);

/// A count, without grouping of its digits.
QString count(std::int64_t number);

/// A count for texts whose words depend on it: the number, or the nearest that they can have.
int quantity(std::int64_t number);

/// A date without its time, or `otherwise` when there is none.
QString date(const std::optional<Date>& date, const QString& fallback);

/// A date with a short time.
QString dateAndTime(Date date);

/// The parts of one line with a separator between them, those that are empty left out.
QString joined(QStringList parts, const QString& separator = QStringLiteral(" · "));

}  // namespace broomtide::ui::display

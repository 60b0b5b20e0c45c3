#pragma once

#include <QStringList>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/Date.h"

/// Values as people read them in the window.
namespace broomtide::ui::display {

/// Names, paths and messages that may hold names: what could deceive is shown as an escape.
QString text(std::string_view bytes);

/// The last component of a path.
QString name(std::string_view path);

/// A path as it can be pasted into a terminal: itself, or quoted for a shell when it holds
/// characters that would end the line or steer the terminal.
QString pasteable(const std::string& path);

/// A size in bytes, such as 1.2 GB.
QString size(std::int64_t bytes);

/// A count, without grouping of its digits.
QString count(std::int64_t number);

/// A date without its time, or `otherwise` when there is none.
QString date(const std::optional<Date>& date, const QString& otherwise);

/// A date with a short time.
QString dateAndTime(Date date);

/// The parts of one line, those that are empty left out.
QString joined(QStringList parts);

}  // namespace broomtide::ui::display

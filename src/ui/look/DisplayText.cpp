#include "ui/look/DisplayText.h"

#include <algorithm>

#include "core/ByteCount.h"
#include "core/DateText.h"
#include "core/Paths.h"
#include "core/VisibleText.h"

namespace broomtide::ui::display {
namespace {

// Shown on one thread alone, and slow to make.
const DateText& dates() {
  static const DateText formats;
  return formats;
}

}  // namespace

QString text(std::string_view bytes) { return QString::fromStdString(visible(bytes)); }

QString name(std::string_view path) { return text(paths::lastComponent(path)); }

QString pasteable(const std::string& path) {
  const bool isPlain = std::ranges::none_of(path, [](char character) {
    constexpr char erase = 0x7F;
    return (character >= 0 && character < ' ') || character == erase;
  });
  if (isPlain) return QString::fromStdString(path);
  return QStringLiteral("$'%1'").arg(text(path).replace(u'\'', QStringLiteral("\\'")));
}

QString size(std::int64_t bytes) { return QString::fromStdString(formatByteCount(bytes)); }

QString count(std::int64_t number) { return QString::number(number); }

QString date(const std::optional<Date>& date, const QString& otherwise) {
  return date ? QString::fromStdString(dates().date(*date)) : otherwise;
}

QString dateAndTime(Date date) { return QString::fromStdString(dates().dateAndTime(date)); }

QString joined(QStringList parts) {
  parts.removeAll(QString());
  return parts.join(QStringLiteral(" · "));
}

}  // namespace broomtide::ui::display

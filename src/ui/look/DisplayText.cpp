#include "ui/look/DisplayText.h"

#include <QCoreApplication>
#include <QLocale>
#include <algorithm>
#include <array>
#include <limits>
#include <memory>

#include "core/ByteCount.h"
#include "core/DateText.h"
#include "core/EscapedText.h"
#include "core/Paths.h"
#include "core/Utf8.h"

namespace broomtide::ui::display {
namespace {

class DisplayText {
  Q_DECLARE_TR_FUNCTIONS(DisplayText)
};

// Cached until the default locale changes, because the formats are slow to make.
const DateText& dates() {
  static QLocale language;
  static auto formats = std::make_unique<DateText>();
  if (language != QLocale()) {
    language = QLocale();
    formats = std::make_unique<DateText>();
  }
  return *formats;
}

struct Unit {
  std::string_view name;
  const char* amount;
};

constexpr std::array units{
    Unit{"byte", QT_TRANSLATE_NOOP("DisplayText", "%1 byte")},
    Unit{"bytes", QT_TRANSLATE_NOOP("DisplayText", "%1 bytes")},
    Unit{"KB", QT_TRANSLATE_NOOP("DisplayText", "%1 KB")},
    Unit{"MB", QT_TRANSLATE_NOOP("DisplayText", "%1 MB")},
    Unit{"GB", QT_TRANSLATE_NOOP("DisplayText", "%1 GB")},
    Unit{"TB", QT_TRANSLATE_NOOP("DisplayText", "%1 TB")},
    Unit{"PB", QT_TRANSLATE_NOOP("DisplayText", "%1 PB")},
    Unit{"EB", QT_TRANSLATE_NOOP("DisplayText", "%1 EB")},
};

// English keeps its point in countries where others write a comma.
QString decimalPoint() {
  const QLocale user;
  return user.language() == QLocale::English ? QStringLiteral(".") : user.decimalPoint();
}

// In a name it would be escaped, so each one in a shown text was put there by text().
constexpr QChar leftToRightMark(0x200E);

bool hasRightToLeftText(const QString& text) {
  return std::ranges::any_of(text.toUcs4(), [](uint character) {
    const QChar::Direction direction = QChar::direction(character);
    return direction == QChar::DirR || direction == QChar::DirAL || direction == QChar::DirAN;
  });
}

// One character, or bytes that are none, as a shell reads them between $' and '.
QString quoted(std::string_view bytes, const utf8::Sequence& character) {
  if (bytes == "'") return QStringLiteral("\\'");
  const bool hasOtherForm = hasUnusualCharacters(bytes) && (bytes.size() > 1 || !character.isValid);
  if (!hasOtherForm) return QString::fromStdString(escaped(bytes));
  QString result;
  constexpr int hexadecimal = 16;
  for (const char byte : bytes) {
    result += "\\x" + QString::number(static_cast<unsigned char>(byte), hexadecimal);
  }
  return result;
}

}  // namespace

QString text(std::string_view bytes) {
  QString shown = QString::fromStdString(escaped(bytes));
  if (!hasRightToLeftText(shown)) return shown;
  shown.replace(u'/', QString(u'/') + leftToRightMark);
  return leftToRightMark + shown + leftToRightMark;
}

QString unmarked(QString text) { return text.remove(leftToRightMark); }

QString warning(std::string_view name) {
  if (!hasUnusualCharacters(name)) return {};
  return DisplayText::tr("Unusual characters");
}

QString name(std::string_view path) { return text(paths::lastComponent(path)); }

QString pasteable(const std::string& path) {
  if (!hasUnusualCharacters(path)) return QString::fromStdString(path);
  QString word;
  for (std::string_view rest = path; !rest.empty();) {
    const utf8::Sequence character = utf8::decode(rest);
    word += quoted(rest.substr(0, character.length), character);
    rest.remove_prefix(character.length);
  }
  return "$'" + word + "'";
}

QString size(std::int64_t bytes) {
  if (bytes == 0) return DisplayText::tr("Zero KB");
  const ByteCount count = byteCount(bytes);
  const Unit* unit = std::ranges::find(units, count.unit, &Unit::name);
  QString number = QString::fromStdString(count.number);
  return DisplayText::tr(unit->amount).arg(number.replace(u'.', decimalPoint()));
}

QString count(std::int64_t number) { return QString::number(number); }

int quantity(std::int64_t number) {
  using Limits = std::numeric_limits<int>;
  return static_cast<int>(std::clamp<std::int64_t>(number, Limits::min(), Limits::max()));
}

QString date(const std::optional<Date>& date, const QString& fallback) {
  return date ? QString::fromStdString(dates().date(*date)) : fallback;
}

QString dateAndTime(Date date) { return QString::fromStdString(dates().dateAndTime(date)); }

QString joined(QStringList parts, const QString& separator) {
  parts.removeAll(QString());
  return parts.join(separator);
}

}  // namespace broomtide::ui::display

#include "ui/look/EngineText.h"

#include <QCoreApplication>
#include <array>
#include <charconv>
#include <optional>
#include <span>
#include <string>
#include <system_error>
#include <vector>

#include "ui/look/DisplayText.h"

namespace broomtide::ui::enginetext {
namespace {

constexpr const char* context = "Engine";

// What stands at one place of a sentence.
enum class Value {
  name,      // put back as it is
  constant,  // a constant of the engine, if it is that
  titles,    // constants of the engine with commas between, if they are that
  count,     // a number, which decides about the form of what is around
};

// What the engine says with something in it, or in words that stand in none of its tables.
struct Sentence {
  const char* english;
  std::array<Value, 2> values = {};
};

constexpr std::array phases{
    Sentence{QT_TRANSLATE_NOOP("Engine", "Preparing scan…")},
    Sentence{QT_TRANSLATE_NOOP("Engine", "Scanning Downloads…")},
    Sentence{QT_TRANSLATE_NOOP("Engine", "Scan complete")},
    Sentence{QT_TRANSLATE_NOOP("Engine", "Calculating %1…")},
    Sentence{QT_TRANSLATE_N_NOOP("Engine", "Detected %n project context(s)…"), {Value::count}},
};

constexpr std::array sentences{
    Sentence{QT_TRANSLATE_NOOP("Engine", "Detected %1 project from %2."), {Value::titles}},
    Sentence{QT_TRANSLATE_NOOP("Engine", "Well-known developer cache location (~/%1).")},
    Sentence{
        QT_TRANSLATE_NOOP("Engine",
                          "No known developer cache locations were found under “%1”. When scanning "
                          "developer caches, select your home folder (%2) in the picker."),
        {Value::name, Value::constant}},
    Sentence{QT_TRANSLATE_NOOP("Engine", "your home folder")},
    Sentence{QT_TRANSLATE_NOOP("Engine",
                               "Recognized artifact signature, but no supported project "
                               "manifest was found nearby.")},
    Sentence{QT_TRANSLATE_NOOP("Engine", "The path is ignored by Git.")},
    Sentence{
        QT_TRANSLATE_NOOP("Engine", "The path is untracked, but not explicitly ignored by Git.")},
    Sentence{QT_TRANSLATE_NOOP("Engine", "Git status could not be verified.")},
    Sentence{QT_TRANSLATE_NOOP("Engine", "No Git repository was detected for this project.")},
    Sentence{QT_TRANSLATE_NOOP(
        "Engine", "This is a generic artifact name, so Broomtide requires manual selection.")},
    Sentence{QT_TRANSLATE_NOOP("Engine", "The artifact name and project ecosystem agree.")},
    Sentence{QT_TRANSLATE_NOOP("Engine", "Matched the Downloads cleanup rule.")},
    Sentence{QT_TRANSLATE_NOOP("Engine", "Skipped an item outside the selected folder.")},
    Sentence{QT_TRANSLATE_NOOP("Engine", "The item disappeared while it was being scanned.")},
    Sentence{QT_TRANSLATE_NOOP("Engine", "Scan cancelled. No files were changed.")},
    Sentence{QT_TRANSLATE_NOOP(
        "Engine", "Cleanup finished, but Broomtide could not save the local history.")},
};

using Parts = std::vector<std::string_view>;

// What stands in `text` for each placeholder of `pattern`; nothing when it is another text. The
// placeholders of English patterns come in their order and never one right after another.
std::optional<Parts> valuesIn(std::string_view text, std::string_view pattern) {
  Parts values;
  for (;;) {
    const std::size_t before = pattern.find('%');
    if (before == std::string_view::npos) break;
    if (!text.starts_with(pattern.substr(0, before))) return std::nullopt;
    text.remove_prefix(before);
    pattern.remove_prefix(before + 2);
    const std::string_view after = pattern.substr(0, pattern.find('%'));
    const std::size_t end = after.size() == pattern.size() ? text.rfind(after) : text.find(after);
    if (end == std::string_view::npos) return std::nullopt;
    values.push_back(text.substr(0, end));
    text.remove_prefix(end);
  }
  return text == pattern ? std::optional(values) : std::nullopt;
}

// The bytes of a text that nobody has translated stay, even those that are no characters.
std::string translated(std::string_view english, int count = -1) {
  const std::string key(english);
  const QString text = QCoreApplication::translate(context, key.c_str(), nullptr, count);
  return text == QString::fromStdString(key) ? key : text.toStdString();
}

std::string translatedList(std::string_view titles) {
  constexpr std::string_view comma = ", ";
  std::string result;
  for (;;) {
    const std::size_t end = titles.find(comma);
    result += translated(titles.substr(0, end));
    if (end == std::string_view::npos) return result;
    result += comma;
    titles.remove_prefix(end + comma.size());
  }
}

// Placeholders in the values themselves are not looked at.
std::string filledIn(std::string_view pattern, const std::vector<std::string>& values) {
  std::string result;
  for (std::size_t at = 0; at < pattern.size(); ++at) {
    const std::size_t number = pattern[at] == '%' && at + 1 < pattern.size()
                                   ? std::size_t(pattern[at + 1] - '1')
                                   : values.size();
    if (number < values.size()) {
      result += values[number];
      ++at;
    } else {
      result += pattern[at];
    }
  }
  return result;
}

std::optional<int> wholeNumber(std::string_view text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

// A name can look like a sentence that counts.
bool hasItsCount(const Sentence& sentence, const Parts& found) {
  return sentence.values.front() != Value::count || wholeNumber(found.front());
}

std::string inOtherWords(const Sentence& sentence, const Parts& found) {
  std::vector<std::string> values;
  for (std::size_t place = 0; place < found.size(); ++place) {
    const std::string_view value = found[place];
    switch (sentence.values.at(place)) {
      case Value::name:
        values.emplace_back(value);
        break;
      case Value::constant:
        values.push_back(translated(value));
        break;
      case Value::titles:
        values.push_back(translatedList(value));
        break;
      case Value::count:
        return translated(sentence.english, wholeNumber(value).value_or(0));
    }
  }
  return filledIn(translated(sentence.english), values);
}

std::optional<std::string> among(std::span<const Sentence> known, std::string_view text) {
  for (const Sentence& sentence : known) {
    const std::optional<Parts> values = valuesIn(text, sentence.english);
    if (values && hasItsCount(sentence, *values)) return inOtherWords(sentence, *values);
  }
  return std::nullopt;
}

}  // namespace

QString title(std::string_view constant) { return QString::fromStdString(translated(constant)); }

QString statement(std::string_view text) {
  const std::optional<std::string> sentence = among(sentences, text);
  return display::text(sentence ? *sentence : translated(text));
}

QString place(std::string_view progress) {
  const std::optional<std::string> phase = among(phases, progress);
  return display::text(phase ? *phase : std::string(progress));
}

}  // namespace broomtide::ui::enginetext

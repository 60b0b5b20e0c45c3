#include "ui/look/EngineText.h"

#include <QCoreApplication>
#include <string>
#include <vector>

#include "ui/look/DisplayText.h"

namespace broomtide::ui::enginetext {
namespace {

// A text without a translation keeps its bytes: QString would replace those that are not UTF-8.
std::string translated(std::string_view english, int count = -1) {
  const std::string key(english);
  const QString text = QCoreApplication::translate("Engine", key.c_str(), nullptr, count);
  return text == QString::fromStdString(key) ? key : text.toStdString();
}

std::string textOf(const MessageValue& value) {
  std::string text = value.text;
  for (const std::string& term : value.terms) {
    if (!text.empty()) text += ", ";
    text += translated(term);
  }
  return text;
}

}  // namespace

QString title(std::string_view constant) { return QString::fromStdString(translated(constant)); }

QString statement(std::string_view text) { return display::text(translated(text)); }

QString sentence(const Message& message) {
  std::vector<std::string> texts;
  for (const MessageValue& value : message.values) texts.push_back(textOf(value));
  const int count = hasCount(message.pattern) ? QString::fromStdString(texts.front()).toInt() : -1;
  const bool isBare = message.pattern == messages::bare;
  return display::text(isBare ? texts.front() : filled(translated(message.pattern, count), texts));
}

}  // namespace broomtide::ui::enginetext

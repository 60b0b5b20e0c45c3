#include "core/Messages.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace broomtide {
namespace {

std::string joined(const std::vector<std::string>& parts) {
  std::string result;
  for (const std::string& part : parts) {
    if (!result.empty()) result += ", ";
    result += part;
  }
  return result;
}

// Which text a place stands for; beyond all texts when there is no place.
std::size_t numberOfPlace(std::string_view pattern, std::size_t at) {
  const bool isPlace = pattern[at] == '%' && at + 1 < pattern.size();
  if (!isPlace) return std::string_view::npos;
  return pattern[at + 1] == 'n' ? 0 : static_cast<std::size_t>(pattern[at + 1] - '1');
}

// A scan makes two labels for each item that it finds. Lists of initializers would copy them.
Message messageWith(std::string_view pattern, MessageValue value) {
  Message message{.pattern = pattern, .values = {}};
  message.values.push_back(std::move(value));
  return message;
}

}  // namespace

MessageValue nameValue(std::string name) { return {.text = std::move(name)}; }

MessageValue namesValue(const std::vector<std::string>& names) { return nameValue(joined(names)); }

MessageValue termsValue(std::vector<std::string> terms) { return {.terms = std::move(terms)}; }

MessageValue countValue(std::size_t count) { return {.text = std::to_string(count)}; }

std::string Message::text() const {
  std::vector<std::string> texts;
  texts.reserve(values.size());
  for (const MessageValue& value : values) {
    texts.push_back(value.terms.empty() ? value.text : joined(value.terms));
  }
  return filled(pattern, texts);
}

Message naming(std::string_view pattern, std::string name) {
  return messageWith(pattern, nameValue(std::move(name)));
}

bool hasCount(std::string_view pattern) { return pattern.find("%n") != pattern.npos; }

bool isCaution(const Message& reason) {
  return std::ranges::find(messages::cautions, reason.pattern) != messages::cautions.end();
}

Message bareName(std::string name) { return naming(messages::bare, std::move(name)); }

Message bareSentence(std::string text) {
  return messageWith(messages::bare, termsValue({std::move(text)}));
}

Message messageOf(const std::exception& error) {
  if (const auto* failure = dynamic_cast<const std::system_error*>(&error)) {
    return bareSentence(failure->code().message());
  }
  return bareSentence(error.what());
}

std::string filled(std::string_view pattern, const std::vector<std::string>& texts) {
  std::string result;
  for (std::size_t at = 0; at < pattern.size(); ++at) {
    const std::size_t number = numberOfPlace(pattern, at);
    if (number < texts.size()) {
      result += texts[number];
      ++at;
    } else {
      result += pattern[at];
    }
  }
  return result;
}

}  // namespace broomtide

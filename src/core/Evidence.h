#pragma once

#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace broomtide {

/// The reasons for a judgement, one line each. They never change, and copies share them, because
/// neighbouring items are mostly judged for the same reasons.
class Evidence {
 public:
  Evidence() = default;  ///< no reasons
  Evidence(std::initializer_list<std::string> lines) : Evidence(std::vector(lines)) {}
  explicit Evidence(std::vector<std::string> lines)
      : lines_(std::make_shared<const std::vector<std::string>>(std::move(lines))) {}

  const std::vector<std::string>& lines() const {
    static const std::vector<std::string> none;
    return lines_ ? *lines_ : none;
  }

  bool operator==(const Evidence& other) const {
    return lines_ == other.lines_ || lines() == other.lines();
  }

 private:
  std::shared_ptr<const std::vector<std::string>> lines_;
};

}  // namespace broomtide

#include "app/ErrorText.h"

#include <system_error>

namespace broomtide {

std::string errorText(const std::exception& error) {
  if (const auto* failure = dynamic_cast<const std::system_error*>(&error)) {
    return failure->code().message();
  }
  return error.what();
}

}  // namespace broomtide

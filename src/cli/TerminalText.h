#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace broomtide::cli {

/// The number of columns that a visible text takes on a terminal.
std::size_t displayWidth(std::string_view text);

/// A visible text shortened in its middle so that it takes no more than `most` columns.
std::string elideMiddle(std::string_view text, std::size_t most);

/// The blanks that fill a column of `width` in which `used` columns are taken; none when it is
/// full.
std::string padding(std::size_t used, std::size_t width);

/// Whether the descriptor is a terminal that understands escape sequences.
bool takesEscapes(int descriptor);

/// A text in colours, or as it is when colours are off.
class TerminalStyle {
 public:
  enum class Role { heading, safe, usuallySafe, reviewFirst, quiet };

  explicit TerminalStyle(bool hasColours) : hasColours_(hasColours) {}

  /// Colours when the descriptor takes escape sequences and the user has not set NO_COLOR.
  static TerminalStyle forDescriptor(int descriptor);

  std::string operator()(Role role, std::string_view text) const;

 private:
  bool hasColours_;
};

}  // namespace broomtide::cli

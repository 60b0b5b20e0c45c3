// Prints the constant texts of the engine as a source file from which lupdate takes them:
// broomtide-engine-texts.

#include <cstdio>

#include "support/EngineTexts.h"

namespace {

std::string quoted(const std::string& text) {
  std::string result = "\"";
  for (const char character : text) {
    if (character == '"' || character == '\\') result += '\\';
    result += character;
  }
  return result + '"';
}

}  // namespace

int main() {
  std::puts("const char* const texts[] = {");
  for (const std::string& text : broomtide::test::engineTexts())
    std::printf("    %s(\"Engine\", %s),\n",
                text.find("%n") == std::string::npos ? "QT_TRANSLATE_NOOP" : "QT_TRANSLATE_N_NOOP",
                quoted(text).c_str());
  std::puts("};");
  return std::fflush(stdout) == 0 ? 0 : 1;
}

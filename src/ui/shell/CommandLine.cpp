#include "ui/shell/CommandLine.h"

#include <QCoreApplication>
#include <QtGlobal>
#include <cstdio>
#include <string_view>

#include "app/Services.h"
#include "ui/look/DisplayText.h"
#include "ui/look/EngineText.h"
#include "ui/shell/Languages.h"

namespace broomtide::ui::commandline {
namespace {

constexpr int done = 0;
constexpr int failed = 1;
constexpr int usageError = 2;

class CommandLine {
  Q_DECLARE_TR_FUNCTIONS(CommandLine)
};

// Translators are installed on an application object; this kind needs no display.
class ConsoleApplication {
 public:
  ConsoleApplication() : application_(argumentCount_, nullptr) {
    languages::use(languages::preferred());
  }

 private:
  int argumentCount_ = 0;
  QCoreApplication application_;
};

QString help() {
  return CommandLine::tr(
      "Usage: broomtide\n"
      "Opens the window that finds disposable developer files and moves them to the Trash.\n"
      "\n"
      "  -h, --help     print this and exit\n"
      "  -v, --version  print the version and exit\n"
      "\n"
      "Qt's own options, such as -platform, are understood too. broomtide-cli does the same in a\n"
      "terminal.\n");
}

void print(const QString& text, std::FILE* stream) { std::fputs(qPrintable(text), stream); }

bool hasDisplay(const QStringList& arguments) {
  return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
         qEnvironmentVariableIsSet("QT_QPA_PLATFORM") || arguments.contains("-platform") ||
         arguments.contains("--platform");
}

}  // namespace

std::optional<int> answerWithoutWindow(const QStringList& arguments) {
  if (arguments.contains("--help") || arguments.contains("-h")) {
    const ConsoleApplication application;
    print(help(), stdout);
    return done;
  }
  if (arguments.contains("--version") || arguments.contains("-v")) {
    std::puts("broomtide " BROOMTIDE_VERSION);
    return done;
  }
  const std::optional<std::string_view> refusal = services::refusal();
  if (!refusal && hasDisplay(arguments)) return std::nullopt;
  const ConsoleApplication application;
  if (refusal) {
    print("broomtide: " + enginetext::title(*refusal) + '\n', stderr);
    return failed;
  }
  print(CommandLine::tr("broomtide: There is no display to open a window on. In a terminal, use "
                        "broomtide-cli.\n"),
        stderr);
  return failed;
}

std::optional<int> rejection(const QStringList& arguments) {
  if (arguments.size() < 2) return std::nullopt;
  print(CommandLine::tr("broomtide: '%1' is not understood; the window takes no folder.\n"
                        "Run broomtide --help for more information.\n")
            .arg(display::text(arguments[1].toStdString())),
        stderr);
  return usageError;
}

}  // namespace broomtide::ui::commandline

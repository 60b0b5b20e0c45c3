#include "ui/shell/Website.h"

namespace broomtide::ui::website {

QString root() { return QStringLiteral("https://broomtide.example/"); }

QString updates() { return root() + QStringLiteral("releases/"); }

QString privacyPolicy() { return root() + QStringLiteral("docs/privacy/"); }

}  // namespace broomtide::ui::website

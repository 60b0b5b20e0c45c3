#pragma once

#include <QString>

/// Addresses of the product's website.
namespace broomtide::ui::website {

QString root();
QString updates();
QString privacyPolicy();

}  // namespace broomtide::ui::website

#pragma once

#include <QStringList>

/// The languages that the window speaks: English, and those whose translations are built in.
namespace broomtide::ui::languages {

/// The languages that people want, the most welcome first, by LANGUAGE, LC_ALL, LC_MESSAGES and
/// LANG; none where no language is set.
QStringList preferred();

/// The languages that are built in, such as "zh_CN".
QStringList builtIn();

/// Makes the first of these languages that the window speaks the one of the application, with
/// Qt's own texts, sizes, dates and the order of names. Without one the window is in English, and
/// the rest as it was. Needs an application, and no window yet.
void use(const QStringList& languages);

}  // namespace broomtide::ui::languages

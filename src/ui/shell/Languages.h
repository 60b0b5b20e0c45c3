#pragma once

#include <QStringList>

/// The translators and the locale of the window. Its languages are English and those whose
/// translations are built in; Languages.cpp explains how one is chosen.
namespace broomtide::ui::languages {

/// The user's languages in order of preference, as locale names, by LANGUAGE, LC_ALL, LC_MESSAGES
/// and LANG; none in the C locale.
QStringList preferred();

/// The locale names of the built-in translations, such as "zh_CN".
QStringList builtIn();

/// Uses the first of these that is one of the window's languages: installs its translators and
/// makes it the default locale. Without one, the window is in English and the locale stays.
/// REQUIRES: there is a QCoreApplication, which owns the translators, and no widget yet.
void use(const QStringList& languages);

}  // namespace broomtide::ui::languages

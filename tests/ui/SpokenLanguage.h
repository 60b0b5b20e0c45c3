#pragma once

#include <QStringList>

namespace broomtide::test {

/// The window speaks another language as long as this lives, and English again afterwards.
class SpokenLanguage {
 public:
  /// The first of these that it speaks. "pseudo" is a language that nobody speaks: every text has
  /// accents on all its letters, is a third longer and stands between ⟦ and ⟧, so that what is not
  /// translated, or not all to be seen, stands out. Its dates have no letters.
  explicit SpokenLanguage(const QStringList& languages);
  ~SpokenLanguage();

  SpokenLanguage(const SpokenLanguage&) = delete;
  SpokenLanguage& operator=(const SpokenLanguage&) = delete;
};

}  // namespace broomtide::test

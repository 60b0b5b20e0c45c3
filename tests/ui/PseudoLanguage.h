#pragma once

#include <QTranslator>

namespace broomtide::test {

/// A language that nobody speaks: every text with accents on all its letters, a third longer and
/// between ⟦ and ⟧, so that what is not translated, or not all to be seen, stands out.
class PseudoLanguage final : public QTranslator {
 public:
  using QTranslator::QTranslator;

  bool isEmpty() const override { return false; }
  QString translate(const char* context, const char* text, const char* comment,
                    int count) const override;
};

}  // namespace broomtide::test

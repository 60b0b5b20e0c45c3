#pragma once

#include <QString>
#include <QStringMatcher>
#include <string>
#include <string_view>
#include <vector>

#include "core/ScanCandidate.h"

namespace broomtide::ui {

/// Picks the candidates that hold every word of a text in their path or their category, upper and
/// lower case alike.
class CandidateFilter {
 public:
  CandidateFilter() = default;
  explicit CandidateFilter(const QString& text);

  /// Whether it picks everything.
  bool isEmpty() const { return words_.empty(); }

  bool picks(const ScanCandidate& candidate) const;

 private:
  // Most words are plain, and then the bytes of a path need not be decoded to be searched.
  struct Word {
    explicit Word(const QString& text);

    bool isIn(std::string_view text) const;

    std::string plain;  // in lower case; empty for a word with other letters than ASCII ones
    QStringMatcher any;
  };

  std::vector<Word> words_;
};

}  // namespace broomtide::ui

#pragma once

#include <QString>
#include <QStringMatcher>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/ScanCandidate.h"

namespace broomtide::ui {

/// Picks the candidates that hold every word of a text in their path or in their category as it is
/// shown, upper and lower case alike.
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

  const std::string& shownCategory(std::string_view category) const;

  std::vector<Word> words_;
  mutable std::unordered_map<std::string_view, std::string> shownCategories_;  // as they come up
};

}  // namespace broomtide::ui

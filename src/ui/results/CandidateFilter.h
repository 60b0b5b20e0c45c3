#pragma once

#include <QString>
#include <QStringMatcher>
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
  std::vector<QStringMatcher> words_;
};

}  // namespace broomtide::ui

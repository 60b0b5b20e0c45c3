#pragma once

#include <QString>

#include "core/Records.h"

/// The texts of the results list about one candidate.
namespace broomtide::ui::candidatetext {

QString safety(SafetyLevel level);

/// The named icon for a kind of candidate.
QString symbol(CandidateKind kind);

/// The third line: category, confidence, Git status and date.
QString note(const ScanCandidate& candidate);

/// The accessible text of a row: all that it shows, selected or not, expanded or not.
QString accessibleText(const ScanCandidate& candidate, bool isExpanded);

/// The accessible text of expanded details.
QString accessibleDetails(const ScanCandidate& candidate);

}  // namespace broomtide::ui::candidatetext

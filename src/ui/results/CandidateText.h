#pragma once

#include <QString>

#include "core/Records.h"

/// What a row says about its candidate.
namespace broomtide::ui::candidatetext {

QString safety(SafetyLevel level);

/// The named icon for a kind of candidate.
QString symbol(CandidateKind kind);

/// The third line: category, confidence, Git status and date.
QString note(const ScanCandidate& candidate);

/// All that a row shows, its selection and its state, for a screen reader.
QString accessibleText(const ScanCandidate& candidate, bool isExpanded);

/// All that the open details show, for a screen reader.
QString accessibleDetails(const ScanCandidate& candidate);

}  // namespace broomtide::ui::candidatetext

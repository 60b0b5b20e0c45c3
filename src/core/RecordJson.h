#pragma once

#include <nlohmann/json.hpp>

#include "core/Records.h"

/// The keyed form of records: keys are the field names in their order, locations are file URLs
/// (but the paths of issues, failures and history entries are plain paths), dates ISO 8601 in UTC,
/// absent values null, and bytes that are not UTF-8 become U+FFFD.
namespace broomtide {

nlohmann::ordered_json toJson(const ScanCandidate& candidate);
nlohmann::ordered_json toJson(const ScanIssue& issue);
nlohmann::ordered_json toJson(const ProjectContext& project);
nlohmann::ordered_json toJson(const CleanupFailure& failure);
nlohmann::ordered_json toJson(const CleanupHistoryEntry& entry);

}  // namespace broomtide

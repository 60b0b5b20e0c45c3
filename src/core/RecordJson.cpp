#include "core/RecordJson.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "core/Paths.h"
#include "core/Utf8.h"

namespace broomtide {
namespace {

using Json = nlohmann::ordered_json;

Json location(const std::optional<std::string>& path) {
  return path ? Json(paths::fileUrl(*path)) : Json(nullptr);
}

Json texts(const std::vector<std::string>& list) {
  Json result = Json::array();
  for (const std::string& item : list) result.push_back(utf8::printable(item));
  return result;
}

Json texts(const std::vector<Message>& lines) {
  Json result = Json::array();
  for (const Message& line : lines) result.push_back(utf8::printable(line.text()));
  return result;
}

Json rawValues(const std::set<ProjectKind>& kinds) {
  Json result = Json::array();
  for (const ProjectKind kind : kinds) result.push_back(rawValue(kind));
  return result;
}

}  // namespace

Json toJson(const ScanCandidate& candidate) {
  return {
      {"id", utf8::printable(candidate.id())},
      {"url", paths::fileUrl(candidate.url)},
      {"relativePath", utf8::printable(candidate.relativePath)},
      {"kind", rawValue(candidate.kind)},
      {"size", candidate.size},
      {"modificationDate",
       candidate.modificationDate ? Json(iso8601(*candidate.modificationDate)) : Json(nullptr)},
      {"category", candidate.category},
      {"safety", rawValue(candidate.safety)},
      {"explanation", candidate.explanation},
      {"fileIdentity", candidate.fileIdentity},
      {"projectRoot", location(candidate.projectRoot)},
      {"gitRoot", location(candidate.gitRoot)},
      {"projectKinds", rawValues(candidate.projectKinds)},
      {"evidence", texts(candidate.evidence.lines())},
      {"regenerationCommand", candidate.regenerationCommand
                                  ? Json(utf8::printable(candidate.regenerationCommand->text()))
                                  : Json(nullptr)},
      {"confidence", rawValue(candidate.confidence)},
      {"gitStatus", rawValue(candidate.gitStatus)},
      {"isSelected", candidate.isSelected},
  };
}

Json toJson(const ScanIssue& issue) {
  return {{"id", issue.id},
          {"path", utf8::printable(issue.path)},
          {"message", utf8::printable(issue.message)}};
}

Json toJson(const ProjectContext& project) {
  return {{"root", paths::fileUrl(project.root)},
          {"kinds", rawValues(project.kinds)},
          {"manifests", texts(project.manifests)},
          {"gitRoot", location(project.gitRoot)}};
}

Json toJson(const CleanupFailure& failure) {
  return {{"id", failure.id},
          {"path", utf8::printable(failure.path)},
          {"message", utf8::printable(failure.message.text())}};
}

Json toJson(const CleanupHistoryEntry& entry) {
  Json failures = Json::array();
  for (const CleanupFailure& failure : entry.failures) failures.push_back(toJson(failure));
  return {{"id", entry.id},
          {"date", iso8601(entry.date)},
          {"rootPath", utf8::printable(entry.rootPath)},
          {"movedCount", entry.movedCount},
          {"movedBytes", entry.movedBytes},
          {"failures", std::move(failures)}};
}

}  // namespace broomtide

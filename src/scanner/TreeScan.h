#pragma once

#include <cstdint>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

#include "context/GitInspector.h"
#include "context/ProjectDetector.h"
#include "core/ServiceInterfaces.h"
#include "platform/FileManager.h"
#include "rules/ScanRules.h"
#include "scanner/ScanReports.h"
#include "scanner/ScannerSettings.h"
#include "scanner/TreeWalk.h"

namespace broomtide {

/// One scan of a folder of projects or of a Downloads folder: everything is read ahead on other
/// threads, and judged and reported here, as if it had happened one after the other.
class TreeScan {
 public:
  /// `root` is a standardised absolute path; the mode is project or downloads. The references must
  /// outlive the scan.
  TreeScan(std::string root, ScanMode mode, Date now, FileManager& fileManager,
           const ScannerSettings& settings, ScanReports& reports, std::stop_token stop);

  /// Runs the scan, once. Throws as FileScanning::scan does.
  ScanOutcome run();

 private:
  // What a match is judged by, beside its rule.
  struct Judged {
    const ProjectContext* project = nullptr;
    const std::string* gitRoot = nullptr;
    std::vector<std::string> otherGitRoots = {};
    GitJudgement git = {};
    const Caution* caution = nullptr;
    std::string hiddenInHome = {};  // the item, when it belongs to the programs of a user

    bool operator==(const Judged&) const = default;
  };

  FileDescriptor open(int folder, const std::string& name);
  void askAroundRoot();
  void takeDiscovery(ProjectDiscovery discovery);
  void visit(const WalkStep& step);
  void visitMatch(const std::string& relativePath, const WalkMatch& match);
  Judged lookAround(const std::string& relativePath, const std::string& location,
                    const WalkMatch& match);
  Judged askGit(const std::string& location, const WalkMatch& match);
  const std::optional<RuleEvaluation>& evaluate(const ScanRule& rule, const Judged& around);
  std::optional<RuleEvaluation> judge(const ScanRule& rule, const Judged& around,
                                      const Message* proof) const;
  std::vector<Message> reasonsAround(const Judged& around) const;
  Measurement::Result measure(const std::string& location, const Message& label,
                              Measurement& measurement);
  void addIssue(const std::string& path, std::string message);

  const std::string root_;
  const std::string resolvedRoot_;
  const ScanMode mode_;
  const Date now_;
  FileManager& fileManager_;
  const ScannerSettings& settings_;
  const std::stop_token stop_;

  GitInspection git_;
  std::optional<std::string> rootsAround_;  // those of the scanned folder, if it has any
  ProjectDiscovery discovery_;
  ScanReports& reports_;

  // The last judgement, which mostly holds for the next match as well.
  const ScanRule* judgedRule_ = nullptr;
  Judged judgedAround_{};
  std::optional<RuleEvaluation> judgement_;

  std::vector<ScanIssue> issues_;
  std::int64_t entries_ = 0;  // examined so far
};

}  // namespace broomtide

#include "support/ScanRecorder.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "context/GitInspector.h"
#include "core/Paths.h"
#include "platform/PathSafety.h"
#include "scanner/DefaultFileScanner.h"

namespace broomtide::test {

ScanResult ScanRecorder::scan(const std::string& root, ScanMode mode, Date now) {
  DefaultFileScanner scanner(fileManager_, {.measuringThreads = 2,
                                            .git = GitCommand::executable(),
                                            .gitRunLimit = GitCommand::runLimit,
                                            .homeTrash = root + "/share/Trash",
                                            .homes = {PathSafety::resolved(root) + "/home"}});
  std::vector<ScanCandidate> before;
  return scanner.scan(root, mode, now,
                      [&](std::span<const ScanUpdate> told,
                          std::span<const ScanCandidate> candidates, std::size_t unchanged) {
                        ASSERT_LE(unchanged, before.size());
                        EXPECT_TRUE(std::ranges::equal(candidates.first(unchanged),
                                                       std::span(before).first(unchanged)));
                        before.assign(candidates.begin(), candidates.end());
                        ASSERT_FALSE(told.empty());
                        EXPECT_EQ(told.back().candidateCount, candidates.size());
                        for (const auto& [progress, candidateCount] : told) {
                          updates.push_back(std::to_string(progress.entriesScanned) + ' ' +
                                            std::to_string(progress.reclaimableBytes) + ' ' +
                                            progress.currentPath.text() + " (" +
                                            std::to_string(candidateCount) + ")");
                        }
                      },
                      {});
}

namespace {

FileAttributes attributesOf(const std::string& path) {
  FileAttributes attributes;
  const std::error_code error = systemFileManager().readAttributes(
      workingDirectory, path.c_str(), LinkPolicy::doNotFollow, attributes);
  if (error) throw std::system_error(error, path);
  return attributes;
}

}  // namespace

std::string identityOf(const std::string& path) { return FileIdentity::token(attributesOf(path)); }

ScanCandidate candidateBelow(const std::string& root, const std::string& relative) {
  ScanCandidate candidate;
  candidate.url = paths::appending(root, relative);
  candidate.relativePath = relative;
  const FileAttributes attributes = attributesOf(candidate.url);
  candidate.kind = attributes.isFolder() ? CandidateKind::directory : CandidateKind::file;
  candidate.modificationDate = attributes.modificationDate;
  candidate.fileIdentity = FileIdentity::token(attributes);
  return candidate;
}

std::vector<std::string> pathsOf(const ScanResult& result) {
  std::vector<std::string> paths;
  for (const ScanCandidate& candidate : result.candidates) paths.push_back(candidate.relativePath);
  return paths;
}

std::vector<std::string> issuesOf(const ScanResult& result, const std::string& root) {
  std::vector<std::string> issues;
  for (const ScanIssue& issue : result.issues) {
    issues.push_back(paths::relativePath(issue.path, root) + ": " + issue.message);
  }
  return issues;
}

}  // namespace broomtide::test

#include "scanner/WalkRecord.h"

#include <random>

namespace broomtide {
namespace {

std::string describe(const WalkStep& step) {
  switch (step.kind) {
    case WalkStep::Kind::passedOver:
      return "passed over";
    case WalkStep::Kind::unmatched:
      return "unmatched " + step.relativePath();
    case WalkStep::Kind::matched:
      return "matched " + step.relativePath() + ' ' + step.match->error.message();
    case WalkStep::Kind::entryIssue:
      return "entry " + step.relativePath() + ' ' + *step.issue;
    case WalkStep::Kind::folderIssue:
      return "folder " + step.relativePath() + ' ' + *step.issue;
  }
  return {};
}

// What is read is what was written, wherever the walk went and however it was cut into batches.
TEST(WalkRecord, GivesBackEveryStep) {
  std::mt19937 random(1);
  const auto below = [&random](std::size_t end) { return random() % end; };
  WalkWriter writer;
  WalkReader reader;
  std::string folder;
  for (int batch = 0; batch < 200; ++batch) {
    std::vector<std::string> written;
    for (std::size_t step = below(20); step > 0; --step) {
      for (std::size_t up = below(4); up > 0 && !folder.empty(); --up) {
        const std::size_t slash = folder.rfind('/');
        folder.resize(slash == std::string::npos ? 0 : slash);
      }
      for (std::size_t down = below(4); down > 0; --down) {
        folder += (folder.empty() ? "" : "/") + std::string(below(5) + 1, 'a');
      }
      const std::string name(below(5) + 1, 'b');
      const std::string path = folder.empty() ? name : folder + "/" + name;
      const std::error_code error(static_cast<int>(below(100)), std::generic_category());
      switch (below(5)) {
        case 0:
          writer.addPassedOver();
          written.emplace_back("passed over");
          break;
        case 1:
          writer.addUnmatched(folder, name);
          written.push_back("unmatched " + path);
          break;
        case 2: {
          WalkMatch match;
          match.error = error;
          writer.addMatch(folder, name, match);
          written.push_back("matched " + path + ' ' + error.message());
          break;
        }
        case 3:
          writer.addEntryIssue(folder, name, error.message());
          written.push_back("entry " + path + ' ' + error.message());
          break;
        default:
          writer.addFolderIssue(folder, error.message());
          written.push_back("folder " + folder + ' ' + error.message());
      }
    }
    reader.begin(writer.take());
    std::vector<std::string> read;
    while (const WalkStep* step = reader.next()) read.push_back(describe(*step));
    EXPECT_EQ(read, written);
  }
}

}  // namespace
}  // namespace broomtide

#include "scanner/WalkSteps.h"

#include <random>

namespace broomtide {
namespace {

std::string describe(const WalkStep& step) {
  std::string text = std::to_string(static_cast<int>(step.kind)) + ' ';
  if (step.kind != WalkStep::Kind::passedOver) text += step.relativePath();
  if (step.match != nullptr) text += ' ' + step.match->error.message();
  if (step.issue != nullptr) text += ' ' + *step.issue;
  return text;
}

// What is read is what was written, wherever the walk went and however it was cut into batches.
TEST(WalkRecord, GivesBackEveryStep) {
  std::mt19937 random(1);
  const auto below = [&random](std::size_t end) { return random() % end; };
  WalkWriter writer;
  WalkReader reader;
  std::string folder;
  const auto move = [&] {
    for (std::size_t up = below(4); up > 0 && !folder.empty(); --up)
      folder.resize(folder.find('/') == std::string::npos ? 0 : folder.rfind('/'));
    for (std::size_t down = below(4); down > 0; --down)
      folder += (folder.empty() ? "" : "/") + std::string(below(5) + 1, 'a');
  };
  // Writes a step, and returns what it says.
  const auto write = [&]() -> std::string {
    const std::string name(below(5) + 1, 'b');
    const std::string path = folder.empty() ? name : folder + "/" + name;
    const std::error_code error(static_cast<int>(below(100)), std::generic_category());
    const auto kind = static_cast<WalkStep::Kind>(below(5));
    const std::string number = std::to_string(static_cast<int>(kind)) + ' ';
    switch (kind) {
      case WalkStep::Kind::passedOver:
        writer.addPassedOver();
        return number;
      case WalkStep::Kind::unmatched:
        writer.addUnmatched(folder, name);
        return number + path;
      case WalkStep::Kind::matched: {
        WalkMatch match;
        match.error = error;
        writer.addMatch(folder, name, match);
        break;
      }
      case WalkStep::Kind::entryIssue:
        writer.addEntryIssue(folder, name, error.message());
        break;
      case WalkStep::Kind::folderIssue:
        writer.addFolderIssue(folder, error.message());
        return number + folder + ' ' + error.message();
    }
    return number + path + ' ' + error.message();
  };
  for (int batch = 0; batch < 200; ++batch) {
    std::vector<std::string> written;
    for (std::size_t step = below(20); step > 0; --step) {
      move();
      written.push_back(write());
    }
    reader.begin(writer.take());
    std::vector<std::string> read;
    while (const WalkStep* step = reader.next()) read.push_back(describe(*step));
    EXPECT_EQ(read, written);
  }
}

}  // namespace
}  // namespace broomtide

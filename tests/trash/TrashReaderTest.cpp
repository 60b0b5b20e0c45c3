#include "support/TrashReader.h"

#include <filesystem>

#include "support/TemporaryTree.h"

namespace broomtide::test {
namespace {

namespace fs = std::filesystem;

std::string info(const std::string& path, const std::string& date) {
  return "[Trash Info]\nPath=" + path + "\nDeletionDate=" + date + "\n";
}

TEST(TrashReader, ReadsOnlyTheFormThatIsWritten) {
  const std::string date = "2025-03-01T09:30:00";
  EXPECT_EQ(parseTrashInfo(info("/a%20b%FF/c-d._~", date)),
            (TrashInfo{.path = "/a b\xff/c-d._~", .deletionDate = date}));
  EXPECT_EQ(parseTrashInfo(info("work/build", date))->path, "work/build");
  const std::string good = info("/a", date);
  std::vector<std::string> texts{"", good + "\n", good.substr(0, good.size() - 1), " " + good,
                                 "[Trash Info]\n" + good};
  for (const char* path :
       {"", "/a b", "/a%2", "/a%", "/a%2fb", "/a%2Fb", "/%41", "/%00", "/%C3%bc", "/a\r"}) {
    texts.push_back(info(path, date));
  }
  for (const char* wrong : {"", "2025-02-29T09:30:00", "2025-03-01T24:00:00", "2025-03-01T09:60:00",
                            "2025-03-01T09:30:00Z", "2025-03-01 09:30:00"}) {
    texts.push_back(info("/a", wrong));
  }
  for (const std::string& text : texts) EXPECT_EQ(parseTrashInfo(text), std::nullopt) << text;
}

TEST(TrashReader, ReplacesNothingAndTellsOfWhatIsAmiss) {
  const TemporaryTree tree;
  const std::string trash = tree.path("Trash");
  const TrashedItem item{.name = "a",
                         .info = {.path = "work/a", .deletionDate = "2025-03-01T09:30:00"}};
  tree.file("Trash/files/a", "trashed");
  tree.folder("Trash/info");
  EXPECT_THROW(trashedItems(trash), std::runtime_error);
  tree.file("Trash/info/a.trashinfo", info("work/a", item.info.deletionDate));
  EXPECT_EQ(trashedItems(trash), std::vector{item});

  EXPECT_THROW(restore(trash, item, tree.root()), std::system_error);  // its folder has gone
  tree.folder("work/a");
  EXPECT_THROW(restore(trash, item, tree.root()), std::system_error);
  EXPECT_EQ(trashedItems(trash), std::vector{item});
  fs::remove(tree.path("work/a"));
  restore(trash, item, tree.root());
  EXPECT_EQ(fs::file_size(tree.path("work/a")), 7U);
  EXPECT_THROW(restore(trash, item, tree.root()), std::system_error);

  for (const char* infoName : {"a.trashinfo", "a"}) {
    tree.file("Trash/info/" + std::string(infoName), info("work/a", item.info.deletionDate));
    EXPECT_THROW(trashedItems(trash), std::runtime_error) << infoName;
    fs::remove(trash + "/info/" + infoName);
  }
}

}  // namespace
}  // namespace broomtide::test

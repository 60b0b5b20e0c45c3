#include "support/TrashReader.h"

#include <filesystem>

#include "platform/FileIdentity.h"
#include "platform/Trash.h"
#include "support/TemporaryTree.h"
#include "support/TreeSnapshot.h"

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
  for (const std::string& text : {std::string(),
                                  info("", date),
                                  info("/a b", date),
                                  info("/a%2", date),
                                  info("/a%", date),
                                  info("/a%2fb", date),
                                  info("/a%2Fb", date),
                                  info("/%41", date),
                                  info("/%00", date),
                                  info("/%C3%bc", date),
                                  info("/a\r", date),
                                  info("/a", ""),
                                  info("/a", "2025-02-29T09:30:00"),
                                  info("/a", "2025-03-01T24:00:00"),
                                  info("/a", "2025-03-01T09:60:00"),
                                  info("/a", "2025-03-01T09:30:00Z"),
                                  info("/a", "2025-03-01 09:30:00"),
                                  good + "\n",
                                  good.substr(0, good.size() - 1),
                                  " " + good,
                                  "[Trash Info]\n" + good}) {
    EXPECT_EQ(parseTrashInfo(text), std::nullopt) << text;
  }
}

TEST(TrashReader, PutsBackWhatWasMoved) {
  const TemporaryTree tree;
  tree.file("work/build/object", "object");
  tree.file("work/caf\xff .log", "log");
  tree.folder("Trash");
  const auto before = snapshotOf(tree.path("work"));
  Trash trash(systemFileManager(), tree.path("Trash"));
  for (const char* name : {"build", "caf\xff .log"}) {
    const std::string path = tree.path("work/" + std::string(name));
    EXPECT_FALSE(trash.move({.folder = tree.path("work"),
                             .name = name,
                             .identity = FileIdentity::read(systemFileManager(), path).value()}));
  }
  const auto items = trashedItems(tree.path("Trash"));
  ASSERT_EQ(items.size(), 2U);
  EXPECT_EQ(items[0].info.path, tree.path("work/build"));
  EXPECT_EQ(items[1].info.path, tree.path("work/caf\xff .log"));
  for (const TrashedItem& item : items) restore(tree.path("Trash"), item);
  EXPECT_EQ(snapshotOf(tree.path("work")), before);
  EXPECT_TRUE(trashedItems(tree.path("Trash")).empty());
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

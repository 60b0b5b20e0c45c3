// How an item gets into the Trash, and what the Trash says of it.

#include <cstdlib>
#include <ctime>
#include <filesystem>

#include "core/Paths.h"
#include "platform/MountTable.h"
#include "platform/PathSafety.h"
#include "support/FaultyFileManager.h"
#include "support/OwnProcess.h"
#include "support/ScanRecorder.h"
#include "support/TemporaryTree.h"
#include "support/TreeSnapshot.h"
#include "trash/Trash.h"
#include "trash/TrashFolder.h"
#include "trash/TrashFormat.h"

namespace broomtide {
namespace {

namespace fs = std::filesystem;
using test::FaultyFileManager;
using test::snapshotOf;

std::error_code error(std::errc code) { return std::make_error_code(code); }

// What a file manager does when the named operation on the item comes: something else happens
// first, and perhaps it fails.
FaultyFileManager::Interception when(
    const std::string& operation, std::error_code failure, std::function<void()> first = [] {}) {
  return [=](const std::string& called) {
    if (!called.starts_with(operation)) return std::error_code();
    first();
    return failure;
  };
}

class TrashMove : public testing::Test {
 protected:
  TrashMove() {
    tree.file("work/build/object", "object");
    tree.file("work/sibling", "sibling");
    tree.folder("Trash/files");
    tree.folder("Trash/info");
  }

  std::error_code move(const std::string& folder = "work", const std::string& home = "Trash") {
    const std::string path = tree.path(folder);
    Trash trash(files, tree.path(home));
    const std::error_code result = trash.move(
        {.folder = path,
         .name = "build",
         .identity = fs::exists(path + "/build") ? test::identityOf(path + "/build") : "",
         .size = 4096,
         .isFolder = true});
    trash.recordSizes();
    return result;
  }

  test::TemporaryTree tree;
  FaultyFileManager files;
};

TEST_F(TrashMove, NobodyElseSeesWhatIsInTheTrashWhateverTheUmask) {
  for (const mode_t umask : {0U, 0777U, 0277U, 022U}) {
    fs::remove_all(tree.path("Trash"));
    tree.file("work/build/object", "object");
    test::withUmask(umask, [this] { EXPECT_FALSE(move()); });
    for (const char* folder : {"Trash", "Trash/files", "Trash/info"}) {
      EXPECT_EQ(test::permissionsOf(tree.path(folder)), 0700U) << umask << ' ' << folder;
    }
    for (const char* file : {"Trash/info/build.trashinfo", "Trash/directorysizes"}) {
      EXPECT_EQ(test::permissionsOf(tree.path(file)), 0600U) << umask << ' ' << file;
    }
    EXPECT_TRUE(fs::exists(tree.path("Trash/files/build/object"))) << umask;
  }
}

// On many drives nobody can be kept from anything, and a Trash is better than none.
TEST_F(TrashMove, WhatOthersCanChangeIsUsedOnlyWhereNothingHasPermissions) {
  for (const bool hasPermissions : {true, false}) {
    files.hasNoPermissions = !hasPermissions;
    for (const char* open : {"Trash", "Trash/info", "Trash/files"}) {
      tree.run("chmod 700 Trash Trash/*; chmod 777 " + std::string(open));
      FileDescriptor folder;
      ASSERT_FALSE(
          files.openFolder(workingDirectory, tree.root().c_str(), LinkPolicy::doNotFollow, folder));
      const std::error_code refused =
          TrashFolder(files).open(std::move(folder), "Trash", TrashSharing::refused);
      EXPECT_EQ(refused, hasPermissions ? error(std::errc::permission_denied) : std::error_code());
      EXPECT_EQ(snapshotOf(tree.path("Trash")).size(), 2U) << "what was tried is gone again";
    }
  }
}

TEST(MountTable, TellsWhereAPlaceIsInItsFileSystem) {
  const auto mounts = MountTable::mounts(
      "22 1 8:1 / / rw,relatime shared:1 - ext4 /dev/sda1 rw\n"
      "31 22 0:27 /sub /mnt/with\\040blank\\134 rw - tmpfs none rw\n"
      "broken\n"
      "32 22 0:28 / /none\\x40\\400\\08\\\\040 rw\n"
      "33 22 0:28 / /short\\04 rw\n"
      "34 22 8:1 /home/me /over rw\n"
      "35 22 0:29 / /over rw");
  ASSERT_EQ(mounts.size(), 6U);
  EXPECT_EQ(mounts[2].point, "/none\\x40\\400\\08\\ ");
  EXPECT_EQ(mounts[3].point, "/short\\04");
  for (const auto& [path, mount, place] : std::vector<std::tuple<std::string, int, std::string>>{
           {"/a", 0, "8:1/a"},
           {"/", 0, "8:1"},
           {"/mnt/with blank\\/b", 0, "0:27/sub/b"},
           {"/mnt/with blank\\", 31, "0:27/sub"},
           {"/over/c", 0, "0:29/c"},
           {"/over/c", 34, "8:1/home/me/c"},
           {"/overt", 0, "8:1/overt"},
           {"/over/c", 99, ""},
       }) {
    EXPECT_EQ(MountTable::placeInFileSystem(mounts, path, static_cast<std::uint64_t>(mount)),
              place);
  }
  std::vector<MountTable::Mount> own;
  EXPECT_EQ(MountTable::read(systemFileManager(), own), std::error_code());
  EXPECT_THAT(own, testing::Contains(testing::Field(&MountTable::Mount::point, "/proc")));
}

TEST_F(TrashMove, ATakenNameGivesTheNextOne) {
  tree.folder("Trash/files/build");
  tree.file("Trash/info/build.2.trashinfo", "someone else's");
  EXPECT_FALSE(move());
  EXPECT_EQ(snapshotOf(tree.path("Trash/files/build.3")).size(), 1U);
  EXPECT_TRUE(fs::is_empty(tree.path("Trash/files/build")));
  EXPECT_FALSE(fs::exists(tree.path("Trash/info/build.trashinfo")));
  EXPECT_TRUE(fs::exists(tree.path("Trash/info/build.3.trashinfo")));

  tree.file("work/build/object");
  tree.run("rmdir Trash/files/build; touch Trash/info/build.trashinfo");
  EXPECT_FALSE(move());
  EXPECT_FALSE(fs::exists(tree.path("Trash/files/build"))) << "what is reserved was taken";
}

// However often the same folder is built and cleaned before somebody empties the Trash.
TEST_F(TrashMove, EveryItemFindsAName) {
  constexpr int cleanups = 100;
  for (int cleanup = 1; cleanup <= cleanups; ++cleanup) {
    tree.file("work/build/object");
    ASSERT_FALSE(move()) << cleanup;
  }
  EXPECT_TRUE(fs::exists(tree.path("Trash/files/build.100/object")));
}

TEST_F(TrashMove, WhatIsSwappedAtTheLastMomentIsMovedBack) {
  struct Row {
    const char* name;
    std::string beforeMoving;
    std::string beforeMovingBack;
    std::string newPlace;  ///< of the file that is not the item's
  };
  for (const Row& row : std::vector<Row>{
           {"the item", "mv work/build work/old; mkdir work/build; touch work/build/new", ":",
            "work/build/new"},
           {"an item whose name is taken again",
            "mv work/build work/old; mkdir work/build; touch work/build/new", "touch work/build",
            "work/build.2/new"},
           {"an item of which two names are taken",
            "mv work/build work/old; mkdir work/build; touch work/build/new",
            "touch work/build; ln -s nowhere work/build.2", "work/build.3/new"},
           {"the folder, by a link", "mv work aside; ln -s aside work", ":", "aside/build/object"},
           {"the folder, by another one",
            "mkdir -p other/build; touch other/build/new; mv work aside; mv other work", ":",
            "aside/build/object"},
       }) {
    tree.run("rm -rf work aside Trash/*/*; mkdir -p work/build; touch work/build/object");
    files.onChange = when("rename build", {}, [&, renames = 0]() mutable {
      const int rename = renames++;
      if (rename < 2) tree.run(rename == 0 ? row.beforeMoving : row.beforeMovingBack);
    });
    EXPECT_TRUE(move()) << row.name;
    EXPECT_TRUE(fs::exists(tree.path(row.newPlace))) << row.name;
    EXPECT_TRUE(fs::is_empty(tree.path("Trash/files"))) << row.name;
    EXPECT_TRUE(fs::is_empty(tree.path("Trash/info"))) << row.name;
  }
}

TEST_F(TrashMove, WhatCannotBeMovedBackStaysInTheTrashWhole) {
  files.onChange = [this, renames = 0](const std::string& called) mutable {
    if (!called.starts_with("rename build")) return std::error_code();
    if (renames++ > 0) return error(std::errc::io_error);
    tree.run("mv build old; mkdir build; touch build/new", "work");
    return std::error_code();
  };
  EXPECT_TRUE(move());
  EXPECT_TRUE(fs::exists(tree.path("Trash/files/build/new")));
  EXPECT_TRUE(fs::exists(tree.path("Trash/info/build.trashinfo")));
  EXPECT_TRUE(fs::exists(tree.path("work/old/object")));
}

TEST_F(TrashMove, AnItemThatCannotBeLookedAtAfterwardsIsMovedBack) {
  bool isMoved = false;
  files.onChange = when("rename", {}, [&] { isMoved = true; });
  files.onAttributes = [&](const std::string& name) {
    return isMoved && name == "build" ? error(std::errc::io_error) : std::error_code();
  };
  const auto before = snapshotOf(tree.path("work/build"));
  EXPECT_EQ(move("work", "OtherTrash"), std::errc::io_error);
  EXPECT_EQ(snapshotOf(tree.path("work/build")), before);
  EXPECT_FALSE(fs::exists(tree.path("OtherTrash"))) << "nothing has come to it";
}

TEST_F(TrashMove, WhatIsInATrashAlreadyStaysThere) {
  tree.link("Trash", "linked");
  tree.folder("other/Trash/info");
  for (const std::string folder : {"Trash/files", "Trash/files/deeper", ".Trash-1000/files",
                                   ".Trash/0", "other/Trash/files"}) {
    tree.file(folder + "/build/object", "object");
    for (const char* home : {"Trash", "linked"}) {
      const auto before = snapshotOf(tree.root());
      EXPECT_TRUE(move(folder, home)) << folder;
      EXPECT_EQ(snapshotOf(tree.root()), before) << folder;
    }
  }
}

TEST_F(TrashMove, FailingToRecordSizesIsNoFailure) {
  for (const char* step :
       {"openFile directorysizes", "createFile directorysizes", "rename directorysizes"}) {
    tree.file("work/build/object", "object");
    files.onChange = when(step, error(std::errc::io_error));
    EXPECT_FALSE(move()) << step;
    EXPECT_EQ(std::distance(fs::directory_iterator(tree.path("Trash")), {}), 2) << step;
  }
  tree.file("Trash/directorysizes", "7 8 build.4\n1 2 kept");  // the first has gone
  files.onChange = [](const auto&) { return std::error_code(); };
  tree.file("work/build/object", "object");
  EXPECT_FALSE(move());
  EXPECT_THAT(snapshotOf(tree.path("Trash")),
              testing::Contains(testing::HasSubstr(" 1 2 kept\n4096 ")));
}

TEST(TrashInfo, TellsTheLocalTimeAndEveryByteOfThePath) {
  ::setenv("TZ", "<+05>-5", 1);
  ::tzset();
  EXPECT_EQ(trashInfo("/a b\xff", dateFromIso8601("2025-03-01T22:30:00Z").value()),
            "[Trash Info]\nPath=/a%20b%FF\nDeletionDate=2025-03-02T03:30:00\n");
  ::unsetenv("TZ");
  ::tzset();
}

TEST(TrashName, RecordsWhereAnItemWas) {
  EXPECT_EQ(recordedPath("/srv/app/build", ""), "/srv/app/build");
  EXPECT_EQ(recordedPath("/srv/app/build", "/srv"), "app/build");
  EXPECT_EQ(recordedPath("/srv/app/build", "/"), "srv/app/build");
  EXPECT_EQ(recordedPath("/build", "/"), "build");
}

TEST(TrashName, FitsAndKeepsTheExtension) {
  std::string umlauts;
  while (umlauts.size() < 250) umlauts += "ü";
  struct Row {
    std::string name;
    std::uint64_t number;
    std::string expected;
  };
  for (const Row& row : std::vector<Row>{
           {"build", 1, "build"},
           {"build", 2, "build.2"},
           {".next", 2, ".next.2"},
           {"a.tar.gz", 12, "a.tar.12.gz"},
           {std::string(255, 'n'), 1, std::string(245, 'n')},
           {std::string(251, 'n') + ".log", 1, std::string(241, 'n') + ".log"},
           {std::string(251, 'n') + ".log", 10, std::string(238, 'n') + ".10.log"},
           {umlauts + ".zip", 1, umlauts.substr(0, 240) + ".zip"},
           {"a." + std::string(250, 'x'), 1, "a." + std::string(243, 'x')},
           {std::string(255, '\xff'), 1, std::string(245, '\xff')},
       }) {
    EXPECT_EQ(trashName(row.name, row.number), row.expected);
  }
}

TEST(DirectorySizes, DropsWhatIsSaidOfFoldersThatHaveGone) {
  struct Row {
    std::string text;
    std::string kept;
  };
  for (const Row& row : std::vector<Row>{
           {"", ""},
           {"1 2 other\n", "1 2 other\n"},
           {"1 2 other", "1 2 other\n"},
           {"1 2 build\n3 4 other\n5 6 build\n", "3 4 other\n"},
           {"1 2 buil%64\n1 2 %62uild\n1 2 a%2fb\n", "1 2 a%2fb\n"},
           {"1 2 %C3%BC%20!\n1 2 %c3%bc !\n1 2 ü%20!\n", ""},
           {"-1 2 build\n1 -2 build\n", ""},
           {"1 2 Build\n1 2 build \n1 2 builds\n1 2 buil\n",
            "1 2 Build\n1 2 build \n1 2 builds\n1 2 buil\n"},
           {"1 2 b\xff\r\n\n  \n1 2 build%\n1 2 build%6\n1 2 build%6g",
            "1 2 b\xff\r\n\n  \n1 2 build%\n1 2 build%6\n1 2 build%6g\n"},
           {"x 2 build\n1 x build\n 1 2 build\n1  build\n1 2\n1 2build\n- 2 build\nbuild\n",
            "x 2 build\n1 x build\n 1 2 build\n1  build\n1 2\n1 2build\n- 2 build\nbuild\n"},
       }) {
    EXPECT_EQ(withDirectorySizes(row.text, {{.name = "build", .size = 4096, .changedAt = 17},
                                            {.name = "ü !", .size = 0, .changedAt = -1}}),
              row.kept + "4096 17 build\n0 -1 %C3%BC%20%21\n");
  }
}

}  // namespace
}  // namespace broomtide

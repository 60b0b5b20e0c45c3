#include "cleanup/JSONHistoryStore.h"

#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <set>

#include "core/Uuid.h"
#include "platform/WholeFile.h"
#include "support/FaultyFileManager.h"
#include "support/OwnProcess.h"
#include "support/TemporaryTree.h"

namespace broomtide {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

class History : public testing::Test {
 protected:
  static CleanupHistoryEntry entry(const std::string& root, const std::string& date) {
    return {.id = newUuid(),
            .date = dateFromIso8601(date).value(),
            .rootPath = root,
            .movedCount = 3,
            .movedBytes = 1'500,
            .failures = {{.id = newUuid(), .path = "a/b", .message = bareSentence("gone")}}};
  }

  std::vector<std::string> loadedRoots() {
    std::vector<std::string> roots;
    for (const CleanupHistoryEntry& item : store.load()) roots.push_back(item.rootPath);
    return roots;
  }

  std::string text() const {
    std::string contents;
    EXPECT_FALSE(
        WholeFile::read(systemFileManager(), workingDirectory, file, LinkPolicy::follow, contents));
    return contents;
  }

  std::vector<std::string> names() const {
    std::vector<std::string> list;
    for (const auto& item : fs::directory_iterator(fs::path(file).parent_path())) {
      list.push_back(item.path().filename());
    }
    return list;
  }

  test::TemporaryTree tree;
  test::FaultyFileManager files;
  const std::string file = tree.path("data/Broomtide/history.json");
  JSONHistoryStore store{file, files};
};

TEST_F(History, WritesTheFormThatOthersRead) {
  EXPECT_TRUE(store.load().empty());
  EXPECT_FALSE(fs::exists(tree.path("data")));
  CleanupHistoryEntry first = entry("/home/\xff", "2025-03-01T09:30:00Z");
  first.id = "0F8FAD5B-D9CB-469F-A165-70867728950E";
  first.failures[0].id = "7C9E6679-7425-40DE-944B-E07FC1F90AE7";
  first.date += std::chrono::nanoseconds(999'999'999);
  store.append(first);
  EXPECT_EQ(text(), R"({
  "entries": [
    {
      "date": "2025-03-01T09:30:00Z",
      "failures": [
        {
          "id": "7C9E6679-7425-40DE-944B-E07FC1F90AE7",
          "message": "gone",
          "path": "a\/b"
        }
      ],
      "id": "0F8FAD5B-D9CB-469F-A165-70867728950E",
      "movedBytes": 1500,
      "movedCount": 3,
      "rootPath": "\/home\/)"
                    "\xEF\xBF\xBD"
                    R"("
    }
  ],
  "version": 1
}
)");
  EXPECT_EQ(test::permissionsOf(file), 0600U);
  EXPECT_EQ(test::permissionsOf(tree.path("data/Broomtide")), 0700U);
  EXPECT_EQ(test::permissionsOf(tree.path("data")), 0700U);
  first.rootPath = "/home/\xEF\xBF\xBD";
  first.date = std::chrono::floor<std::chrono::seconds>(first.date);
  EXPECT_EQ(store.load(), std::vector{first});
}

TEST_F(History, ReadsTheNewestFirstAndWritesInTheOrderOfComing) {
  store.append(entry("/2", "2025-03-02T00:00:00Z"));
  store.append(entry("/3", "2025-03-03T00:00:00Z"));
  store.append(entry("/1", "2025-03-01T00:00:00Z"));
  store.append(entry("/3 too", "2025-03-03T00:00:00Z"));
  EXPECT_EQ(loadedRoots(), (std::vector<std::string>{"/3 too", "/3", "/2", "/1"}));
  store.append(entry("/0", "2025-02-01T00:00:00Z"));
  EXPECT_LT(text().find("\\/0"), text().find("\\/3"));
}

// Each text stands for a file that somebody else, a crash or an attacker has left.
TEST_F(History, WhatCannotBeReadIsSetAsideByTheNextAppend) {
  store.append(entry("/old", "2025-03-01T09:30:00Z"));
  const std::string good = text();
  const auto with = [&](const std::string& part, const std::string& replacement) {
    std::string changed = good;
    changed.replace(changed.find(part), part.size(), replacement);
    return changed;
  };
  struct Row {
    std::string contents;
    const char* reason;
  };
  const std::vector<Row> rows{
      {with("\"version\": 1", "\"version\": 2"), "other-version"},
      {"{\"version\": 2}", "other-version"},
      {with("\"version\": 1", "\"version\": true"), "undecodable"},
      {with("\"version\": 1", "\"version\": \"1\""), "undecodable"},
      {with("\"movedCount\": 3", "\"movedCount\": 3.5"), "undecodable"},
      {with("\"movedBytes\": 1500", "\"movedBytes\": 18446744073709551615"), "undecodable"},
      {with("\"movedBytes\": 1500", "\"movedBytes\": null"), "undecodable"},
      {with("\"movedBytes\": 1500", "\"movedBytes\": 9.3e18"), "undecodable"},
      {with("09:30:00Z", "09:30:00.5Z"), "undecodable"},
      {with("09:30:00Z", "09:30:00+24:00"), "undecodable"},
      {with("09:30:00Z", "09:30:00+1:00"), "undecodable"},
      {with("09:30:00Z", "09:30:00"), "undecodable"},
      {with("2025-03-01T09:30:00Z", "2261-12-31T23:59:59-23:59"), "undecodable"},
      {with("2025-03-01T", "2025-02-30T"), "undecodable"},
      {with("2025-03-01T", "9999-03-01T"), "undecodable"},
      {with("09:30:00Z", "24:00:00Z"), "undecodable"},
      {with("\"failures\"", "\"mistakes\""), "undecodable"},
      {with("\"message\"", "\"massage\""), "undecodable"},
      {with("-", ""), "undecodable"},
      {with("\\/old", "\xff"), "undecodable"},
      {good.substr(0, good.size() - 3), "undecodable"},
      {good + "x", "undecodable"},
      {"", "undecodable"},
      {std::string(1 << 20, '['), "undecodable"},
      {std::string(5'000'000, '\0'), "undecodable"},
  };
  for (const Row& row : rows) {
    tree.file("data/Broomtide/history.json", row.contents);
    EXPECT_TRUE(store.load().empty()) << row.contents.substr(0, 300);
    store.append(entry("/new", "2025-03-02T00:00:00Z"));
    EXPECT_EQ(loadedRoots(), std::vector<std::string>{"/new"});

    EXPECT_EQ(names().size(), 2U);
    for (const std::string& name : names()) {
      if (name == "history.json") continue;
      EXPECT_THAT(name, testing::MatchesRegex("history.json.20..-..-..T..-..-..Z." +
                                              std::string(row.reason)));
      EXPECT_EQ(fs::file_size(tree.path("data/Broomtide/" + name)), row.contents.size());
      fs::remove(tree.path("data/Broomtide/" + name));
    }
  }
  fs::remove(file);
  tree.link("nowhere", "data/Broomtide/history.json");
  store.append(entry("/new", "2025-03-02T00:00:00Z"));
  fs::remove(file);
  tree.pipe("data/Broomtide/history.json");  // reading must not wait for a writer
  EXPECT_TRUE(store.load().empty());
  store.append(entry("/new", "2025-03-02T00:00:00Z"));
  EXPECT_THAT(names(), testing::IsSupersetOf({HasSubstr("unreadable"), HasSubstr("unreadable")}));
}

TEST_F(History, AcceptsWhatOtherWritersMayWrite) {
  tree.file("data/Broomtide/history.json",
            R"({"version":1,"more":{"deep":[[]]},"entries":[{"rootPath":"/a","movedCount":-1,
"movedBytes":9223372036854775807,"id":"0f8fad5b-d9cb-469f-a165-70867728950e","failures":[],
"date":"1999-12-31T23:59:59Z","unknown":"\"\\)" +
                std::string(600, '[') + R"("}]})");
  const auto loaded = store.load();
  ASSERT_EQ(loaded.size(), 1U);
  EXPECT_EQ(loaded[0].id, "0F8FAD5B-D9CB-469F-A165-70867728950E");
  EXPECT_EQ(iso8601(loaded[0].date), "1999-12-31T23:59:59Z");

  tree.file("data/Broomtide/history.json",
            R"({"version":1.0,"entries":[{"rootPath":"/a","movedCount":1e0,"movedBytes":-4096.0,
"id":"0f8fad5b-d9cb-469f-a165-70867728950e","failures":[],"date":"2000-01-01T01:30:00+01:30"},
{"rootPath":"/b","movedCount":1,"movedBytes":1,"id":"0f8fad5b-d9cb-469f-a165-70867728950e",
"failures":[],"date":"1999-12-31T18:59:59-0500"}]})");
  const auto written = store.load();
  ASSERT_EQ(written.size(), 2U);
  EXPECT_EQ(written[0].movedCount, 1);
  EXPECT_EQ(written[0].movedBytes, -4096);
  EXPECT_EQ(iso8601(written[0].date), "2000-01-01T00:00:00Z");
  EXPECT_EQ(iso8601(written[1].date), "1999-12-31T23:59:59Z");
}

TEST_F(History, WhatMayNotBeOnTheDiskReplacesNothing) {
  store.append(entry("/old", "2025-03-01T09:30:00Z"));
  const std::string before = text();
  files.onChange = [](const std::string& called) {
    return std::make_error_code(called == "synchronize" ? std::errc::no_space_on_device
                                                        : std::errc());
  };
  EXPECT_THROW(store.append(entry("/new", "2025-03-02T00:00:00Z")), std::system_error);
  EXPECT_EQ(text(), before);
  EXPECT_EQ(names(), std::vector<std::string>{"history.json"});
}

TEST_F(History, TwoProcessesLoseNothing) {
  constexpr int each = 50;
  const auto appendAll = [&](const std::string& who) {
    for (int number = 0; number < each; ++number) {
      store.append(entry('/' + who + std::to_string(number), "2025-03-01T09:30:00Z"));
    }
  };
  const pid_t child = ::fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    appendAll("child");
    ::_exit(0);
  }
  appendAll("parent");
  int status = -1;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  EXPECT_EQ(status, 0);
  const std::vector<std::string> roots = loadedRoots();
  EXPECT_EQ(std::set(roots.begin(), roots.end()).size(), 2U * each);
  EXPECT_EQ(roots.size(), 2U * each);
}

}  // namespace
}  // namespace broomtide

#include <map>

#include "rules/InstalledPlaces.h"
#include "support/ScanRecorder.h"
#include "support/TemporaryTree.h"

namespace broomtide {
namespace {

using test::pathsOf;
using test::ScanRecorder;
using test::TemporaryTree;

// What a scan says of an item: "ticked", "no", or the last line of its evidence.
std::string verdict(const ScanResult& result, const std::string& path) {
  for (const ScanCandidate& candidate : result.candidates) {
    if (candidate.relativePath != path) continue;
    if (candidate.isSelected) return "ticked";
    EXPECT_NE(candidate.safety, SafetyLevel::safe) << path;
    const auto& lines = candidate.evidence.lines();
    EXPECT_TRUE(lines.size() == 3 || candidate.confidence == DetectionConfidence::medium) << path;
    return lines.back().text();
  }
  return "no";
}

// What no name tells: each case is a folder of its own with a project in it.
TEST(Caution, LooksInsideAndAround) {
  struct Case {
    std::string manifest;
    std::vector<std::string> entries;  // a folder when it ends with a slash
    std::string item;
    std::string expected;
  };
  const std::string value = "It holds a file that may be of value: ";
  const std::string folder = "It holds a folder that may be of value: ";
  const std::string source = "It holds a file that people write: ";
  const std::vector<Case> cases{
      {"package.json", {".next/server/app/models/a.js", ".next/package.json"}, ".next", "ticked"},
      {"package.json",
       {".next/a/b/.git"},
       ".next",
       "It holds a Git repository of its own: .next/a/b"},
      {"package.json",
       {"coverage/.hg/"},
       "coverage",
       "It holds a Mercurial repository of its own: coverage"},
      {"package.json",
       {"coverage/z.sqlite", "coverage/a/B.SQLITE"},
       "coverage",
       value + "coverage/a/B.SQLITE"},
      {"package.json", {".output/.env"}, ".output", value + ".output/.env"},
      {"package.json", {".output/public/uploads/a"}, ".output", folder + ".output/public/uploads"},
      {"package.json", {".output/storage/a"}, ".output", folder + ".output/storage"},
      {"package.json", {"coverage/models/a.ts.html", "coverage/sorter.js"}, "coverage", "ticked"},
      {"package.json", {"coverage/a/Map.tsx"}, "coverage", source + "coverage/a/Map.tsx"},
      {"package.json",
       {".nuxt/package.json"},
       ".nuxt",
       "It is a project of its own: .nuxt/package.json"},
      {"a.csproj", {"obj/a.g.cs", "obj/a.csproj.nuget.g.props"}, "obj", "ticked"},
      {"a.csproj", {"bin/Debug/deploy.sh"}, "bin", source + "bin/Debug/deploy.sh"},
      {"a.csproj", {"bin/Debug/app.db"}, "bin", value + "bin/Debug/app.db"},
      {"stack.yaml", {".stack-work/stack.sqlite3"}, ".stack-work", "ticked"},
      {"setup.py",
       {"venv/x"},
       "venv",
       "It has no pyvenv.cfg, so it may not be a Python environment."},
      {"setup.py", {".venv/pyvenv.cfg"}, ".venv", "The artifact name and project ecosystem agree."},
      {"x", {".venv/pyvenv.cfg"}, ".venv", "no"},
      {"package.json",
       {"env/pyvenv.cfg", "env/coverage/a"},
       "env/coverage",
       "It lies in a place where programs are installed: %/env"},
      {"package.json",
       {".svn/", ".git/HEAD", ".next/a"},
       ".next",
       "It lies in a Subversion working copy, and Broomtide can only ask Git: %"},
      {"package.json",
       {".next/b/HEAD", ".next/b/objects/", ".next/b/refs/"},
       ".next",
       "It holds a Git repository of its own: .next/b"},
      {"package.json", {"coverage/claims.DOCX"}, "coverage", source + "coverage/claims.DOCX"},
      {"package.json",
       {".svn/", ".next/a"},
       ".next",
       "It lies in a Subversion working copy, and Broomtide can only ask Git: %"},
      {"package.json",
       {"_FOSSIL_", "a/.next/a"},
       "a/.next",
       "It lies in a Fossil working copy, and Broomtide can only ask Git: %"},
      {"package.json",
       {".jj/", ".git/HEAD", ".next/a"},
       ".next",
       "The artifact name and project ecosystem agree."},
      {"package.json",
       {"x.git/HEAD", "x.git/objects/", "x.git/refs/heads/coverage/a"},
       "x.git/refs/heads/coverage",
       "no"},
      {"package.json", {".hg/coverage/a"}, ".hg/coverage", "no"},
      {"package.json", {"Trash/files/coverage/a", "Trash/info/"}, "Trash/files/coverage", "no"},
      {"home/package.json",
       {"home/coverage/a.jpg"},
       "home/coverage",
       "The project around it is a home folder: %/home"},
      {"home/a/package.json", {"home/a/coverage/a"}, "home/a/coverage", "ticked"},
      {"home/.x/package.json",
       {"home/.x/a/coverage/b"},
       "home/.x/a/coverage",
       "It lies in a hidden folder of a home, where programs keep what they need: %/home/.x"},
      {"x",
       {"home/.expo/a"},
       "home/.expo",
       "It lies in a hidden folder of a home, where programs keep what they need: %/home/.expo"},
  };
  for (const Case& item : cases) {
    TemporaryTree tree;
    tree.file(item.manifest);
    for (const std::string& entry : item.entries) {
      entry.ends_with('/') ? tree.folder(entry) : tree.file(entry, "x");
    }
    std::string expected = item.expected;
    if (const auto place = expected.find('%'); place != expected.npos)
      expected.replace(place, 1, tree.root());
    EXPECT_EQ(verdict(ScanRecorder().scan(tree.root()), item.item), expected) << item.entries[0];
  }
}

// A scan that begins inside sees what is around as well.
TEST(Caution, LooksAroundTheScannedFolder) {
  const std::map<std::string, std::string> cases{
      {"a", "ticked"},
      {"site-packages/a/b", "It lies in a place where programs are installed: %/site-packages"},
      {"c/a", "It lies in a place where programs are installed: %/c"},
      {"m/a", "It lies in a Mercurial working copy, and Broomtide can only ask Git: %/m"},
      {"m/.hg/a", "no"},
      {"s/a", "no"},
      {"Trash/files/a", "no"},
      {"extensions/a", "It lies in a place where programs are installed: %/extensions/a"},
  };
  TemporaryTree tree;
  for (const char* folder : {"c/conda-meta", "m/.hg", "s/objects", "s/refs", "Trash/info"})
    tree.folder(folder);
  tree.file("s/HEAD");
  for (const auto& [folder, line] : cases) {
    tree.file(folder + "/package.json", R"({"engines": {"vscode": "1"}} // a comment)");
    tree.file(folder + "/.next/a");
  }
  for (const auto& [folder, line] : cases) {
    std::string expected = line;
    if (const auto place = expected.find('%'); place != expected.npos)
      expected.replace(place, 1, tree.root());
    EXPECT_EQ(verdict(ScanRecorder().scan(tree.path(folder)), ".next"), expected);
  }
}

// What is installed is not entered; what only looks like it is.
TEST(Caution, KeepsAwayFromWhatIsInstalled) {
  const std::vector<std::string> installed{"home/.vscode/extensions/a",
                                           "home/.vscode-oss/extensions/a",
                                           "home/.vscode-server/bin/a",
                                           "home/.cursor/a",
                                           "home/.windsurf/a",
                                           "home/.nvm/versions/node/v20/lib",
                                           "home/.volta/tools",
                                           "home/.fnm/node-versions",
                                           "home/.npm/_npx/a",
                                           "home/.bun/install/global",
                                           "home/.deno/a",
                                           "home/.local/share/pnpm/global/5",
                                           "home/.config/yarn/global",
                                           "home/.local/share/pipx/venvs/a",
                                           "home/.local/pipx/venvs/a",
                                           "home/.local/share/uv/tools/a",
                                           "home/.local/share/uv/python/a",
                                           "home/.pyenv/versions/3.12",
                                           "home/.rbenv/versions/3",
                                           "home/.rvm/gems",
                                           "home/.asdf/installs/a",
                                           "home/.local/share/mise/installs/a",
                                           "home/.sdkman/candidates",
                                           "home/.rustup/toolchains/a",
                                           "home/.cargo/registry/src/a",
                                           "home/.cargo/git/checkouts/a",
                                           "home/go/pkg/mod/a",
                                           "home/.m2/a",
                                           "home/.gradle/a",
                                           "home/.nuget/packages/a",
                                           "home/.pub-cache/hosted/a",
                                           "home/.gem/a",
                                           "home/miniconda3/pkgs",
                                           "home/.var/app/a",
                                           "home/snap/a",
                                           "home/.steam/a",
                                           "home/.local/share/Steam/steamapps/common/a",
                                           "home/.wine/drive_c/a",
                                           "home/.config/a",
                                           "home/.mozilla/a",
                                           "a/lib/python3/site-packages/a",
                                           "a/dist-packages/a",
                                           "electron/resources/app",
                                           "extensions/a",
                                           "tool"};
  const std::vector<std::string> neighbours{"home/.dotfiles",
                                            "home/.dotfiles/a",
                                            "snap",
                                            "a/snap",
                                            "home/src/snap",
                                            "home/a/.config",
                                            "opt",
                                            "usr/a",
                                            "nix",
                                            "a/.gem/a",
                                            "home/.vscode/a",
                                            "versions",
                                            "home/go/src/a",
                                            "global",
                                            "a/.mozilla",
                                            "home/.cargo/a",
                                            "extensions/b",
                                            "resources/app",
                                            "mod",
                                            "home/.npm/a",
                                            "a/.wine",
                                            "home/projects/steam",
                                            "home/.nvm/a"};
  TemporaryTree tree;
  for (const auto* folders : {&installed, &neighbours}) {
    for (const std::string& folder : *folders) {
      tree.file(folder + "/package.json",
                folder == "extensions/a" ? R"({"engines": {"vscode": "1"}})" : "{}");
      tree.file(folder + "/node_modules/a", "x");
      if (folder.find('/') != folder.npos) tree.folder("home/miniconda3/conda-meta");
    }
  }
  tree.file("electron/chrome_100_percent.pak");
  tree.run("rm tool/package.json; touch tool/pyvenv.cfg");
  std::vector<std::string> expected;
  for (const std::string& folder : neighbours) expected.push_back(folder + "/node_modules");
  EXPECT_THAT(pathsOf(ScanRecorder().scan(tree.root())),
              testing::UnorderedElementsAreArray(expected));
  for (const char* place : {"usr", "opt", "nix", "snap"})
    EXPECT_TRUE(isInstalledPlace("/", "", place, {}));
}

// A whole build tree is proven by what is in it, and its parts are not offered then.
TEST(Caution, OffersWholeBuildTreesByProof) {
  const std::string tag = "Signature: 8a477f597d28d172789f06886806bc55\n# Made by 'it'.\n";
  TemporaryTree tree;
  const auto cmake = [&](const std::string& folder, const std::string& sources) {
    tree.file(folder + "/CMakeCache.txt",
              "# x\nCMAKE_HOME_DIRECTORY:INTERNAL=" + sources + "\nX:STRING=1\n");
    tree.file(folder + "/CMakeFiles/a", "x");
  };
  tree.file("src/CMakeLists.txt");
  tree.file("src/meson.build");
  cmake("my build", tree.path("src"));
  cmake("src/deep/tree", tree.path("src"));
  cmake("out", tree.path("src"));   // refused by its name: no project is around it
  cmake("dist", tree.path("src"));  // and so is this one, but it is a project of its own
  tree.file("dist/Cargo.toml");
  cmake("src", tree.path("src"));  // in the sources
  cmake("src/gone", tree.path("nowhere"));
  cmake("src/around", tree.path("src/around/in"));
  tree.file("src/around/in/CMakeLists.txt");
  cmake("src/clone", tree.path("src"));
  tree.folder("src/clone/.git");
  tree.file("meson/meson-private/coredata.dat");
  tree.file("meson/meson-info/meson-info.json",
            R"({"directories": {"source": ")" + tree.path("src") + R"("}})");
  tree.file("odd/meson-private/coredata.dat");
  tree.file("odd/meson-info/meson-info.json", R"({"directories": [1]})");
  tree.file("cargo/.rustc_info.json");
  tree.file("cargo/CACHEDIR.TAG", tag);
  tree.file("tagged/CACHEDIR.TAG", tag);  // outside any project
  tree.file("src/tagged/CACHEDIR.TAG", tag);
  tree.file("src/false/CACHEDIR.TAG", tag.substr(1));
  std::map<std::string, std::string> found;
  for (const ScanCandidate& candidate : ScanRecorder().scan(tree.root()).candidates) {
    EXPECT_FALSE(candidate.isSelected && candidate.category != "Build Cache" &&
                 candidate.category != "Build Output");
    found[candidate.relativePath] =
        candidate.evidence.lines()[2].text() + " " +
        (candidate.regenerationCommand ? candidate.regenerationCommand->text() : "");
  }
  const std::string src = tree.path("src");
  const std::string named =
      "The artifact name and project ecosystem agree. Configure and build the CMake project again.";
  EXPECT_EQ(found, (std::map<std::string, std::string>{
                       {"my build", "CMake built it from the sources in " + src + ". cmake -S " +
                                        src + " -B '" + tree.path("my build") + "'"},
                       {"src/deep/tree", "CMake built it from the sources in " + src +
                                             ". cmake -S " + src + " -B " + src + "/deep/tree"},
                       {"out", "CMake built it from the sources in " + src + ". cmake -S " + src +
                                   " -B " + tree.path("out")},
                       {"meson", "Meson built it from the sources in " + src + ". meson setup " +
                                     tree.path("meson") + " " + src},
                       {"cargo", "Cargo wrote its build output here. cargo build --target-dir " +
                                     tree.path("cargo")},
                       {"src/tagged", "The program that wrote it calls it a cache: Made by 'it'. "},
                       {"src/CMakeCache.txt", named},
                       {"src/CMakeFiles", named},
                       {"src/gone/CMakeCache.txt", named},
                       {"src/gone/CMakeFiles", named},
                       {"src/around/CMakeCache.txt", named},
                       {"src/around/CMakeFiles", named},
                       {"src/clone/CMakeCache.txt", named},
                       {"src/clone/CMakeFiles", named}}));
}

}  // namespace
}  // namespace broomtide

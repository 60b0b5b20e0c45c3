// broomtide-bench-tree: writes a tree of files to measure on.
//
// The same kind, number of entries and seed give the same names, sizes and contents, whatever the
// machine (but for the inode numbers and times in Git's own index). Each part of a tree draws from
// random numbers of its own, so the parts can be written by several threads.

#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <functional>
#include <future>
#include <iostream>
#include <optional>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "rules/CacheRules.h"

namespace {

namespace CacheRules = broomtide::CacheRules;

constexpr std::size_t largestFile = 100'000;
constexpr std::size_t entriesPerRepository = 5'000;
constexpr std::size_t entriesPerCacheFolder = 5'000;
constexpr std::size_t artefactsPerProject = 1'000;
constexpr std::size_t entriesPerArtefact =
    6;  // the package, its __init__.py, __pycache__ and three files
constexpr std::size_t partsPerGroup = 40;
constexpr int maxNesting = 3;

[[noreturn]] void fail(const std::string& what) {
  throw std::system_error(errno, std::generic_category(), what);
}

/// Random numbers that are the same with every standard library, which its distributions are not.
class Dice {
 public:
  Dice(std::uint64_t seed, std::uint64_t part) : engine_(seed * 1'000'003 + part) {}

  std::size_t below(std::size_t limit) { return static_cast<std::size_t>(engine_() % limit); }
  std::size_t between(std::size_t low, std::size_t high) { return low + below(high - low + 1); }
  bool oneIn(std::size_t chances) { return below(chances) == 0; }

  /// Four files in five are tiny, one in a hundred takes 10 to 100 KB.
  std::size_t fileSize() {
    const auto draw = below(100);
    if (draw < 79) return between(60, 2'000);
    if (draw < 99) return between(2'000, 10'000);
    return between(10'000, largestFile);
  }

 private:
  std::mt19937_64 engine_;
};

std::string_view filler(std::size_t size) {
  static const std::string text = [] {
    std::string lines;
    while (lines.size() < largestFile)
      lines += "export const value = (input) => input ?? undefined;\n";
    return lines;
  }();
  return std::string_view(text).substr(0, size);
}

/// An open folder that entries are made in, by name; `made` counts them for the part of the tree it
/// belongs to.
class Folder {
 public:
  Folder(const std::filesystem::path& path, std::size_t& made) : made_(&made) {
    std::filesystem::create_directories(path);
    if (!std::filesystem::is_empty(path))
      throw std::runtime_error(path.string() + ": is not empty");
    fd_ = open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd_ < 0) fail(path);
  }
  Folder(Folder&& other) noexcept : fd_(std::exchange(other.fd_, -1)), made_(other.made_) {}
  Folder& operator=(Folder&& other) noexcept {
    std::swap(fd_, other.fd_);
    std::swap(made_, other.made_);
    return *this;
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  ~Folder() {
    if (fd_ >= 0) close(fd_);
  }

  [[nodiscard]] std::size_t made() const { return *made_; }

  [[nodiscard]] Folder folder(const std::string& name) const {
    if (mkdirat(fd_, name.c_str(), 0777) != 0) fail(name);
    ++*made_;
    const int child = openat(fd_, name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (child < 0) fail(name);
    return {child, *made_};
  }

  void file(const std::string& name, std::string_view text) const {
    const int fd = openat(fd_, name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (fd < 0) fail(name);
    const auto written = write(fd, text.data(), text.size());
    // Git trusts its record of a file only when the file is clearly older than the record.
    const timespec old{.tv_sec = 1'700'000'000, .tv_nsec = 0};
    const std::array times{old, old};
    const bool good =
        written == static_cast<ssize_t>(text.size()) && futimens(fd, times.data()) == 0;
    if (close(fd) != 0 || !good) fail(name);
    ++*made_;
  }

  void files(const std::string& stem, const std::string& ending, std::size_t count,
             Dice& dice) const {
    for (std::size_t i = 0; i < count; ++i) {
      file(stem + std::to_string(i) + ending, filler(dice.fileSize()));
    }
  }

  void link(const std::string& target, const std::string& name) const {
    if (symlinkat(target.c_str(), fd_, name.c_str()) != 0) fail(name);
    ++*made_;
  }

 private:
  Folder(int fd, std::size_t& made) : fd_(fd), made_(&made) {}

  int fd_ = -1;
  std::size_t* made_;
};

void git(const std::filesystem::path& folder, std::vector<std::string> arguments) {
  std::vector<std::string> words{"git",       "-C", folder.string(),  "-c",
                                 "gc.auto=0", "-c", "core.fsync=none"};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<std::string> variables{
      "PATH=/usr/bin:/bin",
      "GIT_CONFIG_GLOBAL=/dev/null",
      "GIT_CONFIG_NOSYSTEM=1",
      "GIT_AUTHOR_NAME=Bench",
      "GIT_AUTHOR_EMAIL=bench@broomtide.example",
      "GIT_AUTHOR_DATE=1700000000 +0000",
      "GIT_COMMITTER_NAME=Bench",
      "GIT_COMMITTER_EMAIL=bench@broomtide.example",
      "GIT_COMMITTER_DATE=1700000000 +0000",
  };
  const auto pointers = [](std::vector<std::string>& texts) {
    std::vector<char*> result;
    result.reserve(texts.size() + 1);
    for (auto& text : texts) result.push_back(text.data());
    result.push_back(nullptr);
    return result;
  };
  pid_t child = 0;
  errno = posix_spawn(&child, "/usr/bin/git", nullptr, nullptr, pointers(words).data(),
                      pointers(variables).data());
  if (errno != 0) fail("/usr/bin/git");
  int status = 0;
  if (waitpid(child, &status, 0) != child || status != 0) {
    throw std::runtime_error("git failed in " + folder.string());
  }
}

void commit(const std::filesystem::path& folder) {
  git(folder, {"init", "--quiet", "--template=", "--initial-branch=main"});
  git(folder, {"add", "--all"});
  git(folder, {"commit", "--quiet", "--message=Initial commit"});
}

std::size_t countEntries(const std::filesystem::path& folder) {
  const std::filesystem::recursive_directory_iterator entries(folder);
  return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
}

/// Makes `parts` parts of a tree on every processor there is, and hands on the first failure.
void inParallel(std::size_t parts, const std::function<void(std::size_t)>& make) {
  std::atomic<std::size_t> next = 0;
  const auto worker = [&] {
    try {
      for (auto part = next++; part < parts; part = next++) make(part);
    } catch (...) {
      next = parts;
      throw;
    }
  };
  std::vector<std::future<void>> workers;
  for (unsigned i = 0; i < std::max(1U, std::thread::hardware_concurrency()); ++i) {
    workers.push_back(std::async(std::launch::async, worker));
  }
  for (auto& each : workers) each.wait();
  for (auto& each : workers) each.get();
}

// A JavaScript repository: sources under Git, and what building, testing and installing leave
// beside them.

std::string packageName(std::size_t number) {
  static constexpr std::array first{"async", "babel",  "color", "debug", "event",  "fetch",
                                    "graph", "http",   "iter",  "json",  "lodash", "micro",
                                    "node",  "object", "parse", "query", "react",  "stream",
                                    "tiny",  "url",    "vite",  "web",   "yaml",   "zip"};
  static constexpr std::array second{"cache",  "core",   "dom",    "emitter", "format", "glob",
                                     "helper", "info",   "loader", "merge",   "path",   "plugin",
                                     "router", "schema", "types",  "utils"};
  const auto series = number / (first.size() * second.size());
  auto name = std::string(first.at(number % first.size())) + '-' +
              second.at(number / first.size() % second.size());
  return series == 0 ? name : name + std::to_string(series);
}

std::string manifest(const std::string& name) {
  return "{\n  \"name\": \"" + name +
         "\",\n  \"version\": \"1.4.2\",\n  \"main\": \"index.js\"\n}\n";
}

void installPackage(const Folder& modules, std::size_t number, int nesting, Dice& dice) {
  const auto name = packageName(number);
  const auto package = modules.folder(name);
  package.file("package.json", manifest(name));
  package.file("LICENSE", filler(1'070));
  package.file("README.md", filler(dice.fileSize()));
  package.file("index.js", filler(dice.fileSize()));
  package.folder("lib").files("part", ".js", dice.between(2, 20), dice);
  if (dice.oneIn(3)) package.folder("dist").files("bundle", ".min.js", dice.between(1, 8), dice);
  if (nesting < maxNesting && dice.oneIn(5)) {
    const auto nested = package.folder("node_modules");
    const auto packages = dice.between(1, 3);
    for (std::size_t i = 1; i <= packages; ++i)
      installPackage(nested, number + i, nesting + 1, dice);
  }
}

void installPackages(const Folder& repository, std::size_t budget, Dice& dice) {
  const auto modules = repository.folder("node_modules");
  const auto commands = modules.folder(".bin");
  const auto offset = dice.below(200);
  for (std::size_t i = 0; repository.made() < budget; ++i) {
    installPackage(modules, offset + i, 0, dice);
    if (i % 8 == 0) {
      const auto name = packageName(offset + i);
      commands.link("../" + name + "/index.js", name);
    }
  }
}

void writeSources(const Folder& folder, const std::string& name, Dice& dice) {
  folder.file("package.json", manifest(name));
  folder.file("tsconfig.json", "{ \"compilerOptions\": { \"strict\": true } }\n");
  const auto src = folder.folder("src");
  src.file("index.ts", "export * from './lib/part0';\n");
  for (const auto* part : {"components", "lib", "pages"}) {
    src.folder(part).files("part", ".ts", dice.between(4, 12), dice);
  }
  folder.folder("tests").files("part", ".test.ts", dice.between(2, 8), dice);
}

void writeCoverage(const Folder& repository, Dice& dice) {
  const auto coverage = repository.folder("coverage");
  coverage.file("lcov.info", filler(dice.between(10'000, largestFile)));
  coverage.folder("lcov-report").files("part", ".ts.html", dice.between(10, 40), dice);
}

void writeNextBuild(const Folder& repository, Dice& dice) {
  const auto next = repository.folder(".next");
  next.file("BUILD_ID", "c0ffee");
  next.folder("cache").folder("webpack").files("", ".pack", dice.between(2, 6), dice);
  next.folder("server").folder("pages").files("page", ".html", dice.between(10, 30), dice);
  next.folder("static").folder("chunks").files("chunk", ".js", dice.between(20, 60), dice);
}

void writeRepository(const std::filesystem::path& path, std::size_t index, std::size_t budget,
                     std::uint64_t seed) {
  Dice dice(seed, index);
  std::size_t made = 1;
  const Folder repository(path, made);
  const auto name = path.filename().string();
  const bool isWorkspace = index % 4 == 1;
  const bool tracksDist = index % 10 == 3;
  const bool ignoresCoverage = index % 10 != 7;

  std::string ignored = "node_modules/\n.next/\n";
  if (!tracksDist) ignored += "dist/\n";
  if (ignoresCoverage) ignored += "coverage/\n";
  repository.file(".gitignore", ignored);
  repository.file("README.md", "# " + name + "\n");
  repository.file("package-lock.json", filler(dice.between(20'000, largestFile)));
  writeSources(repository, name, dice);
  if (tracksDist) repository.folder("dist").files("asset", ".js", dice.between(5, 30), dice);
  std::vector<Folder> members;
  if (isWorkspace) {
    const auto packages = repository.folder("packages");
    for (const auto* member : {"api", "shared", "site"}) {
      members.push_back(packages.folder(member));
      writeSources(members.back(), member, dice);
    }
  }
  commit(path);
  made += 1 + countEntries(path / ".git");

  if (!tracksDist) repository.folder("dist").files("asset", ".js", dice.between(5, 30), dice);
  writeCoverage(repository, dice);
  writeNextBuild(repository, dice);
  for (const auto& member : members) {
    member.folder("dist").files("asset", ".js", dice.between(3, 12), dice);
    installPackages(member, made + 60, dice);
  }
  installPackages(repository, budget, dice);
}

void writeRepositories(const std::filesystem::path& root, std::size_t entries, std::uint64_t seed) {
  const auto count = std::max<std::size_t>(1, entries / entriesPerRepository);
  inParallel(count, [&](std::size_t index) {
    const auto share = entries / count;
    Dice dice(
        seed,
        count + index / 2);  // a pair of repositories: what one is larger, the other is smaller
    const auto difference = index == count - 1 && count % 2 == 1 ? 0 : dice.below(share / 2);
    const auto budget = index % 2 == 0 ? share + difference : share - difference;
    writeRepository(root / ("repository-" + std::to_string(index)), index, budget, seed);
  });
}

// Python projects full of packages that each have their own bytecode cache.

void writeProject(const std::filesystem::path& path, std::size_t index, std::size_t artefacts,
                  std::uint64_t seed, bool isRepository) {
  Dice dice(seed, index);
  std::size_t made = 1;
  const Folder project(path, made);
  project.file("pyproject.toml",
               "[project]\nname = \"" + path.filename().string() + "\"\nversion = \"1.0\"\n");
  project.file(".gitignore", "__pycache__/\n");
  const auto source = project.folder("src");
  std::optional<Folder> group;
  for (std::size_t i = 0; i < artefacts; ++i) {
    if (i % partsPerGroup == 0) group = source.folder("group" + std::to_string(i / partsPerGroup));
    const auto part = group->folder("part" + std::to_string(i % partsPerGroup));
    part.file("__init__.py", "");
    part.folder("__pycache__").files("module", ".cpython-311.pyc", 3, dice);
  }
  if (isRepository) commit(path);
}

void writeTinyArtefacts(const std::filesystem::path& root, std::size_t entries, std::uint64_t seed,
                        bool areRepositories) {
  const auto artefacts = std::max<std::size_t>(1, entries / entriesPerArtefact);
  const auto count = (artefacts + artefactsPerProject - 1) / artefactsPerProject;
  inParallel(count, [&](std::size_t index) {
    const auto share = artefacts / count + (index < artefacts % count ? 1 : 0);
    writeProject(root / ("project-" + std::to_string(index)), index, share, seed, areRepositories);
  });
}

void writeFlat(const Folder& root, std::size_t entries, std::uint64_t seed) {
  static constexpr std::array endings{".pdf", ".zip", ".jpg", ".deb", ".iso", ".csv", ".tar.gz"};
  Dice dice(seed, 0);
  for (std::size_t i = 0; i < entries; ++i) {
    root.file("file-" + std::to_string(i) + endings.at(i % endings.size()),
              filler(dice.between(1, 4'000)));
  }
}

// A home folder with something in every known cache location.
void writeCaches(const std::filesystem::path& root, std::size_t entries, std::uint64_t seed) {
  inParallel(CacheRules::targets.size(), [&](std::size_t index) {
    const std::size_t share = entries / CacheRules::targets.size();
    Dice dice(seed, index);
    std::size_t made = 0;
    for (std::size_t part = 0; made < share; ++part) {
      const auto path = root / CacheRules::targets[index].relativePath;
      const Folder folder(path / ("part-" + std::to_string(part)), made);
      installPackages(folder, std::min(share, made + entriesPerCacheFolder), dice);
    }
  });
}

void writeChain(Folder folder, std::size_t entries) {
  for (std::size_t i = 1; i < entries; ++i) folder = folder.folder("level");
  folder.file("deepest.txt", filler(1'000));
}

struct Options {
  std::string kind;
  std::filesystem::path folder;
  std::optional<std::size_t> entries;
  std::uint64_t seed = 1;
  bool isArtefact = false;
  bool hasGit = true;
};

constexpr std::string_view usage =
    "usage: broomtide-bench-tree KIND FOLDER [--entries N] [--seed S] [--artefact] "
    "[--without-git]\n"
    "With --artefact the tree becomes the node_modules of a project in FOLDER; with --without-git\n"
    "the projects of tiny-artefacts are no repositories.\n"
    "kinds (entries unless given):\n"
    "  repositories (1000000)    Git repositories of about 5000 entries with nested node_modules\n"
    "  tiny-artefacts (300000)   projects of 1000 packages, each with a __pycache__ of three "
    "files\n"
    "  caches (1000000)          a home folder with packages in every known cache location\n"
    "  flat (500000)             one folder of files\n"
    "  chain (10001)             folders one in the other, a file in the last\n";

template <typename Number>
Number number(std::string_view text) {
  Number value{};
  const auto* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  if (error != std::errc{} || stop != end)
    throw std::invalid_argument("not a number: " + std::string(text));
  return value;
}

Options parse(const std::vector<std::string>& arguments) {
  Options options;
  std::vector<std::string> plain;
  for (auto word = arguments.begin(); word != arguments.end(); ++word) {
    if (!word->starts_with("--")) {
      plain.push_back(*word);
    } else if (*word == "--artefact") {
      options.isArtefact = true;
    } else if (*word == "--without-git") {
      options.hasGit = false;
    } else if (*word != "--entries" && *word != "--seed") {
      throw std::invalid_argument("unknown option " + *word);
    } else if (word + 1 == arguments.end()) {
      throw std::invalid_argument(*word + " needs a number");
    } else if (*word == "--entries") {
      options.entries = number<std::size_t>(*++word);
      if (*options.entries == 0) throw std::invalid_argument("--entries must be at least 1");
    } else {
      options.seed = number<std::uint64_t>(*++word);
    }
  }
  if (plain.size() != 2) throw std::invalid_argument("one kind and one folder are needed");
  options.kind = plain.at(0);
  options.folder = plain.at(1);
  if (!options.hasGit && options.kind != "tiny-artefacts") {
    throw std::invalid_argument("--without-git is for tiny-artefacts");
  }
  return options;
}

void generate(const Options& options) {
  std::size_t made = 0;
  Folder root(options.folder, made);
  std::filesystem::path folder = options.folder;
  if (options.isArtefact) {
    root.file("package.json", manifest("bench"));
    root = root.folder("node_modules");
    folder /= "node_modules";
  }
  if (options.kind == "repositories") {
    writeRepositories(folder, options.entries.value_or(1'000'000), options.seed);
  } else if (options.kind == "tiny-artefacts") {
    writeTinyArtefacts(folder, options.entries.value_or(300'000), options.seed, options.hasGit);
  } else if (options.kind == "caches") {
    writeCaches(folder, options.entries.value_or(1'000'000), options.seed);
  } else if (options.kind == "flat") {
    writeFlat(root, options.entries.value_or(500'000), options.seed);
  } else {
    writeChain(std::move(root), options.entries.value_or(10'001));
  }
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const auto options = parse({argv + 1, argv + argc});
    static constexpr std::array<std::string_view, 5> kinds{"repositories", "tiny-artefacts",
                                                           "caches", "flat", "chain"};
    if (std::find(kinds.begin(), kinds.end(), options.kind) == kinds.end()) {
      throw std::invalid_argument("unknown kind " + options.kind);
    }
    generate(options);
    return 0;
  } catch (const std::invalid_argument& error) {
    std::cerr << "broomtide-bench-tree: " << error.what() << "\n" << usage;
    return 2;
  } catch (const std::exception& error) {
    std::cerr << "broomtide-bench-tree: " << error.what() << "\n";
    return 1;
  }
}

#pragma once

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include "core/Enumerations.h"
#include "rules/TableChecks.h"

namespace broomtide {

/// A well-known place where developer tools keep downloads and build data. The texts live as long
/// as the program.
struct CacheTarget {
  std::string_view id;            ///< stable and unique
  std::string_view relativePath;  ///< below the chosen folder, without a leading slash
  std::string_view category;
  SafetyLevel safety;
  std::string_view explanation;
  std::optional<std::string_view> regenerationCommand;
  bool expandsChildren;  ///< each visible child folder is offered instead of the location itself
};

namespace CacheRules {

namespace detail {

using enum SafetyLevel;

inline constexpr std::array targetTable = std::to_array<CacheTarget>({
    {.id = "xcode-derived-data",
     .relativePath = "Library/Developer/Xcode/DerivedData",
     .category = "Xcode Build Data",
     .safety = safe,
     .explanation = "Per-project Xcode build data. Xcode recreates it on the next build.",
     .regenerationCommand = "Build the project again in Xcode.",
     .expandsChildren = true},
    {.id = "xcode-device-support-ios",
     .relativePath = "Library/Developer/Xcode/iOS DeviceSupport",
     .category = "Device Symbols",
     .safety = usuallySafe,
     .explanation = "Debug symbols copied from connected iOS devices. Xcode copies them again on "
                    "the next connection, which takes a while.",
     .regenerationCommand = "Reconnect the device and let Xcode prepare it again.",
     .expandsChildren = true},
    {.id = "xcode-device-support-watchos",
     .relativePath = "Library/Developer/Xcode/watchOS DeviceSupport",
     .category = "Device Symbols",
     .safety = usuallySafe,
     .explanation = "Debug symbols copied from paired Apple Watches. Xcode copies them again on "
                    "the next connection.",
     .regenerationCommand = "Reconnect the device and let Xcode prepare it again.",
     .expandsChildren = true},
    {.id = "coresimulator-caches",
     .relativePath = "Library/Developer/CoreSimulator/Caches",
     .category = "Simulator Cache",
     .safety = safe,
     .explanation = "Simulator runtime caches. The simulator recreates them when needed.",
     .regenerationCommand = std::nullopt,
     .expandsChildren = false},
    {.id = "swiftpm-cache",
     .relativePath = "Library/Caches/org.swift.swiftpm",
     .category = "Dependency Cache",
     .safety = safe,
     .explanation =
         "Swift Package Manager download cache. Packages are downloaded again when resolved.",
     .regenerationCommand = "Run swift package resolve or build the project again.",
     .expandsChildren = false},
    {.id = "cocoapods-cache",
     .relativePath = "Library/Caches/CocoaPods",
     .category = "Dependency Cache",
     .safety = safe,
     .explanation = "CocoaPods download cache. Pods are downloaded again on the next install.",
     .regenerationCommand = "Run pod install again.",
     .expandsChildren = false},
    {.id = "homebrew-cache",
     .relativePath = "Library/Caches/Homebrew",
     .category = "Package Cache",
     .safety = safe,
     .explanation = "Homebrew download cache. Formulae are downloaded again when needed.",
     .regenerationCommand = "Homebrew re-downloads packages on demand.",
     .expandsChildren = false},
    {.id = "pip-cache",
     .relativePath = "Library/Caches/pip",
     .category = "Package Cache",
     .safety = safe,
     .explanation = "pip download cache. Python packages are downloaded again when installed.",
     .regenerationCommand = "pip re-downloads packages on demand.",
     .expandsChildren = false},
    {.id = "yarn-cache",
     .relativePath = "Library/Caches/Yarn",
     .category = "Package Cache",
     .safety = safe,
     .explanation = "Yarn download cache. Packages are downloaded again when installed.",
     .regenerationCommand = "Run yarn install again.",
     .expandsChildren = false},
    {.id = "npm-cache",
     .relativePath = ".npm/_cacache",
     .category = "Package Cache",
     .safety = safe,
     .explanation = "npm download cache. Packages are downloaded again when installed.",
     .regenerationCommand = "npm re-downloads packages on demand.",
     .expandsChildren = false},
    {.id = "go-build-cache",
     .relativePath = "Library/Caches/go-build",
     .category = "Build Cache",
     .safety = safe,
     .explanation = "Go build cache. The compiler recreates it on the next build.",
     .regenerationCommand = "Run go build again.",
     .expandsChildren = false},
    {.id = "playwright-browsers",
     .relativePath = "Library/Caches/ms-playwright",
     .category = "Tool Cache",
     .safety = usuallySafe,
     .explanation = "Playwright browser binaries. They are downloaded again on the next test run, "
                    "which can be large.",
     .regenerationCommand = "Run npx playwright install again.",
     .expandsChildren = false},
    {.id = "gradle-caches",
     .relativePath = ".gradle/caches",
     .category = "Dependency Cache",
     .safety = usuallySafe,
     .explanation = "Global Gradle dependency and build cache. Dependencies are downloaded again "
                    "on the next build.",
     .regenerationCommand = "Run the Gradle build again.",
     .expandsChildren = false},
    {.id = "maven-repository",
     .relativePath = ".m2/repository",
     .category = "Dependency Cache",
     .safety = usuallySafe,
     .explanation = "Local Maven repository. Dependencies are downloaded again on the next build.",
     .regenerationCommand = "Run the Maven build again.",
     .expandsChildren = false},
    {.id = "cargo-registry",
     .relativePath = ".cargo/registry",
     .category = "Dependency Cache",
     .safety = usuallySafe,
     .explanation = "Cargo crate registry cache. Crates are downloaded again on the next build.",
     .regenerationCommand = "Run cargo build again.",
     .expandsChildren = false},
});

// What holds more than a tool gets back by itself has no row. Where only a part of a folder does,
// that part has one; where the parts have names that change, each is offered on its own, or people
// are asked to review it.
inline constexpr std::array linuxTargetTable = std::to_array<CacheTarget>({
    {.id = "linux-pip",
     .relativePath = ".cache/pip",
     .category = "Package Cache",
     .safety = safe,
     .explanation = "pip download cache. Python packages are downloaded again when installed.",
     .regenerationCommand = "pip re-downloads packages on demand.",
     .expandsChildren = false},
    {.id = "uv",
     .relativePath = ".cache/uv",
     .category = "Package Cache",
     .safety = safe,
     .explanation = "uv download and build cache. Packages are downloaded again when installed. "
                    "Environments share its files, so it may free less than it shows.",
     .regenerationCommand = "uv re-downloads packages on demand.",
     .expandsChildren = false},
    {.id = "poetry-cache",
     .relativePath = ".cache/pypoetry/cache",
     .category = "Package Cache",
     .safety = safe,
     .explanation = "Poetry cache of package indexes. They are downloaded again when dependencies "
                    "are resolved.",
     .regenerationCommand = "Run poetry install again.",
     .expandsChildren = false},
    {.id = "poetry-artifacts",
     .relativePath = ".cache/pypoetry/artifacts",
     .category = "Package Cache",
     .safety = safe,
     .explanation = "Poetry download cache. Packages are downloaded again when installed.",
     .regenerationCommand = "Run poetry install again.",
     .expandsChildren = false},
    {.id = "linux-yarn",
     .relativePath = ".cache/yarn",
     .category = "Package Cache",
     .safety = safe,
     .explanation = "Yarn download cache. Packages are downloaded again when installed.",
     .regenerationCommand = "Run yarn install again.",
     .expandsChildren = false},
    {.id = "yarn-berry",
     .relativePath = ".yarn/berry/cache",
     .category = "Package Cache",
     .safety = usuallySafe,
     .explanation = "Yarn cache shared by all projects. Projects that run straight from it need "
                    "their packages installed again.",
     .regenerationCommand = "Run yarn install again in each project.",
     .expandsChildren = false},
    {.id = "pnpm-cache",
     .relativePath = ".cache/pnpm",
     .category = "Package Cache",
     .safety = safe,
     .explanation = "pnpm cache of package metadata and of what pnpm dlx ran. It is downloaded "
                    "again when needed.",
     .regenerationCommand = "pnpm re-downloads packages on demand.",
     .expandsChildren = false},
    {.id = "pnpm-store",
     .relativePath = ".local/share/pnpm/store",
     .category = "Dependency Cache",
     .safety = usuallySafe,
     .explanation = "pnpm package store. Projects hard-link into it, so it frees less than it "
                    "shows. Packages are downloaded again when installed.",
     .regenerationCommand = "Run pnpm install again.",
     .expandsChildren = false},
    {.id = "bun",
     .relativePath = ".bun/install/cache",
     .category = "Package Cache",
     .safety = safe,
     .explanation = "Bun download cache. Packages are downloaded again when installed. Projects "
                    "may hard-link into it, so it may free less than it shows.",
     .regenerationCommand = "Run bun install again.",
     .expandsChildren = false},
    {.id = "deno-deps",
     .relativePath = ".cache/deno/deps",
     .category = "Dependency Cache",
     .safety = usuallySafe,
     .explanation =
         "Modules downloaded by Deno before version 2. They are downloaded again on the next run.",
     .regenerationCommand = "Deno re-downloads modules on demand.",
     .expandsChildren = false},
    {.id = "deno-remote",
     .relativePath = ".cache/deno/remote",
     .category = "Dependency Cache",
     .safety = usuallySafe,
     .explanation = "Modules downloaded by Deno. They are downloaded again on the next run.",
     .regenerationCommand = "Deno re-downloads modules on demand.",
     .expandsChildren = false},
    {.id = "deno-npm",
     .relativePath = ".cache/deno/npm",
     .category = "Dependency Cache",
     .safety = usuallySafe,
     .explanation = "npm packages downloaded by Deno. They are downloaded again on the next run.",
     .regenerationCommand = "Deno re-downloads packages on demand.",
     .expandsChildren = false},
    {.id = "deno-gen",
     .relativePath = ".cache/deno/gen",
     .category = "Dependency Cache",
     .safety = usuallySafe,
     .explanation = "Code that Deno generated from modules. It is generated again on the next run.",
     .regenerationCommand = "Run the program with Deno again.",
     .expandsChildren = false},
    {.id = "node-gyp",
     .relativePath = ".cache/node-gyp",
     .category = "Build Cache",
     .safety = safe,
     .explanation = "Node.js headers for building native modules. They are downloaded again on the "
                    "next build.",
     .regenerationCommand = "node-gyp re-downloads headers on demand.",
     .expandsChildren = false},
    {.id = "electron",
     .relativePath = ".cache/electron",
     .category = "Tool Cache",
     .safety = safe,
     .explanation = "Electron download cache. Electron is downloaded again on the next install.",
     .regenerationCommand = "Run npm install again.",
     .expandsChildren = false},
    {.id = "electron-builder",
     .relativePath = ".cache/electron-builder",
     .category = "Tool Cache",
     .safety = safe,
     .explanation =
         "Tools downloaded by electron-builder. They are downloaded again on the next build.",
     .regenerationCommand = "Run electron-builder again.",
     .expandsChildren = false},
    {.id = "linux-playwright",
     .relativePath = ".cache/ms-playwright",
     .category = "Tool Cache",
     .safety = reviewFirst,
     .explanation =
         "Playwright browser binaries, downloaded again on the next install. A folder named mcp-… "
         "is a browser profile instead, with its logins, and does not come back.",
     .regenerationCommand = "Run npx playwright install again.",
     .expandsChildren = true},
    {.id = "cypress",
     .relativePath = ".cache/Cypress",
     .category = "Tool Cache",
     .safety = usuallySafe,
     .explanation =
         "Cypress binaries. They are downloaded again on the next install, which can be large.",
     .regenerationCommand = "Run npx cypress install again.",
     .expandsChildren = false},
    {.id = "puppeteer",
     .relativePath = ".cache/puppeteer",
     .category = "Tool Cache",
     .safety = usuallySafe,
     .explanation = "Browsers downloaded by Puppeteer. They are downloaded again on the next "
                    "install, which can be large.",
     .regenerationCommand = "Run npx puppeteer browsers install again.",
     .expandsChildren = false},
    {.id = "linux-go-build",
     .relativePath = ".cache/go-build",
     .category = "Build Cache",
     .safety = safe,
     .explanation = "Go build cache, with the inputs that fuzzing found. The compiler recreates it "
                    "on the next build, and fuzzing finds inputs again.",
     .regenerationCommand = "Run go build again.",
     .expandsChildren = false},
    {.id = "go-modules",
     .relativePath = "go/pkg/mod",
     .category = "Dependency Cache",
     .safety = usuallySafe,
     .explanation = "Go module cache. Modules are downloaded again on the next build.",
     .regenerationCommand = "Run go mod download again.",
     .expandsChildren = false},
    {.id = "cargo-git",
     .relativePath = ".cargo/git",
     .category = "Dependency Cache",
     .safety = usuallySafe,
     .explanation = "Cargo cache of Git dependencies. They are cloned again on the next build.",
     .regenerationCommand = "Run cargo build again.",
     .expandsChildren = false},
    {.id = "rustup-downloads",
     .relativePath = ".rustup/downloads",
     .category = "Tool Cache",
     .safety = safe,
     .explanation = "rustup download cache. Toolchains are downloaded again when installed.",
     .regenerationCommand = "rustup re-downloads toolchains on demand.",
     .expandsChildren = false},
    {.id = "sccache",
     .relativePath = ".cache/sccache",
     .category = "Build Cache",
     .safety = safe,
     .explanation = "Compiler cache. Compilations are cached again on the next build.",
     .regenerationCommand = "Build the project again with sccache.",
     .expandsChildren = false},
    {.id = "ccache",
     .relativePath = ".cache/ccache",
     .category = "Build Cache",
     .safety = safe,
     .explanation = "Part of the compiler cache. Compilations are cached again on the next build.",
     .regenerationCommand = "Build the project again with ccache.",
     .expandsChildren = true},
    {.id = "ccache-home",
     .relativePath = ".ccache",
     .category = "Build Cache",
     .safety = safe,
     .explanation = "Part of the compiler cache. Compilations are cached again on the next build.",
     .regenerationCommand = "Build the project again with ccache.",
     .expandsChildren = true},
    {.id = "bazel",
     .relativePath = ".cache/bazel",
     .category = "Build Cache",
     .safety = usuallySafe,
     .explanation = "Bazel outputs and downloads of all workspaces. They are built and downloaded "
                    "again on the next build, which takes a while.",
     .regenerationCommand = "Run bazel build again.",
     .expandsChildren = false},
    {.id = "composer",
     .relativePath = ".cache/composer",
     .category = "Package Cache",
     .safety = safe,
     .explanation = "Composer download cache. Packages are downloaded again when installed.",
     .regenerationCommand = "Run composer install again.",
     .expandsChildren = false},
    {.id = "composer-home",
     .relativePath = ".composer/cache",
     .category = "Package Cache",
     .safety = safe,
     .explanation = "Composer download cache. Packages are downloaded again when installed.",
     .regenerationCommand = "Run composer install again.",
     .expandsChildren = false},
    {.id = "nuget-packages",
     .relativePath = ".nuget/packages",
     .category = "Dependency Cache",
     .safety = usuallySafe,
     .explanation =
         "Global NuGet package folder. Packages are downloaded again on the next restore.",
     .regenerationCommand = "Run dotnet restore again.",
     .expandsChildren = false},
    {.id = "nuget-v3-cache",
     .relativePath = ".local/share/NuGet/v3-cache",
     .category = "Package Cache",
     .safety = safe,
     .explanation = "NuGet download cache. Packages are downloaded again on the next restore.",
     .regenerationCommand = "Run dotnet restore again.",
     .expandsChildren = false},
    {.id = "nuget-http-cache",
     .relativePath = ".local/share/NuGet/http-cache",
     .category = "Package Cache",
     .safety = safe,
     .explanation = "NuGet download cache. Packages are downloaded again on the next restore.",
     .regenerationCommand = "Run dotnet restore again.",
     .expandsChildren = false},
    {.id = "linux-homebrew",
     .relativePath = ".cache/Homebrew",
     .category = "Package Cache",
     .safety = safe,
     .explanation = "Homebrew download cache. Formulae are downloaded again when needed.",
     .regenerationCommand = "Homebrew re-downloads packages on demand.",
     .expandsChildren = false},
    {.id = "linux-swiftpm",
     .relativePath = ".cache/org.swift.swiftpm",
     .category = "Dependency Cache",
     .safety = safe,
     .explanation =
         "Swift Package Manager download cache. Packages are downloaded again when resolved.",
     .regenerationCommand = "Run swift package resolve or build the project again.",
     .expandsChildren = false},
    {.id = "pub-hosted",
     .relativePath = ".pub-cache/hosted",
     .category = "Dependency Cache",
     .safety = usuallySafe,
     .explanation = "Dart and Flutter package cache. Projects use packages straight from it until "
                    "they are downloaded again.",
     .regenerationCommand = "Run dart pub get or flutter pub get again.",
     .expandsChildren = false},
    {.id = "hex-packages",
     .relativePath = ".hex/packages",
     .category = "Package Cache",
     .safety = safe,
     .explanation =
         "Hex download cache. Packages are downloaded again when dependencies are fetched.",
     .regenerationCommand = "Run mix deps.get again.",
     .expandsChildren = false},
    {.id = "cabal-packages",
     .relativePath = ".cabal/packages",
     .category = "Dependency Cache",
     .safety = usuallySafe,
     .explanation = "Cabal cache of package indexes and sources. They are downloaded again on the "
                    "next update and build.",
     .regenerationCommand = "Run cabal update and build the project again.",
     .expandsChildren = false},
    {.id = "stack-pantry",
     .relativePath = ".stack/pantry",
     .category = "Dependency Cache",
     .safety = usuallySafe,
     .explanation =
         "Stack cache of package indexes and sources. They are downloaded again on the next build.",
     .regenerationCommand = "Run stack build again.",
     .expandsChildren = false},
    {.id = "gem-specs",
     .relativePath = ".gem/specs",
     .category = "Package Cache",
     .safety = safe,
     .explanation = "RubyGems cache of package indexes. They are downloaded again when needed.",
     .regenerationCommand = "RubyGems re-downloads indexes on demand.",
     .expandsChildren = false},
    {.id = "pre-commit",
     .relativePath = ".cache/pre-commit",
     .category = "Tool Cache",
     .safety = reviewFirst,
     .explanation =
         "Environments of pre-commit hooks, installed again on the next run. Patch files in it "
         "hold changes that were not staged while hooks ran, and do not come back.",
     .regenerationCommand = "Run pre-commit install-hooks again in each project.",
     .expandsChildren = false},
    {.id = "vcpkg-archives",
     .relativePath = ".cache/vcpkg/archives",
     .category = "Build Cache",
     .safety = safe,
     .explanation =
         "Packages built by vcpkg. They are built again on the next install, which takes a while.",
     .regenerationCommand = "Run vcpkg install again.",
     .expandsChildren = false},
    {.id = "conan-packages",
     .relativePath = ".conan2/p",
     .category = "Dependency Cache",
     .safety = usuallySafe,
     .explanation = "Conan package cache. Packages are downloaded again on the next install; those "
                    "made on this machine are made again from their recipes.",
     .regenerationCommand = "Run conan install again, and conan create for your own packages.",
     .expandsChildren = false},
    {.id = "zig",
     .relativePath = ".cache/zig",
     .category = "Build Cache",
     .safety = safe,
     .explanation = "Zig build and package cache. The compiler recreates it on the next build.",
     .regenerationCommand = "Run zig build again.",
     .expandsChildren = false},
    {.id = "jetbrains",
     .relativePath = ".cache/JetBrains",
     .category = "Tool Cache",
     .safety = reviewFirst,
     .explanation = "Indexes and caches of a JetBrains IDE, which recreates them. The local "
                    "history of your files is in it too, and does not come back.",
     .regenerationCommand = "Open the projects in the IDE again.",
     .expandsChildren = true},
    {.id = "terraform-plugins",
     .relativePath = ".terraform.d/plugin-cache",
     .category = "Dependency Cache",
     .safety = usuallySafe,
     .explanation =
         "Terraform provider cache. Projects link into it and need their providers again.",
     .regenerationCommand = "Run terraform init again in each project.",
     .expandsChildren = true},
    {.id = "helm-repository",
     .relativePath = ".cache/helm/repository",
     .category = "Package Cache",
     .safety = safe,
     .explanation =
         "Helm cache of chart repositories. Indexes and charts are downloaded again when updated.",
     .regenerationCommand = "Run helm repo update again.",
     .expandsChildren = false},
    {.id = "huggingface-hub",
     .relativePath = ".cache/huggingface/hub",
     .category = "Model Cache",
     .safety = reviewFirst,
     .explanation = "Models and datasets downloaded from Hugging Face. They can be large, and some "
                    "may no longer be offered.",
     .regenerationCommand = "Hugging Face libraries download them again when they are loaded.",
     .expandsChildren = false},
    {.id = "huggingface-datasets",
     .relativePath = ".cache/huggingface/datasets",
     .category = "Model Cache",
     .safety = reviewFirst,
     .explanation = "Datasets prepared by Hugging Face libraries. Preparing them again can take "
                    "long, and some may no longer be offered.",
     .regenerationCommand = "Load the datasets again.",
     .expandsChildren = false},
    {.id = "huggingface-xet",
     .relativePath = ".cache/huggingface/xet",
     .category = "Model Cache",
     .safety = reviewFirst,
     .explanation =
         "Hugging Face transfer cache. Parts of models are downloaded again when needed.",
     .regenerationCommand = "Hugging Face libraries download them again when they are loaded.",
     .expandsChildren = false},
    {.id = "torch",
     .relativePath = ".cache/torch",
     .category = "Model Cache",
     .safety = reviewFirst,
     .explanation = "Models downloaded and kernels compiled by PyTorch. They can be large, and "
                    "some may no longer be offered.",
     .regenerationCommand = "PyTorch downloads models again when they are loaded.",
     .expandsChildren = false},
});

// Whether no location is that of another row, or lies within one.
constexpr bool areApart(const auto& table) {
  return std::ranges::all_of(table, [&table](const CacheTarget& row) {
    return std::ranges::count_if(table, [&row](const CacheTarget& other) {
             const std::string_view path = row.relativePath, outer = other.relativePath;
             return path.starts_with(outer) &&
                    (path.size() == outer.size() || path[outer.size()] == '/');
           }) == 1;
  });
}

template <std::size_t first, std::size_t second>
constexpr std::array<CacheTarget, first + second> joined(
    const std::array<CacheTarget, first>& these, const std::array<CacheTarget, second>& those) {
  std::array<CacheTarget, first + second> all{};
  std::ranges::copy(those, std::ranges::copy(these, all.begin()).out);
  return all;
}

}  // namespace detail

/// The locations that are the same everywhere, and those where macOS keeps the others.
inline constexpr std::array<CacheTarget, 15> targets = detail::targetTable;

/// Where Linux keeps the caches of the same kind of tools, with the folders that they use when no
/// variable of the environment names others.
inline constexpr auto linuxTargets = detail::linuxTargetTable;

/// Every location that is looked at, in the order in which they are visited.
#ifdef __linux__
inline constexpr auto locations = detail::joined(targets, linuxTargets);
#else
inline constexpr auto locations = targets;
#endif

static_assert(hasUniqueIds(locations));
static_assert(detail::areApart(locations));

}  // namespace CacheRules

}  // namespace broomtide

#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "core/Enumerations.h"
#include "rules/TableChecks.h"

namespace broomtide {

/// A well-known place where developer tools keep downloads and build data. The texts live as long
/// as the program.
struct CacheTarget {
  std::string_view id;            ///< stable and unique within the table
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

}  // namespace detail

/// The locations, in the order in which they are visited.
inline constexpr std::array<CacheTarget, 15> targets = detail::targetTable;

static_assert(hasUniqueIds(targets));

}  // namespace CacheRules

}  // namespace broomtide

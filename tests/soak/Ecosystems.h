#pragma once

#include <array>
#include <string_view>
#include <vector>

/// Some of the names that a scan of projects knows, written down once more.
namespace broomtide::soak {

/// A kind of project.
struct Ecosystem {
  std::string_view manifest;
  std::vector<std::string_view> folders;  ///< artefacts of its own
  std::vector<std::string_view> foreign;  ///< artefacts of other kinds alone
};

inline const std::array<Ecosystem, 12> ecosystems{{
    {"package.json",
     {"node_modules", ".next", ".turbo", "storybook-static"},
     {"target", "obj", "_build"}},
    {"pyproject.toml", {".venv", "__pycache__", "htmlcov", ".tox"}, {"node_modules", "deps"}},
    {"Cargo.toml", {"target"}, {".venv", "obj", ".gradle"}},
    {"pom.xml", {"target", ".gradle"}, {"bin", "Pods"}},
    {"App.csproj", {"bin", "obj", "TestResults"}, {"target", ".stack-work"}},
    {"Package.swift", {".build", "Pods", "DerivedData"}, {"CMakeFiles", "vendor"}},
    {"pubspec.yaml", {".dart_tool"}, {"target", "obj"}},
    {"mix.exs", {"_build", "deps"}, {"node_modules", "bin"}},
    {"CMakeLists.txt", {"CMakeFiles", "cmake-build-debug"}, {"_build", ".nuxt"}},
    {"app.cabal", {"dist-newstyle", ".stack-work"}, {".terraform", "obj"}},
    {"main.tf", {".terraform", ".terragrunt-cache"}, {"target", ".venv"}},
    {"go.mod", {"vendor"}, {"node_modules", "deps"}},
}};

/// Folders that are artefacts in a project of any kind, but nowhere else.
inline constexpr auto commonFolders =
    std::to_array<std::string_view>({"dist", "build", "out", ".cache", "tmp", "logs"});

/// Folders that need no project to be artefacts.
inline constexpr auto looseFolders = std::to_array<std::string_view>(
    {"node_modules", ".next", ".venv", "__pycache__", "vendor", "coverage", ".gradle"});

/// A file that needs none either.
inline constexpr std::string_view metadataFile = ".DS_Store";

/// Folders that no scan of projects looks into.
inline constexpr auto sensitiveFolders =
    std::to_array<std::string_view>({"data", "secrets", "artifacts", "uploads", "models"});

}  // namespace broomtide::soak

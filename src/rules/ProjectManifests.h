#pragma once

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include "core/Enumerations.h"

/// What makes a folder a project: the names of the files that describe it to its tools. Letter case
/// does not count.
namespace broomtide {

struct Manifest {
  std::string_view name;  ///< the whole name, or its end
  ProjectKind kind;
};

/// Whole names, in byte order for binary search.
inline constexpr std::array manifestNames = std::to_array<Manifest>({
    {"build.gradle", ProjectKind::java},
    {"build.gradle.kts", ProjectKind::java},
    {"cargo.toml", ProjectKind::rust},
    {"cmakelists.txt", ProjectKind::cmake},
    {"composer.json", ProjectKind::php},
    {"deno.json", ProjectKind::javascript},
    {"deno.jsonc", ProjectKind::javascript},
    {"gemfile", ProjectKind::ruby},
    {"go.mod", ProjectKind::go},
    {"go.work", ProjectKind::go},
    {"mix.exs", ProjectKind::elixir},
    {"package.json", ProjectKind::javascript},
    {"package.swift", ProjectKind::swift},
    {"pipfile", ProjectKind::python},
    {"pnpm-workspace.yaml", ProjectKind::javascript},
    {"poetry.lock", ProjectKind::python},
    {"pom.xml", ProjectKind::java},
    {"pubspec.yaml", ProjectKind::flutter},
    {"pyproject.toml", ProjectKind::python},
    {"requirements.txt", ProjectKind::python},
    {"settings.gradle", ProjectKind::java},
    {"settings.gradle.kts", ProjectKind::java},
    {"setup.py", ProjectKind::python},
    {"stack.yaml", ProjectKind::haskell},
});
static_assert(std::ranges::is_sorted(manifestNames, {}, &Manifest::name));

/// Ends of names, where no whole name fits.
inline constexpr std::array manifestSuffixes = std::to_array<Manifest>({
    {".csproj", ProjectKind::dotnet},
    {".fsproj", ProjectKind::dotnet},
    {".vbproj", ProjectKind::dotnet},
    {".sln", ProjectKind::dotnet},
    {".cabal", ProjectKind::haskell},
    {".tf", ProjectKind::terraform},
});

/// Ends of the names of folders that are manifests of a Swift project as a whole. Letter case
/// counts.
inline constexpr std::array<std::string_view, 2> xcodeBundleSuffixes{".xcodeproj", ".xcworkspace"};

/// The ecosystem that a regular file of this name marks its folder as belonging to.
std::optional<ProjectKind> manifestKind(std::string_view name);

}  // namespace broomtide

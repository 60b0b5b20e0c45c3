#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

/// Where package managers and programs keep what they have installed. It is called as what
/// developers build, and is no project: without it, something stops working.
namespace broomtide {

struct InstalledPlace {
  /// What a place is relative to.
  enum class Base {
    anything,    ///< any folder
    home,        ///< the home of a user
    fileSystem,  ///< the top of the file system
  };

  std::string_view path;  ///< relative; a component that ends with "*" stands for all beginnings
  Base base = Base::anything;
};

inline constexpr std::array installedPlaces = [] {
  using enum InstalledPlace::Base;
  return std::to_array<InstalledPlace>({
      // Editors and their extensions.
      {".vscode*/extensions"},
      {".vscode-server*", home},
      {".vscode-remote", home},
      {".cursor*", home},
      {".windsurf*", home},
      {".vim", home},
      {".emacs.d", home},
      // JavaScript.
      {".nvm/versions"},
      {".nodenv/versions"},
      {".volta"},
      {".fnm"},
      {".npm/_npx"},
      {".npm-global", home},
      {".npm-packages", home},
      {".bun/install"},
      {".deno"},
      {".yarn", home},
      {".pnpm-global"},
      {"pnpm/global"},
      {"yarn/global"},
      // Python.
      {"site-packages"},
      {"dist-packages"},
      {".local/pipx"},
      {"share/pipx"},
      {"uv/tools"},
      {"uv/python"},
      {".pyenv/versions"},
      {".conda", home},
      // Ruby, Go, Rust, Java, .NET, Dart, Haskell, OCaml and others.
      {".rbenv/versions"},
      {".rvm"},
      {".gem", home},
      {"go/pkg/mod"},
      {".goenv/versions"},
      {".rustup/toolchains"},
      {".cargo/bin"},
      {".cargo/registry"},
      {".cargo/git"},
      {".m2"},
      {".gradle", home},
      {".sdkman"},
      {".jenv/versions"},
      {".jbang", home},
      {".nuget"},
      {".dotnet", home},
      {".pub-cache"},
      {".composer", home},
      {".ghcup"},
      {".cabal", home},
      {".stack", home},
      {".opam", home},
      {".elan", home},
      {".juliaup"},
      {".julia", home},
      {".luarocks", home},
      {".asdf/installs"},
      {"mise/installs"},
      {".platformio", home},
      {".espressif", home},
      {".arduino15", home},
      {".android", home},
      {"Android/Sdk"},
      // Programs and games.
      {".var/app"},
      {"snap", home},
      {".steam", home},
      {"share/Steam"},
      {"steamapps/common"},
      {".wine*", home},
      {"drive_c"},
      {".config", home},
      {".mozilla", home},
      {".thunderbird", home},
      {".linuxbrew"},
      {"usr", fileSystem},
      {"opt", fileSystem},
      {"nix", fileSystem},
      {"gnu/store", fileSystem},
      {"snap", fileSystem},
      {"var/lib/flatpak", fileSystem},
      {"var/lib/snapd", fileSystem},
  });
}();

/// Whether the folder `name` is such a place. It lies in the folder at the relative path `parent`,
/// which may be empty, below `root`, an absolute path; `homes` are the homes of users, absolute
/// paths. None goes through symlinks. Nearly all names cost no allocation.
bool isInstalledPlace(std::string_view root, std::string_view parent, std::string_view name,
                      std::span<const std::string> homes);

/// Whether the folder at this absolute path is the home of a user: one of `homes`, or a folder
/// where homes usually are.
bool isHome(std::string_view path, std::span<const std::string> homes);

/// The files and folders that mark a folder as installed: a Python environment, all of Conda, a
/// program with a browser of its own.
inline constexpr std::string_view environmentMark = "pyvenv.cfg";
inline constexpr std::string_view condaMark = "conda-meta";
inline constexpr std::array<std::string_view, 2> electronMarks{"chrome-sandbox",
                                                               "chrome_100_percent.pak"};

}  // namespace broomtide

#pragma once

#include <algorithm>
#include <array>
#include <string_view>

/// The names that a project scan keeps away from, in byte order for binary search.
namespace broomtide::ScanRules {

/// Folders that a project scan never enters.
inline constexpr std::array<std::string_view, 13> sensitiveDirectoryNames{
    ".dvc",       ".git",   "artifacts", "checkpoints", "data",    "database", "datasets",
    "migrations", "models", "secrets",   "storage",     "uploads", "weights"};

/// Those of them that folders of sources are often called as well. Tools repeat these names.
inline constexpr std::array<std::string_view, 6> guardedNamesOfSources{
    "artifacts", "data", "database", "migrations", "models", "storage"};

/// Files that a project scan never offers, in small letters; letter case does not count.
inline constexpr std::array<std::string_view, 7> protectedFileNames{
    ".terraform.lock.hcl", "cargo.lock",  "composer.lock", "package-lock.json",
    "pnpm-lock.yaml",      "poetry.lock", "yarn.lock"};

/// The path extensions of such files, in small letters; letter case does not count.
inline constexpr std::array<std::string_view, 19> protectedExtensions{
    "ckpt",   "db",      "gguf",  "h5",  "keras", "key", "mlmodel",     "mobileprovision",
    "onnx",   "p12",     "pem",   "pfx", "pt",    "pth", "safetensors", "sql",
    "sqlite", "sqlite3", "tflite"};

static_assert(std::ranges::is_sorted(sensitiveDirectoryNames));
static_assert(std::ranges::is_sorted(guardedNamesOfSources));
static_assert(std::ranges::is_sorted(protectedFileNames));
static_assert(std::ranges::is_sorted(protectedExtensions));

/// Files with this name, or with a name that goes on with a dot, are never offered either. Letter
/// case does not count.
inline constexpr std::string_view environmentFile = ".env";

/// The path extensions of what people write, in small letters; letter case does not count.
inline constexpr std::array<std::string_view, 61> sourceExtensions{
    "bash",  "bat",  "c",   "cc",  "clj",  "cmd",   "cpp", "cs",     "cxx",   "dart", "doc",
    "docx",  "erl",  "ex",  "exs", "fish", "fs",    "go",  "h",      "hpp",   "hrl",  "hs",
    "ipynb", "java", "jl",  "js",  "jsx",  "kt",    "kts", "lua",    "m",     "md",   "mjs",
    "ml",    "odp",  "ods", "odt", "pdf",  "php",   "pl",  "pm",     "ppt",   "pptx", "ps1",
    "psm1",  "py",   "r",   "rb",  "rs",   "scala", "sh",  "svelte", "swift", "tex",  "ts",
    "tsx",   "vb",   "vue", "xls", "xlsx", "zsh"};

static_assert(std::ranges::is_sorted(sourceExtensions));

}  // namespace broomtide::ScanRules

#include "rules/ContextPolicy.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "rules/ScanRuleTables.h"

namespace broomtide {
namespace {

using enum ProjectKind;

constexpr std::uint32_t bit(ProjectKind kind) { return 1U << static_cast<unsigned>(kind); }

constexpr std::uint32_t bits(auto... kinds) { return (bit(kinds) | ...); }

// Kinds, allowed without a project, generic name, the way to get the artefact back.
constexpr ContextPolicy javascriptBuild{bits(javascript), true, false,
                                        "Run the project's package-manager build command."};
constexpr ContextPolicy javascriptPackages{bits(javascript), true, false,
                                           "Run npm install, pnpm install, or yarn install."};
constexpr ContextPolicy pythonCache{
    bits(python), true, false, "Run the relevant Python test, lint, or type-check command again."};
constexpr ContextPolicy pythonEnvironment{
    bits(python), true, false,
    "Recreate the environment and install dependencies from the project lock or requirements "
    "file."};
constexpr ContextPolicy swiftBuild{bits(swift), true, false, "Run swift build again."};
constexpr ContextPolicy pods{bits(swift), true, false, "Run pod install again."};
constexpr ContextPolicy xcodeBuild{bits(swift), true, false, "Build the project again in Xcode."};
constexpr ContextPolicy compilerTarget{bits(rust, java), false, true,
                                       "Run the project's compiler or build command again."};
constexpr ContextPolicy gradle{bits(java), true, false, "Run the Gradle build again."};
constexpr ContextPolicy dotnetBuild{bits(dotnet), false, false,
                                    "Run dotnet build or dotnet test again."};
constexpr ContextPolicy flutterBuild{bits(flutter), false, false,
                                     "Run flutter pub get and rebuild the project."};
constexpr ContextPolicy elixirBuild{bits(elixir), false, false, "Run mix compile again."};
constexpr ContextPolicy elixirPackages{bits(elixir), false, false, "Run mix deps.get again."};
constexpr ContextPolicy cmakeBuild{bits(cmake), false, false,
                                   "Configure and build the CMake project again."};
constexpr ContextPolicy haskellBuild{bits(haskell), false, false,
                                     "Run the Stack or Cabal build again."};
constexpr ContextPolicy terraformState{bits(terraform), false, false,
                                       "Run terraform init or terragrunt init again."};
constexpr ContextPolicy vendored{bits(php, go, ruby), true, false,
                                 "Restore dependencies with the project's package manager."};
constexpr ContextPolicy coverage{0, true, false, "Run the test suite with coverage again."};
constexpr ContextPolicy deployment{0, true, false,
                                   "Run the deployment framework build or package command again."};
constexpr ContextPolicy desktopMetadata{0, true, false, {}};
constexpr ContextPolicy commonWord{0, false, true,
                                   "Run the relevant project build or development command again."};
constexpr ContextPolicy unlisted{};

struct NamedPolicy {
  std::string_view ruleId;
  const ContextPolicy* policy;
};

constexpr std::array policies = [] {
  auto table = std::to_array<NamedPolicy>({
      {"next", &javascriptBuild},
      {"nuxt", &javascriptBuild},
      {"svelte-kit", &javascriptBuild},
      {"astro", &javascriptBuild},
      {"framework-output", &javascriptBuild},
      {"vercel", &javascriptBuild},
      {"angular", &javascriptBuild},
      {"expo", &javascriptBuild},
      {"docusaurus", &javascriptBuild},
      {"storybook-static", &javascriptBuild},
      {"turbo", &javascriptBuild},
      {"vite", &javascriptBuild},
      {"parcel", &javascriptBuild},
      {"webpack", &javascriptBuild},
      {"nyc-output", &javascriptBuild},
      {"eslint-cache", &javascriptBuild},
      {"stylelint-cache", &javascriptBuild},
      {"node-modules", &javascriptPackages},
      {"pnpm-store", &javascriptPackages},
      {"pytest", &pythonCache},
      {"mypy", &pythonCache},
      {"ruff", &pythonCache},
      {"pycache", &pythonCache},
      {"htmlcov", &pythonCache},
      {"python-venv", &pythonEnvironment},
      {"python-venv-visible", &pythonEnvironment},
      {"tox", &pythonEnvironment},
      {"nox", &pythonEnvironment},
      {"swift-build", &swiftBuild},
      {"pods", &pods},
      {"derived-data", &xcodeBuild},
      {"rust-target", &compilerTarget},
      {"gradle", &gradle},
      {"dotnet-bin", &dotnetBuild},
      {"dotnet-obj", &dotnetBuild},
      {"dotnet-test-results", &dotnetBuild},
      {"dart-tool", &flutterBuild},
      {"flutter-packages", &flutterBuild},
      {"flutter-plugins", &flutterBuild},
      {"flutter-plugin-dependencies", &flutterBuild},
      {"elixir-build", &elixirBuild},
      {"elixir-deps", &elixirPackages},
      {"cmake-files", &cmakeBuild},
      {"cmake-debug", &cmakeBuild},
      {"cmake-release", &cmakeBuild},
      {"cmake-cache-file", &cmakeBuild},
      {"haskell-stack", &haskellBuild},
      {"haskell-cabal", &haskellBuild},
      {"terraform", &terraformState},
      {"terragrunt", &terraformState},
      {"vendor", &vendored},
      {"coverage", &coverage},
      {"serverless", &deployment},
      {"aws-sam", &deployment},
      {"ds-store", &desktopMetadata},
      {"dist", &commonWord},
      {"build", &commonWord},
      {"out", &commonWord},
      {"cache", &commonWord},
      {"tmp-hidden", &commonWord},
      {"tmp", &commonWord},
      {"temp", &commonWord},
      {"logs", &commonWord},
      {"log", &commonWord},
  });
  std::ranges::sort(table, {}, &NamedPolicy::ruleId);  // for binary search
  return table;
}();

constexpr bool isListedOnce(std::string_view ruleId) {
  return std::ranges::count(policies, ruleId, &NamedPolicy::ruleId) == 1;
}
static_assert(policies.size() == ScanRules::project.size());
static_assert(std::ranges::all_of(ScanRules::project, isListedOnce, &ScanRule::id));

}  // namespace

bool ContextPolicy::accepts(const ProjectContext* context) const {
  if (context == nullptr) return allowsWithoutProject;
  return kinds == 0 || std::ranges::any_of(context->kinds, [this](ProjectKind kind) {
           return (kinds & bit(kind)) != 0;
         });
}

const ContextPolicy& contextPolicy(std::string_view ruleId) {
  const auto found = std::ranges::lower_bound(policies, ruleId, {}, &NamedPolicy::ruleId);
  return found != policies.end() && found->ruleId == ruleId ? *found->policy : unlisted;
}

}  // namespace broomtide

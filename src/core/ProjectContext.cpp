#include "core/ProjectContext.h"

#include "core/Paths.h"

namespace broomtide {

std::string ProjectContext::id() const { return paths::standardized(root); }

std::string ProjectContext::name() const { return std::string(paths::lastComponent(id())); }

std::string ProjectReclaimSummary::id() const { return paths::standardized(root); }

}  // namespace broomtide

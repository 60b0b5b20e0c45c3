#pragma once

namespace broomtide::soak {

/// Gives up the right to read and change everything whatever its permissions say, which root has,
/// for this thread and those that it starts. Others do not have it, and so nothing happens.
void giveUpOverridingPermissions();

}  // namespace broomtide::soak

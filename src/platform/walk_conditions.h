#pragma once

namespace corvane {

/// Sets up the calling thread for a walk, and restores the previous settings. Calls nest.
void enterWalk();
void leaveWalk();

/// While it exists, its thread walks without downloading cloud-only files, without updating access times, and at
/// user-initiated priority. The settings are per thread, so every thread of a walk creates its own.
class WalkConditions {
public:
    WalkConditions() { enterWalk(); }
    ~WalkConditions() { leaveWalk(); }
    WalkConditions(const WalkConditions &) = delete;
    WalkConditions &operator=(const WalkConditions &) = delete;
};

} // namespace corvane

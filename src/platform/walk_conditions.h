#pragma once

namespace corvane {

/// Sets what a walk over folders needs of the calling thread, and sets back what was there before. Calls nest.
void enterWalk();
void leaveWalk();

/// As long as it lives, its thread walks: without fetching what lies in a cloud alone, without changing the date of
/// last use, and as work that the user waits for. Both belong to the thread, so every thread of a walk makes its own.
class WalkConditions {
public:
    WalkConditions() { enterWalk(); }
    ~WalkConditions() { leaveWalk(); }
    WalkConditions(const WalkConditions &) = delete;
    WalkConditions &operator=(const WalkConditions &) = delete;
};

} // namespace corvane

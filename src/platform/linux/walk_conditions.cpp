#include "platform/walk_conditions.h"

namespace corvane {

// Nothing to set: O_NOATIME is set for each folder, and Linux threads have no such classes.

void enterWalk() {}

void leaveWalk() {}

} // namespace corvane

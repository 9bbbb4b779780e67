#include "platform/walk_conditions.h"

namespace corvane {

// A folder is opened without a trace of it, item by item, and all threads are alike to the kernel.

void enterWalk() {}

void leaveWalk() {}

} // namespace corvane

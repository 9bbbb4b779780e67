#include "platform/spinning_disk.h"

namespace corvane {

bool isOnSpinningDisk(const std::string & /*folder*/)
{
    // Every Mac of the last years starts from flash storage. What a disk that turns, on a cable, answers here has not
    // been seen yet.
    return false;
}

} // namespace corvane

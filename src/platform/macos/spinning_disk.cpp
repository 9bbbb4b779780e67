#include "platform/spinning_disk.h"

namespace corvane {

bool isOnSpinningDisk(const std::string & /*folder*/)
{
    // Recent Macs start from flash storage. How an external spinning disk reports itself here is untested.
    return false;
}

} // namespace corvane

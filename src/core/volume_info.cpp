#include "core/volume_info.h"

#include <algorithm>

namespace corvane {

VolumeInfo VolumeInfo::current(Volumes &volumes)
{
    const VolumeFacts facts = volumes.facts("/");
    return {.name = facts.name.value_or("Macintosh HD"),
            .total = facts.total.value_or(0),
            .available = std::max(facts.availableForImportantUse.value_or(0), facts.available.value_or(0))};
}

} // namespace corvane

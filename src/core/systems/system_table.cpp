#include "core/systems/system_table.h"

#include "core/systems/mac_places.h"

namespace corvane {

const SystemTable &systemTableOf(SystemKind kind)
{
    static constexpr SystemTable mac{
        .skippedFolders = mac_places::skippedFolders,
        .isMadeOfMounts = false,
        .accessProbe = "Library/Application Support/com.apple.TCC/TCC.db",
        .diskName = "Macintosh HD",
        .hasOwnPlaces = false,
    };
    static constexpr SystemTable linuxSystem{
        .skippedFolders = {},
        .isMadeOfMounts = true,
        .accessProbe = {},
        .diskName = "Disk",
        .hasOwnPlaces = true,
    };
    return kind == SystemKind::mac ? mac : linuxSystem;
}

} // namespace corvane

#include "core/systems/apps_table.h"

namespace corvane {

const AppsTable &appsTableOf(SystemKind kind)
{
    static constexpr AppsTable mac{
        .tellsLastUse = true,
        .tellsIdentifier = false,
        .showsWholePaths = false,
        .dataTitle = "Leftovers in your Library",
        .invitation = "See how much space it really uses, including the caches, preferences and support files it keeps "
                      "in your Library. Or open “Left behind by deleted apps” at the top of the list.",
        .noApps = "Corvane looks for apps in /Applications and in the Applications folder of your home.",
    };
    static constexpr AppsTable linuxSystem{
        .tellsLastUse = false,
        .tellsIdentifier = true,
        .showsWholePaths = true,
        .dataTitle = "Its data in your home folder",
        .invitation = "See how much space it really uses, including the caches, settings and data it keeps in your "
                      "home folder. Or open “Left behind by deleted apps” at the top of the list.",
        .noApps = "Corvane looks for Flatpaks, Snaps, packages with a desktop file, and AppImages and unpacked "
                  "programs that have a desktop file in your home folder.",
    };
    return kind == SystemKind::mac ? mac : linuxSystem;
}

} // namespace corvane

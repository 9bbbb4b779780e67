#include "core/systems/cleanup_table.h"

#include "core/systems/linux_cleanup.h"

namespace corvane {

const CleanupTable &cleanupTableOf(SystemKind kind)
{
    static constexpr CleanupTable mac{
        .rows = {}, .foreignRows = {}, .commands = {}, .countsOnce = false, .foldsEmptyRows = false};
    return kind == SystemKind::mac ? mac : linuxCleanup;
}

} // namespace corvane

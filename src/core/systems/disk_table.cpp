#include "core/systems/disk_table.h"

#include "core/systems/linux_disk.h"
#include "core/systems/mac_disk.h"

namespace corvane {

const DiskTable &diskTableOf(SystemKind kind)
{
    return kind == SystemKind::mac ? macDisk : linuxDisk;
}

} // namespace corvane

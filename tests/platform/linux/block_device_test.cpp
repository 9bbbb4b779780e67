#include "platform/linux/block_device.h"

#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "platform/spinning_disk.h"
#include "support/temporary_folder.h"

namespace corvane {
namespace {

/// A fake of the kernel's device folder.
class BlockDeviceTest : public testing::Test {
protected:
    void add(const std::string &number, const std::string &device)
    {
        sys.makeFolder("dev");
        sys.makeFolder(device);
        std::filesystem::create_symlink("../" + device, sys / ("dev/" + number));
    }
    void tell(const std::string &device, const std::string &answer)
    {
        sys.writeText(device + "/queue/rotational", answer);
    }
    bool spins(const std::string &number) { return isSpinning(sys / "dev", number); }

    TemporaryFolder sys;
};

TEST_F(BlockDeviceTest, ADiskReportsWhetherItIsRotational)
{
    add("8:0", "devices/pci/ata1/block/sda");
    tell("devices/pci/ata1/block/sda", "1\n");
    EXPECT_TRUE(spins("8:0"));
    tell("devices/pci/ata1/block/sda", "0\n");
    EXPECT_FALSE(spins("8:0"));
}

TEST_F(BlockDeviceTest, APartitionIsOnItsDisk)
{
    add("8:1", "devices/pci/ata1/block/sda/sda1");
    tell("devices/pci/ata1/block/sda", "1\n");
    EXPECT_TRUE(spins("8:1"));
}

TEST_F(BlockDeviceTest, TheRotationalFlagOfAVirtualDiskIsIgnored)
{
    add("254:0", "devices/pci/virtio1/block/vda");
    tell("devices/pci/virtio1/block/vda", "1\n");
    EXPECT_FALSE(spins("254:0"));
}

TEST_F(BlockDeviceTest, AnUnknownDeviceIsNotRotational)
{
    add("8:0", "devices/pci/ata1/block/sda");
    EXPECT_FALSE(spins("8:0"));
    EXPECT_FALSE(spins("9:9"));
    EXPECT_FALSE(spins(""));
    EXPECT_FALSE(isOnSpinningDisk("/no such folder"));
    EXPECT_FALSE(isOnSpinningDisk("/proc"));
}

} // namespace
} // namespace corvane

#include "shell/ui/graphics_device.h"

#include <gtest/gtest.h>

#include "support/temporary_folder.h"

namespace corvane {
namespace {

TEST(GraphicsDevice, AFolderWithoutOneHasNone)
{
    const TemporaryFolder devices;
    devices.writeText("null", "");
    devices.writeText("dri/card0", "");
    EXPECT_FALSE(hasGraphicsDevice(devices.path())) << "a screen that nothing draws for";
    EXPECT_FALSE(hasGraphicsDevice(devices / "missing"));
}

TEST(GraphicsDevice, TheKernelsAndForeignDriversHaveFilesOfTheirOwn)
{
    for (const char *const file : {"dri/renderD128", "nvidia0", "mali0", "kgsl-3d0", "dxg"}) {
        const TemporaryFolder devices;
        devices.writeText(file, "");
        EXPECT_TRUE(hasGraphicsDevice(devices.path())) << file;
    }
}

} // namespace
} // namespace corvane

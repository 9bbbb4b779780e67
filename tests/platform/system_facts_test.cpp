#include "platform/system_facts.h"

#include <string>

#include <gtest/gtest.h>

#include "platform/fake_file_system.h"
#include "platform/host.h"

namespace corvane {
namespace {

TEST(SystemFacts, ThisMachineHasASystemAndAnArchitecture)
{
    EXPECT_FALSE(SystemFacts::system(systemHost().files).empty());
    EXPECT_FALSE(SystemFacts::architecture().empty());
}

#ifdef __linux__
constexpr const char *osRelease = "/etc/os-release";
constexpr const char *productName = "/sys/class/dmi/id/product_name";

TEST(SystemFacts, SystemIsReadWithAnyQuotingAndFromEitherPlace)
{
    const auto system = [](const std::string &text, const char *path = osRelease) {
        FakeFileSystem files;
        files.addText(path, text);
        return SystemFacts::system(files);
    };
    EXPECT_EQ(system("PRETTY_NAME='Arch Linux'"), "Arch Linux");
    EXPECT_EQ(system("PRETTY_NAME=Alpine\r\n"), "Alpine");
    EXPECT_EQ(system("PRETTY_NAME=\"The \\\"Box\\\" \\$1\"\n"), "The \"Box\" $1");
    EXPECT_EQ(system("NAME=Fedora\nVERSION=\"39 (Workstation)\"\n"), "Fedora 39 (Workstation)");
    EXPECT_EQ(system("NAME=Void\nPRETTY_NAME=\"\"\nVERSION_ID=7\n"), "Void 7");
    EXPECT_EQ(system("NAME=Void\n"), "Void");
    EXPECT_EQ(system("PRETTY_NAME=\"Second\"", "/usr/lib/os-release"), "Second");
}

TEST(SystemFacts, SystemWithoutANameIsItsKernel)
{
    for (const char *text : {"", "=", "\"", "PRETTY_NAME", "#PRETTY_NAME=x"}) {
        FakeFileSystem files;
        files.addText(osRelease, text);
        const std::string system = SystemFacts::system(files);
        EXPECT_TRUE(system.starts_with("Linux ")) << text << ": " << system;
    }
    FakeFileSystem huge;
    huge.addText(osRelease, std::string(200'000, '\n') + "PRETTY_NAME=x");
    EXPECT_TRUE(SystemFacts::system(huge).starts_with("Linux "));
}

TEST(SystemFacts, PlaceholderModelIsEmpty)
{
    FakeFileSystem none;
    EXPECT_EQ(SystemFacts::model(none), "");
    for (const char *name :
         {"To Be Filled By O.E.M.\n", "System Product Name\n", "Default string", "Not Specified", "None", " \n", ""}) {
        FakeFileSystem files;
        files.addText(productName, name);
        EXPECT_EQ(SystemFacts::model(files), "") << name;
    }
}

TEST(SystemFacts, BoardWithoutABiosHasItsModelInTheDeviceTree)
{
    FakeFileSystem files;
    files.addText("/sys/firmware/devicetree/base/model", std::string("Raspberry Pi 5\0", 15));
    EXPECT_EQ(SystemFacts::model(files), "Raspberry Pi 5");
}
#endif

} // namespace
} // namespace corvane

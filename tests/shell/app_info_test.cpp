#include "shell/app_info.h"

#include <map>
#include <string>

#include <gtest/gtest.h>

#include <QLocale>
#include <QStringList>

#include "core/path_guard.h"
#include "platform/fake_file_system.h"
#include "platform/host.h"
#include "platform/system_facts.h"

namespace corvane {
namespace {

constexpr const char *osRelease = "/etc/os-release";
constexpr const char *productName = "/sys/class/dmi/id/product_name";

/// A Mac's root, regardless of the system that runs the test.
struct MacRoot {
    explicit MacRoot(const std::string &productVersion)
        : MacRoot("<plist><dict><key>ProductName</key><string>macOS</string><key>ProductVersion</key>" +
                      productVersion + "</dict></plist>",
                  0)
    {
    }
    MacRoot(const std::string &content, int)
    {
        files.setSystemKind(SystemKind::mac);
        files.addText(std::string(macSystemFile), content);
    }

    FakeFileSystem files;
};

TEST(AppInfo, PagesLieBeneathTheSite)
{
    EXPECT_TRUE(AppInfo::site().isValid());
    EXPECT_TRUE(AppInfo::site().path().endsWith(QLatin1Char('/')));
    EXPECT_EQ(AppInfo::feedbackPage().toString(), AppInfo::site().toString() + QStringLiteral("#feedback"));
    EXPECT_EQ(AppInfo::privacyPage().toString(), AppInfo::site().toString() + QStringLiteral("privacy.html"));
}

TEST(AppInfo, PageOfASiteDoesNotDependOnItsSlash)
{
    for (const char *site : {"https://corvane.example/base", "https://corvane.example/base/"})
        EXPECT_EQ(AppInfo::pageOf(QUrl(QString::fromLatin1(site)), QStringLiteral("api/crash")).toString(),
                  "https://corvane.example/base/api/crash");
    EXPECT_EQ(AppInfo::pageOf(QUrl(QStringLiteral("https://corvane.example")), QStringLiteral("api/crash")).toString(),
              "https://corvane.example/api/crash");
}

TEST(AppInfo, BuildNumberGrowsWithTheVersion)
{
    const QStringList numbers = AppInfo::version().split(QLatin1Char('.'));
    ASSERT_EQ(numbers.size(), 3);
    EXPECT_EQ(AppInfo::build().toInt(), numbers[0].toInt() * 10'000 + numbers[1].toInt() * 100 + numbers[2].toInt());
}

TEST(AppInfo, VersionOfAMacIsThreeNumbers)
{
    const std::map<std::string, QString> versions{
        {"14.2.1", QStringLiteral("14.2.1")}, {"15.0", QStringLiteral("15.0.0")}, {"26", QStringLiteral("26.0.0")}};
    for (const auto &[written, version] : versions) {
        MacRoot mac("<string>" + written + "</string>");
        EXPECT_EQ(AppInfo::macOS(mac.files), version);
    }
}

TEST(AppInfo, MacWithoutAValidVersionIsNamedLikeOtherSystems)
{
    for (const char *version : {"<string>Ventura</string>", "<string></string>", "<string>1.2.3.4</string>",
                                "<string>1..2</string>", "<string>-1.2</string>", "<integer>14</integer>"}) {
        MacRoot mac(version);
        EXPECT_EQ(AppInfo::macOS(mac.files).toStdString(), SystemFacts::system(mac.files)) << version;
    }
    MacRoot garbage("no property list", 0);
    EXPECT_EQ(AppInfo::macOS(garbage.files).toStdString(), SystemFacts::system(garbage.files));
}

TEST(AppInfo, AppleSiliconIsAMacWithThatProcessor)
{
    FakeFileSystem linuxSystem;
    EXPECT_EQ(AppInfo::arch(linuxSystem).toStdString(), SystemFacts::architecture());
    MacRoot mac("<string>14.2.1</string>");
    const std::string architecture = SystemFacts::architecture();
    const bool isArm = architecture == "arm64" || architecture == "aarch64";
    EXPECT_EQ(AppInfo::arch(mac.files).toStdString(), isArm ? "Apple Silicon" : architecture);
}

TEST(AppInfo, SystemHoldsTheSevenTextsAndNoMore)
{
    MacRoot mac("<string>14.2.1</string>");
    const QJsonObject system = AppInfo::system(mac.files);
    EXPECT_EQ(system.keys(), (QStringList{QStringLiteral("appVersion"), QStringLiteral("arch"), QStringLiteral("build"),
                                          QStringLiteral("fullDiskAccess"), QStringLiteral("locale"),
                                          QStringLiteral("macOS"), QStringLiteral("model")}));
    for (const QJsonValue &value : system)
        EXPECT_TRUE(value.isString());
    EXPECT_EQ(system.value(QLatin1String("appVersion")).toString(), AppInfo::version());
    EXPECT_EQ(system.value(QLatin1String("build")).toString(), AppInfo::build());
    EXPECT_EQ(system.value(QLatin1String("macOS")).toString(), "14.2.1");
    EXPECT_EQ(system.value(QLatin1String("model")).toString(), AppInfo::model(mac.files));
    EXPECT_EQ(system.value(QLatin1String("arch")).toString(), AppInfo::arch(mac.files));
    EXPECT_EQ(system.value(QLatin1String("locale")).toString(), QLocale::system().name());
}

TEST(AppInfo, FullDiskAccessIsWhetherTheTestFileOpens)
{
    MacRoot mac("<string>14.2.1</string>");
    const auto access = [&] { return AppInfo::system(mac.files).value(QLatin1String("fullDiskAccess")).toString(); };
    EXPECT_EQ(access(), "false");
    const std::string probe = PathGuard::accessProbePath(mac.files.homeFolder());
    mac.files.addText(probe, "");
    EXPECT_EQ(access(), "true");
    mac.files.failOpening(probe);
    EXPECT_EQ(access(), "false");
}

TEST(SystemFacts, ThisMachineHasASystemAndAnArchitecture)
{
    EXPECT_FALSE(SystemFacts::system(systemHost().files).empty());
    EXPECT_FALSE(SystemFacts::architecture().empty());
}

#ifdef __linux__
TEST(SystemFacts, SystemOnLinuxIsItsDisplayName)
{
    FakeFileSystem files;
    files.addText(osRelease, "# what this is\nNAME=\"Debian GNU/Linux\"\nVERSION_ID=\"12\"\n"
                             "PRETTY_NAME=\"Debian GNU/Linux 12 (bookworm)\"\n");
    EXPECT_EQ(AppInfo::macOS(files), "Debian GNU/Linux 12 (bookworm)");
}

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

TEST(SystemFacts, ControlCharactersInTheSystemsNameAreReplaced)
{
    FakeFileSystem files;
    files.addText(osRelease, "PRETTY_NAME=\"A\x1b[31m\xff\"\n");
    EXPECT_FALSE(AppInfo::macOS(files).contains(QChar(0x1B)));
}

TEST(SystemFacts, ModelIsTheManufacturersProductName)
{
    FakeFileSystem files;
    files.addText(productName, "ThinkPad X1 Carbon\n");
    EXPECT_EQ(AppInfo::model(files), "ThinkPad X1 Carbon");
}

TEST(SystemFacts, PlaceholderModelIsEmpty)
{
    FakeFileSystem none;
    EXPECT_EQ(AppInfo::model(none), "");
    for (const char *name :
         {"To Be Filled By O.E.M.\n", "System Product Name\n", "Default string", "Not Specified", "None", " \n", ""}) {
        FakeFileSystem files;
        files.addText(productName, name);
        EXPECT_EQ(AppInfo::model(files), "") << name;
    }
}

TEST(SystemFacts, BoardWithoutABiosHasItsModelInTheDeviceTree)
{
    FakeFileSystem files;
    files.addText("/sys/firmware/devicetree/base/model", std::string("Raspberry Pi 5\0", 15));
    EXPECT_EQ(AppInfo::model(files), "Raspberry Pi 5");
}
#endif

} // namespace
} // namespace corvane

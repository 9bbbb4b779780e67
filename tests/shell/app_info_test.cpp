#include "shell/app_info.h"

#include <map>
#include <string>

#include <gtest/gtest.h>

#include <QLocale>
#include <QStringList>

#include "core/path_guard.h"
#include "platform/fake_file_system.h"
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

#ifdef __linux__
TEST(AppInfo, SystemOnLinuxIsItsDisplayName)
{
    FakeFileSystem files;
    files.addText(osRelease, "# what this is\nNAME=\"Debian GNU/Linux\"\nVERSION_ID=\"12\"\n"
                             "PRETTY_NAME=\"Debian GNU/Linux 12 (bookworm)\"\n");
    EXPECT_EQ(AppInfo::macOS(files), "Debian GNU/Linux 12 (bookworm)");
}

TEST(AppInfo, ControlCharactersInTheSystemsNameAreReplaced)
{
    FakeFileSystem files;
    files.addText(osRelease, "PRETTY_NAME=\"A\x1b[31m\xff\"\n");
    EXPECT_FALSE(AppInfo::macOS(files).contains(QChar(0x1B)));
}

TEST(AppInfo, ModelIsTheManufacturersProductName)
{
    FakeFileSystem files;
    files.addText(productName, "ThinkPad X1 Carbon\n");
    EXPECT_EQ(AppInfo::model(files), "ThinkPad X1 Carbon");
}
#endif

} // namespace
} // namespace corvane

#include "apps/desktop_entry.h"

#include <random>
#include <string>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "core/words/utf8.h"
#include "platform/host.h"
#include "support/temporary_folder.h"

namespace corvane {
namespace {

std::string entryWith(const std::string &lines)
{
    return "[Desktop Entry]\nType=Application\nName=Chart\n" + lines;
}

std::optional<DesktopEntry> parse(const std::string &text)
{
    return DesktopEntry::parse("/apps/chart.desktop", text);
}

std::string programOf(const std::string &exec)
{
    const std::optional<DesktopEntry> entry = parse(entryWith("Exec=" + exec + "\n"));
    return entry ? entry->program : "no entry";
}

TEST(DesktopEntryTest, HasEveryFieldOfTheFile)
{
    const std::optional<DesktopEntry> entry = DesktopEntry::parse(
        "/apps/org.sea.Chart.desktop", "# comment\n[Other]\nName=Wrong\n\n[Desktop Entry]\n"
                                       "Type = Application\r\nName=Sea\\sChart\nName[de]=Seekarte\n"
                                       "Exec=/opt/chart %U\nIcon=chart\nStartupWMClass=Chart-X\n"
                                       "X-SnapInstanceName=chart\n[Desktop Action New]\nName=New\n");
    ASSERT_TRUE(entry);
    EXPECT_EQ(*entry, (DesktopEntry{.path = "/apps/org.sea.Chart.desktop",
                                    .id = "org.sea.Chart",
                                    .name = "Sea Chart",
                                    .program = "/opt/chart",
                                    .icon = "chart",
                                    .windowClass = "Chart-X",
                                    .snap = "chart",
                                    .isShown = true}));
}

TEST(DesktopEntryTest, WhatDescribesNoApplicationIsNone)
{
    EXPECT_FALSE(parse(""));
    EXPECT_FALSE(parse("[Desktop Entry]\nType=Link\nName=Chart\n"));
    EXPECT_FALSE(parse("[Desktop Entry]\nType=Application\nName=\n"));
    EXPECT_FALSE(parse("[Desktop Entry]\nType=Application\nName=\xff\n"));
    EXPECT_FALSE(parse("Type=Application\nName=Chart\n"));
    EXPECT_FALSE(DesktopEntry::parse("/apps/chart.txt", entryWith("")));
    EXPECT_FALSE(DesktopEntry::parse("/apps/.desktop", entryWith("")));
}

TEST(DesktopEntryTest, WhatTheMenusHideIsNotShown)
{
    EXPECT_TRUE(parse(entryWith("NoDisplay=false\n"))->isShown);
    EXPECT_FALSE(parse(entryWith("NoDisplay=true\n"))->isShown);
    EXPECT_FALSE(parse(entryWith("Hidden=true\n"))->isShown);
}

TEST(DesktopEntryTest, TheProgramStandsBehindVariablesAndInsideAFlatpak)
{
    EXPECT_EQ(programOf("chart --new %f"), "chart");
    EXPECT_EQ(programOf("\"/home/u/My Apps/chart\" %f"), "/home/u/My Apps/chart");
    EXPECT_EQ(programOf("env HINT=/x.desktop /snap/bin/chart %U"), "/snap/bin/chart");
    EXPECT_EQ(programOf("/usr/bin/flatpak run --branch=stable --command=sea-chart org.sea.Chart"), "sea-chart");
    EXPECT_EQ(programOf("/usr/bin/flatpak run org.sea.Chart"), "");
    EXPECT_EQ(programOf(""), "");
    EXPECT_EQ(programOf("env A=b"), "");
}

TEST(DesktopEntryTest, ANameIsOneLineOfLimitedLength)
{
    EXPECT_EQ(parse("[Desktop Entry]\nType=Application\nName=a\\nb\x1b[31mc\n")->name, "a b [31mc");
    const std::string name = parse("[Desktop Entry]\nType=Application\nName=x" +
                                   [] {
                                       std::string letters;
                                       for (int i = 0; i < 1'000; ++i)
                                           letters += "\xc3\xa4";
                                       return letters;
                                   }())
                                 ->name;
    EXPECT_LE(name.size(), 255U);
    EXPECT_TRUE(isValidUtf8(name));
}

TEST(DesktopEntryTest, OnlyRegularFilesOfReasonableSizeAreRead)
{
    const TemporaryFolder folder;
    FileSystem &files = systemHost().files;
    folder.writeText("good.desktop", entryWith(""));
    folder.writeText("huge.desktop", entryWith(std::string(300'000, '#')));
    ASSERT_EQ(::mkfifo((folder / "pipe.desktop").c_str(), 0600), 0);
    EXPECT_TRUE(DesktopEntry::read(folder / "good.desktop", files));
    EXPECT_FALSE(DesktopEntry::read(folder / "huge.desktop", files));
    EXPECT_FALSE(DesktopEntry::read(folder / "pipe.desktop", files));
    EXPECT_FALSE(DesktopEntry::read(folder / "none.desktop", files));
    EXPECT_FALSE(DesktopEntry::read("/dev/zero", files));
}

TEST(DesktopEntryTest, TheNameIsThatOfTheUsersLanguage)
{
    const std::string text = "[Desktop Entry]\nType=Application\nName=Chart\nName[de]=Karte\nName[de_AT]=Landkarte\n"
                             "Name[sr]=one\nName[sr@latin]=two\nName[sr_RS]=three\nName[sr_RS@latin]=four\n"
                             "Name[fr]=\n";
    const auto name = [&](std::string_view locale) {
        return DesktopEntry::parse("/apps/chart.desktop", text, locale)->name;
    };
    EXPECT_EQ(name("de_AT.UTF-8"), "Landkarte");
    EXPECT_EQ(name("de_CH.UTF-8"), "Karte");
    EXPECT_EQ(name("de"), "Karte");
    EXPECT_EQ(name("sr_RS.UTF-8@latin"), "four");
    EXPECT_EQ(name("sr_RS"), "three");
    EXPECT_EQ(name("sr_ME@latin"), "two");
    EXPECT_EQ(name("sr_ME"), "one");
    for (const char *locale : {"", "C", "C.UTF-8", "POSIX", "fr_FR.UTF-8", "en_US", "@", "_", ".", "]"})
        EXPECT_EQ(name(locale), "Chart") << locale;
}

TEST(DesktopEntryTest, WhatOpensInAnotherApplicationIsAShortcut)
{
    const auto isShortcut = [](const std::string &exec) { return parse(entryWith("Exec=" + exec + "\n"))->isShortcut; };
    EXPECT_TRUE(isShortcut("/home/u/apps/browser/browser --profile-directory=Default --app-id=abc"));
    EXPECT_TRUE(isShortcut("browser --app=https://example.org"));
    EXPECT_TRUE(isShortcut("steam steam://rungameid/570"));
    EXPECT_FALSE(isShortcut("/home/u/apps/chart/chart %U"));
}

TEST(DesktopEntryTest, OfAShellTheShellIsTheProgram)
{
    EXPECT_EQ(programOf("sh -c \"/home/u/Documents/x.sh\""), "sh");
    EXPECT_EQ(programOf("/bin/bash -c '/home/u/x'"), "/bin/bash");
    EXPECT_EQ(programOf("env -i A=b C=\"d e\" /opt/chart %f"), "/opt/chart");
    EXPECT_EQ(programOf("\"/home/u/a \\\\\"b\\\\\"/chart\""), "/home/u/a \"b\"/chart");
    EXPECT_EQ(programOf("/home/u/100%%/chart"), "/home/u/100%/chart");
    EXPECT_EQ(programOf("/"), "/");
    EXPECT_EQ(programOf("~/Documents/x.sh"), "~/Documents/x.sh");
}

TEST(DesktopEntryTest, AnEndlessLineAndNullBytesDoNotCrash)
{
    EXPECT_EQ(programOf(std::string(200'000, 'x')).size(), 200'000u);
    EXPECT_EQ(programOf(std::string("/home/u\0/chart", 14)), "/home/u"); // a path ends at a null byte
    EXPECT_EQ(parse(entryWith("Icon=" + std::string("a\0b", 3) + "\n"))->icon, "a b");
}

TEST(DesktopEntryTest, InvalidInputDoesNotCrash)
{
    std::mt19937 random(7);
    const std::string alphabet = "[]=\n\r\\\"%# \tNameExcTypD\xff\0\x01";
    for (int round = 0; round < 3'000; ++round) {
        std::string text = round % 2 == 0 ? entryWith("Exec=") : "";
        for (int i = 0; i < 200; ++i)
            text += alphabet[random() % alphabet.size()];
        if (const std::optional<DesktopEntry> entry = parse(text)) {
            EXPECT_TRUE(isValidUtf8(entry->name));
            EXPECT_EQ(entry->name.find('\n'), std::string::npos);
        }
    }
}

} // namespace
} // namespace corvane

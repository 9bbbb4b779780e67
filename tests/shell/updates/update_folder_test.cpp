#include "shell/updates/update_folder.h"

#include <fstream>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "support/temporary_folder.h"

namespace corvane {
namespace {

std::string contentOf(const std::string &path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

mode_t modeOf(const std::string &path)
{
    struct stat facts {};
    EXPECT_EQ(::lstat(path.c_str(), &facts), 0) << path;
    return facts.st_mode & 07777U;
}

TEST(UpdateName, IsMadeOfTheVersionAndTheKindOfPackage)
{
    const auto name = [](const char *address) {
        return UpdateName::of(QStringLiteral("1.2.0"), QUrl(QString::fromLatin1(address)));
    };
    EXPECT_EQ(name("https://u.example/corvane_1.2.0_amd64.deb"), "Corvane-1.2.0.deb");
    EXPECT_EQ(name("https://u.example/Corvane.AppImage?x=.deb#.rpm"), "Corvane-1.2.0.appimage");
    EXPECT_EQ(name("https://u.example/corvane.tar.gz"), "Corvane-1.2.0.tar.gz");
    EXPECT_EQ(name("https://u.example/latest"), "Corvane-1.2.0.download");
    EXPECT_EQ(name("https://u.example/corvane.desktop"), "Corvane-1.2.0.download");
    EXPECT_EQ(name("https://u.example/run.sh"), "Corvane-1.2.0.download");
}

TEST(UpdateName, HasNoUnsafeCharactersWhateverTheFeedSays)
{
    for (const char *version : {"../../.bashrc", "/etc/passwd", ".hidden", "a\nb", "a\x7f", "~", "ä", ""}) {
        for (const char *address : {"https://u.example/..%2f..%2f.ssh%2fid", "https://u.example/%00.deb",
                                    "https://u.example/a%0Ab", "https://u.example/"}) {
            const std::string name = UpdateName::of(QString::fromUtf8(version), QUrl(QString::fromLatin1(address)));
            EXPECT_TRUE(name.starts_with("Corvane-")) << name;
            EXPECT_EQ(name.find_first_of("/\n\x7f~%"), std::string::npos) << name;
            EXPECT_EQ(name.find('\0'), std::string::npos) << name;
            EXPECT_TRUE(UpdateName::isOurs(name)) << name;
        }
    }
    EXPECT_LE(UpdateName::of(QString(5'000, QLatin1Char('9')), {}).size(), 100U);
}

TEST(UpdateName, OfAnotherIsNotOurs)
{
    EXPECT_TRUE(UpdateName::isOurs("Corvane-1.0.deb"));
    EXPECT_TRUE(UpdateName::isOurs("Corvane-1.0.deb.part"));
    for (const char *name : {"notes.txt", "Corvane-notes.txt", "Corvane-.txt.part", "corvane-1.0.deb",
                             "my Corvane-1.0.deb", "Corvane-my notes.zip"})
        EXPECT_FALSE(UpdateName::isOurs(name)) << name;
}

struct UpdateDownloads : testing::Test {
    [[nodiscard]] UpdateFolder open() const { return std::move(UpdateFolder::open(caches.path()).value()); }
    static void download(const UpdateFolder &folder, const std::string &name, const char *content)
    {
        const auto file = folder.startDownload(name);
        ASSERT_TRUE(file);
        ASSERT_TRUE(writeBytes(*file, content));
        ASSERT_TRUE(folder.finishDownload(name, *file));
    }

    const TemporaryFolder caches;
};

TEST_F(UpdateDownloads, LieInAPrivateFolder)
{
    const UpdateFolder folder = open();
    EXPECT_EQ(folder.path(), caches / "corvane/updates");
    download(folder, "Corvane-1.deb", "one");
    EXPECT_EQ(modeOf(caches / "corvane"), 0700U);
    EXPECT_EQ(modeOf(caches / "corvane/updates"), 0700U);
    EXPECT_EQ(modeOf(caches / "corvane/updates/Corvane-1.deb"), 0600U);
    EXPECT_EQ(contentOf(caches / "corvane/updates/Corvane-1.deb"), "one");
}

TEST_F(UpdateDownloads, FolderIsMadePrivateAgain)
{
    caches.makeFolder("corvane/updates");
    ::chmod((caches / "corvane/updates").c_str(), 0777);
    static_cast<void>(open());
    EXPECT_EQ(modeOf(caches / "corvane/updates"), 0700U);
}

TEST_F(UpdateDownloads, HaveTheirNameOnlyOnceTheyAreFinished)
{
    const UpdateFolder folder = open();
    const auto file = folder.startDownload("Corvane-1.deb");
    ASSERT_TRUE(file);
    EXPECT_FALSE(caches.has("corvane/updates/Corvane-1.deb"));
    EXPECT_TRUE(caches.has("corvane/updates/Corvane-1.deb.part"));
    folder.abandonDownload("Corvane-1.deb");
    EXPECT_FALSE(caches.has("corvane/updates/Corvane-1.deb.part"));
}

TEST_F(UpdateDownloads, ReplaceEarlierOnesAndNothingElse)
{
    const std::string base = "corvane/updates/";
    for (const char *name : {"Corvane-0.9.deb", "Corvane-0.8.rpm.part", "notes.txt", "Corvane-notes.txt"})
        caches.writeText(base + name, "old");
    caches.makeFolder(base + "Corvane-folder.deb");
    const UpdateFolder folder = open();
    download(folder, "Corvane-1.deb", "one");
    EXPECT_FALSE(caches.has(base + "Corvane-0.9.deb"));
    EXPECT_FALSE(caches.has(base + "Corvane-0.8.rpm.part"));
    EXPECT_TRUE(caches.has(base + "notes.txt"));
    EXPECT_TRUE(caches.has(base + "Corvane-notes.txt"));
    EXPECT_TRUE(caches.has(base + "Corvane-folder.deb"));
    EXPECT_TRUE(caches.has(base + "Corvane-1.deb"));
}

TEST_F(UpdateDownloads, NeverWriteThroughALink)
{
    const std::string target = caches.writeText("precious", "mine");
    caches.link("corvane/updates/Corvane-1.deb.part", target);
    caches.link("corvane/updates/Corvane-1.deb", target);
    const UpdateFolder folder = open();
    EXPECT_FALSE(folder.finished("Corvane-1.deb"));
    download(folder, "Corvane-1.deb", "one");
    EXPECT_EQ(contentOf(target), "mine");
    struct stat facts {};
    ASSERT_EQ(::lstat((caches / "corvane/updates/Corvane-1.deb").c_str(), &facts), 0);
    EXPECT_TRUE(S_ISREG(facts.st_mode));
}

TEST_F(UpdateDownloads, FolderBehindALinkIsRefused)
{
    const std::string elsewhere = caches.makeFolder("elsewhere");
    caches.link("corvane", elsewhere);
    EXPECT_FALSE(UpdateFolder::open(caches.path()));
    EXPECT_TRUE(std::filesystem::is_empty(elsewhere));

    const TemporaryFolder others;
    others.makeFolder("corvane");
    others.link("corvane/updates", elsewhere);
    EXPECT_FALSE(UpdateFolder::open(others.path()));
    EXPECT_TRUE(std::filesystem::is_empty(elsewhere));
}

TEST_F(UpdateDownloads, OnlyTheFileThatWasWrittenGetsTheName)
{
    const UpdateFolder folder = open();
    const auto file = folder.startDownload("Corvane-1.deb");
    ASSERT_TRUE(file);
    std::filesystem::remove(caches / "corvane/updates/Corvane-1.deb.part");
    caches.writeText("corvane/updates/Corvane-1.deb.part", "other");
    EXPECT_FALSE(folder.finishDownload("Corvane-1.deb", *file));
    EXPECT_FALSE(caches.has("corvane/updates/Corvane-1.deb"));
}

TEST_F(UpdateDownloads, FolderIsHeldByOneAtATime)
{
    {
        const UpdateFolder first = open();
        const auto second = UpdateFolder::open(caches.path());
        ASSERT_FALSE(second);
        EXPECT_EQ(second.error().code, std::errc::resource_unavailable_try_again);
    }
    EXPECT_TRUE(UpdateFolder::open(caches.path()));
}

TEST_F(UpdateDownloads, OnlyARegularFileIsAFinishedOne)
{
    const UpdateFolder folder = open();
    EXPECT_FALSE(folder.finished("Corvane-1.deb"));
    caches.makeFolder("corvane/updates/Corvane-1.deb");
    EXPECT_FALSE(folder.finished("Corvane-1.deb"));
    ASSERT_EQ(::mkfifo((caches / "corvane/updates/Corvane-2.deb").c_str(), 0600), 0);
    EXPECT_FALSE(folder.finished("Corvane-2.deb"));
    caches.writeText("corvane/updates/Corvane-3.deb", "three");
    EXPECT_TRUE(folder.finished("Corvane-3.deb"));
}

} // namespace
} // namespace corvane

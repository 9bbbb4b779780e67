#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

#include "shell/updates/feed_session_fixture.h"

namespace corvane {
namespace {

TEST_F(FeedSessionTest, WrongSignatureIsRefusedAndTheDownloadDeleted)
{
    FeedItem forged = item();
    forged.signature = SigningKey(8).sign(package).toBase64();
    publish(forged);
    EXPECT_EQ(failureOfDownload(), line(Kind::wrongSignature));
}

TEST_F(FeedSessionTest, DownloadOfAnotherLengthIsRefused)
{
    FeedItem lying = item();
    lying.length = QByteArray::number(package.size() + 1);
    publish(lying);
    EXPECT_EQ(failureOfDownload(), line(Kind::wrongLength));
    lying.length = QByteArray::number(package.size() - 1);
    publish(lying);
    EXPECT_EQ(failureOfDownload(), line(Kind::wrongLength));
}

TEST_F(FeedSessionTest, DownloadThatIsCutShortIsRefusedAndDeleted)
{
    for (const char *length : {"", "801000"}) {
        FeedItem cut = item();
        cut.length = length;
        publish(cut);
        server.answer("/corvane.deb", {.body = package, .ending = Ending::cutShort});
        EXPECT_EQ(failureOfDownload(), line(Kind::downloadCut));
    }
}

TEST_F(FeedSessionTest, DownloadWithoutAnEndIsRefusedAndDeleted)
{
    changed = [](FeedSession::Options made) {
        made.mostBytes = 2'000'000;
        return made;
    };
    FeedItem unknown = item();
    unknown.length = "";
    publish(unknown);
    server.answer("/corvane.deb", {.body = package, .ending = Ending::endless});
    EXPECT_EQ(failureOfDownload(), line(Kind::downloadTooLarge));
    publish(item());
    server.answer("/corvane.deb", {.body = package, .ending = Ending::endless});
    EXPECT_EQ(failureOfDownload(), line(Kind::wrongLength));
}

TEST_F(FeedSessionTest, DownloadThatIsTooLargeIsNotStarted)
{
    changed = [](FeedSession::Options made) {
        made.mostBytes = 1'000;
        return made;
    };
    EXPECT_EQ(failureOfDownload(), line(Kind::downloadTooLarge));
    EXPECT_EQ(requests("/corvane.deb"), 0);
}

TEST_F(FeedSessionTest, MissingDownloadIsReported)
{
    server.answer("/corvane.deb", {.status = 404, .body = package});
    EXPECT_EQ(failureOfDownload(), line(Kind::serverStatus, QStringLiteral("404")));
}

TEST_F(FeedSessionTest, DownloadIsNotRedirectedToHttp)
{
    LoopbackServer plain;
    plain.answerAll({.body = package});
    server.answer("/corvane.deb", {.status = 302, .headers = {{"Location", plain.url().toEncoded()}}});
    EXPECT_EQ(failureOfDownload(), line(Kind::insecureRedirect));
    EXPECT_EQ(plain.connections(), 0);
}

TEST_F(FeedSessionTest, DownloadOverHttpIsRefused)
{
    LoopbackServer plain;
    FeedItem insecure = item();
    insecure.url = plain.url(QStringLiteral("corvane.deb")).toEncoded();
    publish(insecure);
    EXPECT_EQ(failureOfCheck(), line(Kind::insecureDownload));
    EXPECT_EQ(plain.connections(), 0);
}

TEST_F(FeedSessionTest, FileNameDoesNotFollowTheAddress)
{
    FeedItem hostile = item();
    hostile.url = server.url().toEncoded() + "/..%2f..%2f.bashrc";
    hostile.version = "../../.profile";
    publish(hostile);
    server.answerAll({.body = package});
    checkAndDownload();
    ASSERT_TRUE(waitForPhase(session(), Phase::ready)) << qPrintable(session().state().failure);
    EXPECT_EQ(downloads(), (std::vector<std::string>{"Corvane-..-..-.profile.download"}));
    EXPECT_FALSE(session().state().isPackage);
}

TEST_F(FeedSessionTest, DownloadDoesNotFollowAPlantedLink)
{
    const std::string target = caches.writeText("precious", "mine");
    caches.link("corvane/updates/Corvane-1.2.0.deb", target);
    caches.link("corvane/updates/Corvane-1.2.0.deb.part", target);
    checkAndDownload();
    ASSERT_TRUE(waitForPhase(session(), Phase::ready)) << qPrintable(session().state().failure);
    std::ifstream file(target);
    const std::string content{std::istreambuf_iterator<char>(file), {}};
    EXPECT_EQ(content, "mine");
    EXPECT_FALSE(std::filesystem::is_symlink(session().state().path));
}

TEST_F(FeedSessionTest, FolderThatIsALinkIsRefused)
{
    const std::string elsewhere = caches.makeFolder("elsewhere");
    caches.link("corvane", elsewhere);
    session().check(byUser, offer);
    ASSERT_TRUE(waitForPhase(session(), Phase::available));
    session().download();
    ASSERT_EQ(session().state().phase, Phase::failed);
    EXPECT_TRUE(session().state().failure.contains(QStringLiteral("Can't use the folder for downloads")));
    EXPECT_TRUE(std::filesystem::is_empty(elsewhere));
}

TEST_F(FeedSessionTest, FolderThatCannotBeMadeIsReported)
{
    caches.writeText("corvane", "a file");
    checkAndDownload();
    ASSERT_EQ(session().state().phase, Phase::failed);
    EXPECT_EQ(session().state().failure,
              line(Kind::folderUnusable, QString::fromStdString(caches / "corvane" + ": Not a directory")));
    EXPECT_EQ(requests("/corvane.deb"), 0);
}

TEST_F(FeedSessionTest, AnotherProcessThatDownloadsIsReported)
{
    const auto other = UpdateFolder::open(caches.path());
    ASSERT_TRUE(other);
    EXPECT_EQ(failureOfDownload(), line(Kind::anotherDownloads));
}

TEST_F(FeedSessionTest, VerifiedDownloadFromEarlierIsNotFetchedAgain)
{
    checkAndDownload();
    ASSERT_TRUE(waitForPhase(session(), Phase::ready));
    session().end();
    checkAndDownload();
    ASSERT_TRUE(waitForPhase(session(), Phase::ready));
    EXPECT_EQ(requests("/corvane.deb"), 1);
}

TEST_F(FeedSessionTest, InvalidEarlierDownloadIsReplaced)
{
    caches.writeText("corvane/updates/Corvane-1.2.0.deb", QByteArray(package.size(), 'x').toStdString());
    checkAndDownload();
    ASSERT_TRUE(waitForPhase(session(), Phase::ready)) << qPrintable(session().state().failure);
    EXPECT_EQ(requests("/corvane.deb"), 1);
    std::ifstream file(session().state().path, std::ios::binary);
    const std::string content{std::istreambuf_iterator<char>(file), {}};
    EXPECT_EQ(content, package.toStdString());
}

TEST_F(FeedSessionTest, EarlierFileThatIsLargerThanAnyDownloadIsNotReadButReplaced)
{
    FeedItem lengthless = item();
    lengthless.length.clear();
    publish(lengthless);
    changed = [this](FeedSession::Options options) {
        options.mostBytes = package.size();
        return options;
    };
    caches.writeText("corvane/updates/Corvane-1.2.0.deb", "x");
    const std::filesystem::path planted = caches / "corvane/updates/Corvane-1.2.0.deb";
    std::filesystem::resize_file(planted, 1ULL << 40U); // sparse
    session().check(byUser, offer);
    ASSERT_TRUE(waitForPhase(session(), Phase::available)) << qPrintable(session().state().failure);
    session().download();
    EXPECT_EQ(session().state().phase, Phase::downloading) << "a terabyte would be read for an hour";
    ASSERT_TRUE(waitForPhase(session(), Phase::ready)) << qPrintable(session().state().failure);
    EXPECT_EQ(std::filesystem::file_size(planted), static_cast<std::uintmax_t>(package.size()));
}

TEST_F(FeedSessionTest, EndDuringACheckLeavesNothing)
{
    server.answer("/feed.xml", {.ending = Ending::silent});
    session().check(byUser, offer);
    ASSERT_TRUE(QTest::qWaitFor([&] { return requests("/feed.xml") == 1; }));
    session().end();
    EXPECT_EQ(session().state().phase, Phase::idle);
    QTest::qWait(50);
    EXPECT_EQ(session().state().phase, Phase::idle);
    publish(item());
    session().check(byUser, offer);
    EXPECT_TRUE(waitForPhase(session(), Phase::available));
}

TEST_F(FeedSessionTest, EndDuringADownloadDeletesIt)
{
    FeedItem unknown = item();
    unknown.length = "";
    publish(unknown);
    server.answer("/corvane.deb", {.body = package, .ending = Ending::dripping});
    checkAndDownload();
    ASSERT_TRUE(QTest::qWaitFor([&] { return session().state().received > 0; }, 30'000));
    ASSERT_EQ(downloads(), (std::vector<std::string>{"Corvane-1.2.0.deb.part"}));
    session().end();
    EXPECT_TRUE(downloads().empty());
    EXPECT_EQ(session().state().phase, Phase::idle);
    EXPECT_TRUE(UpdateFolder::open(caches.path())) << "the folder is free again";
}

TEST_F(FeedSessionTest, EndWhileVerifyingLeavesNothing)
{
    checkAndDownload();
    ASSERT_TRUE(waitForPhase(session(), Phase::verifying));
    session().end();
    EXPECT_TRUE(downloads().empty());
    QTest::qWait(50);
    EXPECT_EQ(session().state().phase, Phase::idle);
    EXPECT_TRUE(downloads().empty());
}

TEST_F(FeedSessionTest, DestructionWhileUnderWayLeavesNothing)
{
    server.answer("/feed.xml", {.ending = Ending::silent});
    session().check(byUser, offer);
    ASSERT_TRUE(QTest::qWaitFor([&] { return requests("/feed.xml") == 1; }));
    endSession();

    publish(item());
    server.answer("/corvane.deb", {.body = package, .ending = Ending::endless});
    checkAndDownload();
    endSession();
    QTest::qWait(50);
    EXPECT_TRUE(downloads().empty());
}

TEST_F(FeedSessionTest, OneCheckAtATime)
{
    session().check(byUser, offer);
    session().check(byUser, offer);
    ASSERT_TRUE(waitForPhase(session(), Phase::available));
    EXPECT_EQ(requests("/feed.xml"), 1);
}

} // namespace
} // namespace corvane

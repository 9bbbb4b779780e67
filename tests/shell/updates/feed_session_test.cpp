#include "shell/updates/feed_session.h"

#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "shell/updates/update_server.h"

namespace corvane {
namespace {

using Phase = UpdateState::Phase;
using Kind = UpdateFailure::Kind;
using Ending = LoopbackAnswer::Ending;

constexpr auto byUser = FeedSession::Origin::user;
constexpr auto bySchedule = FeedSession::Origin::schedule;
constexpr auto offer = FeedSession::OnUpdate::offer;
constexpr auto fetchAtOnce = FeedSession::OnUpdate::download;

struct FeedSessionTest : testing::Test, UpdateServer {
    FeedSession &session()
    {
        if (!m_session)
            m_session = std::make_unique<FeedSession>(changed ? changed(options()) : options());
        return *m_session;
    }
    void endSession() { m_session.reset(); }

    /// The failure message of a check requested by the user.
    QString failureOfCheck()
    {
        session().check(byUser, offer);
        EXPECT_TRUE(waitForPhase(session(), Phase::failed)) << "phase " << static_cast<int>(session().state().phase);
        return session().state().failure;
    }
    void checkAndDownload()
    {
        session().check(byUser, offer);
        ASSERT_TRUE(waitForPhase(session(), Phase::available)) << qPrintable(session().state().failure);
        session().download();
    }
    QString failureOfDownload()
    {
        checkAndDownload();
        EXPECT_TRUE(waitForPhase(session(), Phase::failed)) << "phase " << static_cast<int>(session().state().phase);
        EXPECT_TRUE(downloads().empty());
        return session().state().failure;
    }
    static QString line(Kind kind, const QString &detail = {}) { return UpdateFailure{kind, detail}.sentence(); }

    [[nodiscard]] std::vector<std::string> downloads() const
    {
        std::vector<std::string> names;
        std::error_code none;
        for (const auto &entry : std::filesystem::directory_iterator(caches / "corvane/updates", none))
            names.push_back(entry.path().filename());
        return names;
    }

    std::function<FeedSession::Options(FeedSession::Options)> changed;

private:
    std::unique_ptr<FeedSession> m_session;
};

TEST_F(FeedSessionTest, NewVersionIsDownloadedAndVerified)
{
    checkAndDownload();
    EXPECT_EQ(session().state().version, QStringLiteral("1.2.0"));
    EXPECT_EQ(session().state().size, package.size());
    ASSERT_TRUE(waitForPhase(session(), Phase::ready)) << qPrintable(session().state().failure);
    EXPECT_EQ(session().state().path, caches / "corvane/updates/Corvane-1.2.0.deb");
    EXPECT_TRUE(session().state().isPackage);

    std::ifstream file(session().state().path, std::ios::binary);
    const std::string content{std::istreambuf_iterator<char>(file), {}};
    EXPECT_EQ(content, package.toStdString());
    struct stat facts {};
    ASSERT_EQ(::stat(session().state().path.c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 07777U, 0600U) << "nothing that could be run";
    EXPECT_EQ(downloads(), (std::vector<std::string>{"Corvane-1.2.0.deb"}));
}

TEST_F(FeedSessionTest, NothingIsDownloadedUnasked)
{
    session().check(byUser, offer);
    ASSERT_TRUE(waitForPhase(session(), Phase::available));
    QTest::qWait(50);
    EXPECT_EQ(requests("/corvane.deb"), 0);
    EXPECT_FALSE(caches.has("corvane"));
}

TEST_F(FeedSessionTest, RequestsCarryNothingOfTheUser)
{
    QCoreApplication::setApplicationVersion(QStringLiteral("1.0.0"));
    checkAndDownload();
    ASSERT_TRUE(waitForPhase(session(), Phase::ready));
    ASSERT_EQ(server.requests().size(), 2U);
    for (const LoopbackRequest &request : server.requests()) {
        EXPECT_EQ(request.method, "GET");
        EXPECT_TRUE(request.body.isEmpty());
        EXPECT_EQ(request.headers.at("user-agent"), "Corvane/1.0.0");
        EXPECT_EQ(request.headers.at("accept-language"), "en");
        for (const auto &[name, value] : request.headers) {
            EXPECT_TRUE(name == "user-agent" || name == "accept-language" || name == "accept-encoding" ||
                        name == "host" || name == "connection" || name == "cache-control" || name == "pragma" ||
                        name == "content-length")
                << name.constData();
        }
    }
}

TEST_F(FeedSessionTest, RunningVersionThatIsTheNewestIsUpToDate)
{
    FeedItem same = item();
    same.build = "10000";
    publish(same);
    session().check(byUser, offer);
    EXPECT_TRUE(waitForPhase(session(), Phase::upToDate));
    EXPECT_EQ(session().state().runningVersion, QStringLiteral("1.0.0"));
}

TEST_F(FeedSessionTest, FeedThatIsNotOverHttpsIsNeverAsked)
{
    LoopbackServer plain;
    changed = [&](FeedSession::Options made) {
        made.feed = plain.url(QStringLiteral("feed.xml"));
        return made;
    };
    EXPECT_EQ(failureOfCheck(), line(Kind::insecureFeed));
    EXPECT_EQ(plain.connections(), 0);
}

TEST_F(FeedSessionTest, InvalidKeyIsRefusedBeforeTheFeedIsFetched)
{
    changed = [](FeedSession::Options made) {
        made.publicKey = QStringLiteral("bm90IGEga2V5");
        return made;
    };
    EXPECT_EQ(failureOfCheck(), line(Kind::badKey));
    EXPECT_EQ(server.connections(), 0);
}

TEST_F(FeedSessionTest, ServerWithoutATrustedCertificateIsRefused)
{
    QNetworkAccessManager ordinary;
    changed = [&](FeedSession::Options made) {
        made.network = &ordinary;
        return made;
    };
    EXPECT_EQ(failureOfCheck(), line(Kind::untrustedServer));
    EXPECT_TRUE(server.requests().empty());
    endSession();
}

TEST_F(FeedSessionTest, MissingServerIsReported)
{
    changed = [](FeedSession::Options made) {
        made.feed = QUrl(QStringLiteral("https://127.0.0.1:1/feed.xml"));
        return made;
    };
    EXPECT_EQ(failureOfCheck(), line(Kind::unreachable));
}

TEST_F(FeedSessionTest, StatusOfTheServerIsReported)
{
    server.answer("/feed.xml", {.status = 404, .body = feedText({item()})});
    EXPECT_EQ(failureOfCheck(), line(Kind::serverStatus, QStringLiteral("404")));
    server.answer("/feed.xml", {.status = 503});
    EXPECT_EQ(failureOfCheck(), line(Kind::serverStatus, QStringLiteral("503")));
    server.answer("/feed.xml", {.status = 204});
    EXPECT_EQ(failureOfCheck(), line(Kind::serverStatus, QStringLiteral("204")));
}

TEST_F(FeedSessionTest, FeedMayLieElsewhereOverHttps)
{
    server.answer("/feed.xml",
                  {.status = 302, .headers = {{"Location", server.url(QStringLiteral("moved")).toEncoded()}}});
    server.answer("/moved", {.body = feedText({item()})});
    session().check(byUser, offer);
    EXPECT_TRUE(waitForPhase(session(), Phase::available)) << qPrintable(session().state().failure);
}

TEST_F(FeedSessionTest, RedirectToHttpIsRefused)
{
    LoopbackServer plain;
    plain.answerAll({.body = feedText({item()})});
    server.answer("/feed.xml", {.status = 302, .headers = {{"Location", plain.url().toEncoded()}}});
    EXPECT_EQ(failureOfCheck(), line(Kind::insecureRedirect));
    EXPECT_EQ(plain.connections(), 0);
}

TEST_F(FeedSessionTest, RedirectsAreBounded)
{
    server.answer("/feed.xml", {.status = 302, .headers = {{"Location", options().feed.toEncoded()}}});
    EXPECT_EQ(failureOfCheck(), line(Kind::tooManyRedirects));
    EXPECT_LE(requests("/feed.xml"), 10);
}

TEST_F(FeedSessionTest, FeedThatCannotBeReadIsRefused)
{
    publish("<html>hotel network</html>");
    EXPECT_EQ(failureOfCheck(), line(Kind::feedMalformed));
    publish(feedText({item()}).chopped(20));
    EXPECT_EQ(failureOfCheck(), line(Kind::feedMalformed));
}

TEST_F(FeedSessionTest, FeedWithoutAUsableItemIsRefused)
{
    publish(feedText({}));
    EXPECT_EQ(failureOfCheck(), line(Kind::nothingForSystem));
}

TEST_F(FeedSessionTest, FeedThatIsCutShortIsRefused)
{
    server.answer("/feed.xml", {.body = feedText({item()}), .ending = Ending::cutShort});
    EXPECT_EQ(failureOfCheck(), line(Kind::feedCut));
}

TEST_F(FeedSessionTest, CompressedFeedIsNotDecompressed)
{
    // Small when compressed, huge when decompressed.
    server.answer("/feed.xml",
                  {.headers = {{"Content-Encoding", "deflate"}}, .body = qCompress(feedText({item()})).sliced(4)});
    EXPECT_EQ(failureOfCheck(), line(Kind::feedMalformed));
}

TEST_F(FeedSessionTest, FeedWithoutAnEndIsRefused)
{
    server.answer("/feed.xml", {.body = QByteArray(10'000, ' '), .ending = Ending::endless});
    EXPECT_EQ(failureOfCheck(), line(Kind::feedTooLarge));
}

TEST_F(FeedSessionTest, ServerThatFallsSilentIsNotWaitedForWithoutAnEnd)
{
    changed = [](FeedSession::Options made) {
        made.timeout = std::chrono::milliseconds(100);
        return made;
    };
    server.answer("/feed.xml", {.ending = Ending::silent});
    EXPECT_EQ(failureOfCheck(), line(Kind::unreachable));
}

TEST_F(FeedSessionTest, OlderVersionIsRefused)
{
    FeedItem older = item();
    older.build = "900";
    older.version = "0.9.0";
    publish(older);
    EXPECT_EQ(failureOfCheck(), line(Kind::onlyOlder, QStringLiteral("0.9.0")));
}

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

TEST_F(FeedSessionTest, AutomaticCheckShowsOnlyWhatItFinds)
{
    session().check(bySchedule, offer);
    EXPECT_EQ(session().state().phase, Phase::checking);
    EXPECT_FALSE(session().state().isShown);
    ASSERT_TRUE(waitForPhase(session(), Phase::available));
    EXPECT_TRUE(session().state().isShown);
}

TEST_F(FeedSessionTest, AutomaticCheckThatFindsNothingOrFailsSaysNothing)
{
    FeedItem same = item();
    same.build = "10000";
    publish(same);
    for (const bool fails : {false, true}) {
        if (fails)
            server.answer("/feed.xml", {.status = 500});
        bool shown = false;
        const auto watch = QObject::connect(&session(), &UpdateSession::stateChanged,
                                            [&] { shown = shown || session().state().isShown; });
        session().check(bySchedule, offer);
        EXPECT_EQ(session().state().phase, Phase::checking);
        EXPECT_TRUE(waitForPhase(session(), Phase::idle));
        EXPECT_FALSE(shown);
        QObject::disconnect(watch);
    }
}

TEST_F(FeedSessionTest, AutomaticDownloadIsShownOnceItIsVerified)
{
    std::vector<Phase> seen;
    QObject::connect(&session(), &UpdateSession::stateChanged, &session(), [&] {
        if (session().state().isShown)
            seen.push_back(session().state().phase);
    });
    session().check(bySchedule, fetchAtOnce);
    ASSERT_TRUE(waitForPhase(session(), Phase::ready));
    EXPECT_EQ(seen, std::vector<Phase>{Phase::ready});
}

TEST_F(FeedSessionTest, AutomaticDownloadThatIsForgedSaysNothing)
{
    FeedItem forged = item();
    forged.signature = SigningKey(8).sign(package).toBase64();
    publish(forged);
    session().check(bySchedule, fetchAtOnce);
    ASSERT_TRUE(QTest::qWaitFor([&] { return requests("/corvane.deb") == 1; }));
    EXPECT_TRUE(waitForPhase(session(), Phase::idle));
    EXPECT_FALSE(session().state().isShown);
    EXPECT_TRUE(downloads().empty());
}

TEST_F(FeedSessionTest, AutomaticCheckThatTheUserAsksForIsShown)
{
    server.answer("/feed.xml", {.status = 500});
    session().check(bySchedule, fetchAtOnce);
    session().show();
    EXPECT_TRUE(session().state().isShown);
    EXPECT_TRUE(waitForPhase(session(), Phase::failed));
}

TEST(UpdateFailureLines, SayThatTheDiskIsFull)
{
    const auto error = [](int code) { return Error{"write", "/home/a\nb", {code, std::generic_category()}, {}}; };
    for (const int code : {ENOSPC, EDQUOT}) {
        EXPECT_EQ(UpdateFailure::ofWriting(error(code)), UpdateFailure{Kind::diskFull});
        EXPECT_EQ(UpdateFailure::ofFolder(error(code)), UpdateFailure{Kind::diskFull});
    }
    EXPECT_EQ(UpdateFailure::ofWriting(error(EIO)).sentence(),
              QStringLiteral("Can't write the download: Input/output error."));
    EXPECT_EQ(UpdateFailure::ofFolder(error(EACCES)).sentence(),
              QStringLiteral("Can't use the folder for downloads, /home/a\u240Ab: Permission denied."));
}

TEST(UpdateFailureLines, AreOneEach)
{
    for (int kind = 0; kind <= static_cast<int>(Kind::notWritten); ++kind) {
        const QString sentence = UpdateFailure{static_cast<Kind>(kind), QStringLiteral("detail")}.sentence();
        EXPECT_TRUE(sentence.endsWith(QLatin1Char('.'))) << kind;
        EXPECT_FALSE(sentence.contains(QLatin1Char('\n'))) << kind;
        EXPECT_FALSE(sentence.contains(QLatin1Char('%'))) << kind;
    }
}

} // namespace
} // namespace corvane

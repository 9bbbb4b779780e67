#include "shell/updates/feed_session.h"

#include <fstream>

#include <sys/stat.h>

#include <gtest/gtest.h>

#include "shell/updates/feed_session_fixture.h"

namespace corvane {
namespace {

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

} // namespace
} // namespace corvane

#include "shell/web_service.h"

#include <optional>

#include <gtest/gtest.h>

#include <QHostAddress>
#include <QJsonDocument>
#include <QTcpServer>
#include <QTest>

#include "support/loopback_server.h"

namespace corvane {
namespace {

using Ending = LoopbackAnswer::Ending;

const QString unreachable = QStringLiteral("Couldn't reach the server. Check your internet connection.");

/// The result of one message.
struct Answered {
    bool hasCome = false;
    std::optional<API::Failure> failure;

    [[nodiscard]] API::Receiver receiver()
    {
        return [this](std::optional<API::Failure> why) {
            EXPECT_FALSE(hasCome) << "the second answer to one message";
            hasCome = true;
            failure = std::move(why);
        };
    }
};

/// Posts and waits; returns the failure's message, or nullopt on success.
std::optional<QString> postTo(const QUrl &site, API::Options options = {}, const QJsonObject &body = {})
{
    API api(site, options);
    Answered answered;
    api.post(QStringLiteral("api/feedback"), body, answered.receiver());
    EXPECT_TRUE(QTest::qWaitFor([&] { return answered.hasCome; }, 30'000));
    return answered.failure ? std::optional(answered.failure->message) : std::nullopt;
}

std::optional<QString> afterAnswer(const LoopbackAnswer &answer)
{
    LoopbackServer server;
    server.answerAll(answer);
    std::optional<QString> message = postTo(server.url());
    EXPECT_EQ(server.requests().size(), 1U);
    return message;
}

TEST(WebService, MessageArrivesAsJsonAtThePathBeneathTheSite)
{
    LoopbackServer server;
    const QJsonObject body{{QStringLiteral("message"), QStringLiteral("größer \"💡\"\n")},
                           {QStringLiteral("info"), QJsonObject{{QStringLiteral("arch"), QStringLiteral("x86_64")}}}};
    EXPECT_EQ(postTo(server.url(), {}, body), std::nullopt);

    ASSERT_EQ(server.requests().size(), 1U);
    const LoopbackRequest &request = server.requests().front();
    EXPECT_EQ(request.method, "POST");
    EXPECT_EQ(request.path, "/api/feedback");
    EXPECT_EQ(request.headers.at("content-type"), "application/json");
    EXPECT_EQ(request.body, QJsonDocument(body).toJson(QJsonDocument::Compact));
}

TEST(WebService, SiteInAFolderMayEndInASlashOrNot)
{
    for (const char *site : {"base", "base/"}) {
        LoopbackServer server;
        EXPECT_EQ(postTo(server.url(QString::fromLatin1(site))), std::nullopt);
        ASSERT_EQ(server.requests().size(), 1U);
        EXPECT_EQ(server.requests().front().path, "/base/api/feedback") << site;
    }
}

TEST(WebService, RequestTellsNothingOfTheUserBesideItsBody)
{
    LoopbackServer server;
    EXPECT_EQ(postTo(server.url()), std::nullopt);
    ASSERT_EQ(server.requests().size(), 1U);
    const auto &headers = server.requests().front().headers;
    EXPECT_EQ(headers.at("user-agent"), "Corvane");
    EXPECT_EQ(headers.at("accept-language"), "en");
    EXPECT_EQ(headers.count("cookie"), 0U);
    EXPECT_EQ(headers.count("authorization"), 0U);
}

TEST(WebService, CookiesOfAnAnswerAreNotSentBack)
{
    LoopbackServer server;
    server.answerAll({.headers = {{"Set-Cookie", "who=you; Path=/"}}});
    API api(server.url());
    for (int round = 0; round < 2; ++round) {
        Answered answered;
        api.post(QStringLiteral("api/feedback"), {}, answered.receiver());
        ASSERT_TRUE(QTest::qWaitFor([&] { return answered.hasCome; }));
    }
    ASSERT_EQ(server.requests().size(), 2U);
    EXPECT_EQ(server.requests().back().headers.count("cookie"), 0U);
}

TEST(WebService, EveryStatusFrom200To299IsSuccessWhateverTheBody)
{
    EXPECT_EQ(afterAnswer({.status = 200, .body = R"({"error":"not one"})"}), std::nullopt);
    EXPECT_EQ(afterAnswer({.status = 201, .body = "<html>"}), std::nullopt);
    EXPECT_EQ(afterAnswer({.status = 299}), std::nullopt);
}

TEST(WebService, TextOfTheErrorFieldIsTheMessage)
{
    EXPECT_EQ(afterAnswer({.status = 500, .body = R"({"error":"We're moving house."})"}), "We're moving house.");
    EXPECT_EQ(afterAnswer({.status = 400, .body = R"({"error":"That address isn't one."})"}),
              "That address isn't one.");
    EXPECT_EQ(afterAnswer({.status = 422, .body = R"({"error":"No."})"}), "No.");
}

TEST(WebService, StatusWithoutAnErrorTextIsNamed)
{
    for (const char *body :
         {"", "{}", "not json", "<html>500</html>", R"({"error":7})", R"({"error":null})", R"({"error":{"a":"b"}})",
          R"({"error":["a"]})", R"(["error"])", R"("error")", R"({"error":""})", R"({"error":" \n "})",
          R"({"error":"half)", R"({"Error":"another key"})"})
        EXPECT_EQ(afterAnswer({.status = 500, .body = body}), "The server had a problem (500).") << body;
    for (const int status : {300, 400, 401, 403, 404, 407, 409, 410, 413, 418, 429, 501, 503, 599})
        EXPECT_EQ(afterAnswer({.status = status}), QStringLiteral("The server had a problem (%1).").arg(status));
}

TEST(WebService, ServersTextIsSanitizedToOneShortLine)
{
    const QString lines = *afterAnswer({.status = 500, .body = R"({"error":" One\n\ttwo\r\n  three "})"});
    EXPECT_EQ(lines, "One two three");

    const QString turned = *afterAnswer({.status = 500, .body = R"({"error":"a\u202Eb\u001b[31m\u0000"})"});
    EXPECT_FALSE(turned.contains(QChar(0x202E)));
    EXPECT_FALSE(turned.contains(QChar(0x1B)));
    EXPECT_FALSE(turned.contains(QChar(0)));

    const QByteArray emoji = QByteArray("\xF0\x9F\x92\xA1").repeated(5'000);
    const QString bounded = *afterAnswer({.status = 500, .body = R"({"error":"x)" + emoji + R"("})"});
    EXPECT_LE(bounded.size(), 301);
    EXPECT_TRUE(bounded.endsWith(QStringLiteral("💡…"))) << qPrintable(bounded.right(5));
}

TEST(WebService, RedirectIsNotFollowed)
{
    for (const int status : {301, 302, 303, 307, 308}) {
        LoopbackServer elsewhere;
        LoopbackServer server;
        server.answerAll({.status = status, .headers = {{"Location", elsewhere.url().toEncoded()}}});
        EXPECT_EQ(postTo(server.url()), QStringLiteral("The server had a problem (%1).").arg(status));
        EXPECT_EQ(elsewhere.connections(), 0);
        EXPECT_EQ(server.requests().size(), 1U);
    }
}

TEST(WebService, RefusedConnectionIsNotReached)
{
    QTcpServer closed;
    ASSERT_TRUE(closed.listen(QHostAddress::LocalHost));
    const QUrl site(QStringLiteral("http://127.0.0.1:%1/").arg(closed.serverPort()));
    closed.close();
    EXPECT_EQ(postTo(site), unreachable);
}

TEST(WebService, MissingAnswerTimesOut)
{
    LoopbackServer server;
    server.answerAll({.ending = Ending::silent});
    EXPECT_EQ(postTo(server.url(), {.timeout = std::chrono::seconds(1)}), unreachable);
    EXPECT_EQ(server.requests().size(), 1U);
}

TEST(WebService, EndlesslyTricklingAnswerTimesOut)
{
    LoopbackServer server;
    server.answerAll({.ending = Ending::dripping});
    EXPECT_EQ(postTo(server.url(), {.timeout = std::chrono::milliseconds(300)}), unreachable);
}

TEST(WebService, BodyCutShortIsNotReached)
{
    EXPECT_EQ(afterAnswer({.status = 200, .body = "{", .ending = Ending::cutShort}), unreachable);
    EXPECT_EQ(afterAnswer({.status = 500, .body = R"({"error":"x"})", .ending = Ending::cutShort}), unreachable);
}

TEST(WebService, MessageIsNotSentAgainWhenTheConnectionEndsWithoutAnAnswer)
{
    EXPECT_EQ(afterAnswer({.ending = Ending::closed}), unreachable);
    EXPECT_EQ(afterAnswer({.raw = "HTTP/1.1 200"}), unreachable);
}

TEST(WebService, AnswerInAnotherProtocolIsAFailure)
{
    EXPECT_EQ(afterAnswer({.raw = "SSH-2.0-server and a line that is long enough to be told from HTTP\r\n\r\n"}),
              unreachable);
}

TEST(WebService, SiteThatIsNotOnTheWebGivesNoResponse)
{
    EXPECT_EQ(postTo(QUrl(QStringLiteral("file:///nowhere/"))), "No response from the server.");
}

TEST(WebService, LongAnswerIsRead)
{
    EXPECT_EQ(afterAnswer({.status = 200, .body = QByteArray(5'000'000, 'x')}), std::nullopt);
    const QByteArray padding(5'000'000, ' ');
    EXPECT_EQ(afterAnswer({.status = 500, .body = "{" + padding + R"("error":"Long."})"}), "Long.");
}

TEST(WebService, EndlessAnswerIsNotReadToItsEnd)
{
    const QByteArray body(64 * 1024, 'x');
    EXPECT_EQ(afterAnswer({.status = 200, .body = body, .ending = Ending::endless}), std::nullopt);
    EXPECT_EQ(afterAnswer({.status = 500, .body = body, .ending = Ending::endless}), "The server had a problem (500).");
}

TEST(WebService, CompressedAnswerIsNotDecompressed)
{
    const LoopbackAnswer answer{.status = 500,
                                .headers = {{"Content-Encoding", "deflate"}},
                                .body = qCompress(R"({"error": "The inbox is full."})").sliced(4)};
    EXPECT_EQ(afterAnswer(answer), "The server had a problem (500).");
}

TEST(WebService, CertificateThatNobodySignedIsNotReached)
{
    LoopbackServer server(LoopbackServer::Security::tls);
    EXPECT_EQ(postTo(server.url()), unreachable);
    EXPECT_EQ(server.requests().size(), 0U);
}

TEST(WebService, CertificateOfAnotherHostIsNotReached)
{
    LoopbackServer server(LoopbackServer::Security::tls);
    TrustingNetwork network(server.certificate());
    QUrl site = server.url();
    site.setHost(QStringLiteral("localhost"));
    EXPECT_EQ(postTo(site, {.network = &network}), unreachable);
    EXPECT_EQ(server.connections(), 1);
    EXPECT_EQ(server.requests().size(), 0U);
}

TEST(WebService, MessageArrivesEncryptedWhereTheCertificateIsTrusted)
{
    LoopbackServer server(LoopbackServer::Security::tls);
    TrustingNetwork network(server.certificate());
    EXPECT_EQ(postTo(server.url(), {.network = &network}), std::nullopt);
    ASSERT_EQ(server.requests().size(), 1U);
    EXPECT_EQ(server.requests().front().path, "/api/feedback");
}

TEST(WebService, LongMessageArrivesWhole)
{
    LoopbackServer server;
    const QString text(1'000'000, QLatin1Char('m'));
    EXPECT_EQ(postTo(server.url(), {}, {{QStringLiteral("report"), text}}), std::nullopt);
    ASSERT_EQ(server.requests().size(), 1U);
    EXPECT_EQ(QJsonDocument::fromJson(server.requests().front().body).object().value(QLatin1String("report")), text);
}

TEST(WebService, NothingArrivesAfterItIsDestroyed)
{
    QNetworkAccessManager shared;
    for (QNetworkAccessManager *network : {static_cast<QNetworkAccessManager *>(nullptr), &shared}) {
        LoopbackServer server;
        server.answerAll({.ending = Ending::silent});
        auto api = std::make_unique<API>(server.url(), API::Options{.network = network});
        bool hasCome = false;
        api->post(QStringLiteral("api/feedback"), {}, [&hasCome](const auto &) { hasCome = true; });
        ASSERT_TRUE(QTest::qWaitFor([&] { return server.requests().size() == 1; }));
        api.reset();
        QTest::qWait(50);
        EXPECT_FALSE(hasCome);
    }
}

TEST(WebService, ReceiverMayDestroyIt)
{
    LoopbackServer server;
    auto api = std::make_unique<API>(server.url());
    api->post(QStringLiteral("api/feedback"), {}, [&api](const auto &) { api.reset(); });
    EXPECT_TRUE(QTest::qWaitFor([&] { return api == nullptr; }));
}

TEST(WebService, EveryMessageHasAConnectionOfItsOwn)
{
    LoopbackServer server;
    API api(server.url());
    for (int round = 0; round < 4; ++round) {
        Answered answered;
        api.post(QStringLiteral("api/feedback"), {}, answered.receiver());
        ASSERT_TRUE(QTest::qWaitFor([&] { return answered.hasCome; }));
        EXPECT_EQ(answered.failure, std::nullopt);
    }
    EXPECT_EQ(server.requests().size(), 4U);
    EXPECT_EQ(server.connections(), 4);
}

TEST(WebService, SeveralMessagesGetTheirOwnAnswers)
{
    LoopbackServer server;
    server.answer("/api/crash", {.status = 503});
    API api(server.url());
    Answered feedback;
    Answered crash;
    api.post(QStringLiteral("api/crash"), {}, crash.receiver());
    api.post(QStringLiteral("api/feedback"), {}, feedback.receiver());
    ASSERT_TRUE(QTest::qWaitFor([&] { return feedback.hasCome && crash.hasCome; }));
    EXPECT_EQ(feedback.failure, std::nullopt);
    EXPECT_EQ(crash.failure, API::Failure{QStringLiteral("The server had a problem (503).")});
}

} // namespace
} // namespace corvane

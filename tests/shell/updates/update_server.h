#pragma once

#include <memory>

#include <QtTest/QtTest>
#include <gtest/gtest.h>

#include "shell/updates/feed_session.h"
#include "shell/updates/feed_text.h"
#include "shell/updates/signing_key.h"
#include "support/loopback_server.h"
#include "support/temporary_folder.h"

namespace corvane {

/// A server on the loopback interface with a feed and a signed package, a client that trusts it, and a cache folder.
struct UpdateServer {
    UpdateServer() { publish(item()); }

    /// Version 1.2.0, signed, with the correct length.
    [[nodiscard]] FeedItem item() const
    {
        return {.url = server.url(QStringLiteral("corvane.deb")).toEncoded(),
                .length = QByteArray::number(package.size()),
                .signature = key.sign(package).toBase64()};
    }
    void publish(const FeedItem &published) { publish(feedText({published})); }
    void publish(const QByteArray &feed)
    {
        server.answer("/feed.xml", {.body = feed});
        server.answer("/corvane.deb", {.body = package});
    }

    [[nodiscard]] FeedSession::Options options()
    {
        FeedSession::Options made;
        made.feed = server.url(QStringLiteral("feed.xml"));
        made.publicKey = key.publicKey();
        made.version = QStringLiteral("1.0.0");
        made.build = QStringLiteral("10000");
        made.system = {QStringLiteral("linux"), QStringLiteral("x86_64"), DottedVersion::parse(u"6.1")};
        made.caches = caches.path();
        made.network = &network;
        return made;
    }

    /// The number of requests for a path.
    [[nodiscard]] int requests(const QByteArray &path) const
    {
        return static_cast<int>(std::count_if(server.requests().begin(), server.requests().end(),
                                              [&](const LoopbackRequest &request) { return request.path == path; }));
    }

    const SigningKey key;
    const QByteArray package = QByteArray("package ").repeated(100'000);
    const TemporaryFolder caches;
    LoopbackServer server{LoopbackServer::Security::tls};
    TrustingNetwork network{server.certificate()};
};

inline bool waitForPhase(const UpdateSession &session, UpdateState::Phase phase)
{
    return QTest::qWaitFor([&] { return session.state().phase == phase; }, 30'000);
}

} // namespace corvane

#include <memory>

#include <gtest/gtest.h>

#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QSignalSpy>
#include <QtTest/QtTest>

#include "shell/session_bus.h"
#include "shell/ui/system_folder_chooser.h"
#include "support/patience.h"

namespace corvane {
namespace {

/// The file chooser part of the desktop portal. The test decides whether dialogs are answered.
class FakePortal : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.FileChooser")
    Q_PROPERTY(uint version MEMBER version)

public:
    uint version = 3;
    bool choosesPlaceItself = false; ///< the response path, as old portals did
    QString parent;
    QString title;
    QVariantMap options;
    QStringList requests; ///< request paths of pending responses

    void answer(const QString &request, uint code, const QStringList &uris) const
    {
        QDBusMessage response = QDBusMessage::createSignal(request, QStringLiteral("org.freedesktop.portal.Request"),
                                                           QStringLiteral("Response"));
        QVariantMap results;
        if (!uris.isEmpty())
            results.insert(QStringLiteral("uris"), uris);
        response << code << results;
        QDBusConnection(QStringLiteral("portal")).send(response);
    }

public slots:
    QDBusObjectPath OpenFile(const QString &parentWindow, const QString &heading, const QVariantMap &wishes)
    {
        parent = parentWindow;
        title = heading;
        options = wishes;
        const QString sender = message().service().mid(1).replace(u'.', u'_');
        const QString token = choosesPlaceItself ? QStringLiteral("t%1").arg(requests.size())
                                                 : wishes.value(QStringLiteral("handle_token")).toString();
        requests << QStringLiteral("/org/freedesktop/portal/desktop/request/") + sender + u'/' + token;
        return QDBusObjectPath(requests.last());
    }
};

/// Records which dialogs the program has closed.
class ClosedRequests : public QDBusVirtualObject {
public:
    QStringList paths;

    [[nodiscard]] QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &) override
    {
        if (message.member() == QStringLiteral("Close"))
            paths << message.path();
        return true;
    }
};

class PortalFolderChooserTest : public SessionBusTest {
protected:
    void SetUp() override
    {
        SessionBusTest::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        ASSERT_TRUE(portalBus().registerVirtualObject(portalPath + QStringLiteral("/request"), &closed,
                                                      QDBusConnection::SubPath));
        chooser = systemFolderChooser();
        ASSERT_NE(chooser, nullptr);
        chosen = std::make_unique<QSignalSpy>(chooser.get(), &SystemFolderChooser::chosen);
        dismissed = std::make_unique<QSignalSpy>(chooser.get(), &SystemFolderChooser::dismissed);
        unavailable = std::make_unique<QSignalSpy>(chooser.get(), &SystemFolderChooser::unavailable);
    }
    void TearDown() override
    {
        chooser.reset();
        portalBus().unregisterObject(portalPath + QStringLiteral("/request"), QDBusConnection::UnregisterTree);
        SessionBusTest::TearDown();
    }
    void offer()
    {
        ASSERT_TRUE(portalBus().registerObject(portalPath, &portal,
                                               QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllProperties));
    }
    void ask() { chooser->ask({QStringLiteral("Choose"), QStringLiteral("Scan"), "/home/caf\xe9"}, nullptr); }
    /// Asks, and waits until the dialog is open.
    void askAndWait()
    {
        const qsizetype before = portal.requests.size();
        ask();
        ASSERT_TRUE(QTest::qWaitFor([&] { return portal.requests.size() == before + 1; }));
    }
    [[nodiscard]] static bool waitFor(const QSignalSpy &spy)
    {
        return QTest::qWaitFor([&] { return !spy.isEmpty(); }, patience);
    }

    FakePortal portal;
    ClosedRequests closed;
    std::unique_ptr<SystemFolderChooser> chooser;
    std::unique_ptr<QSignalSpy> chosen;
    std::unique_ptr<QSignalSpy> dismissed;
    std::unique_ptr<QSignalSpy> unavailable;
};

TEST_F(PortalFolderChooserTest, AsksForAFolderAndHandsItsAddressOver)
{
    offer();
    askAndWait();
    EXPECT_EQ(portal.title, QStringLiteral("Choose"));
    EXPECT_EQ(portal.parent, QString());
    EXPECT_EQ(portal.options.value(QStringLiteral("directory")), true);
    EXPECT_EQ(portal.options.value(QStringLiteral("multiple")), false);
    EXPECT_EQ(portal.options.value(QStringLiteral("accept_label")), QStringLiteral("Scan"));
    EXPECT_EQ(portal.options.value(QStringLiteral("current_folder")).toByteArray(), QByteArray("/home/caf\xe9\0", 11));

    portal.answer(portal.requests.last(), 0, {QStringLiteral("file:///tmp/a%20b/%ff%C3%A9")});
    ASSERT_TRUE(waitFor(*chosen));
    // A byte that is not UTF-8 is preserved.
    EXPECT_EQ(chosen->first().first().toUrl().path(QUrl::FullyEncoded), QStringLiteral("/tmp/a%20b/%FF%C3%A9"));
    EXPECT_TRUE(dismissed->isEmpty());
    EXPECT_TRUE(unavailable->isEmpty());
}

TEST_F(PortalFolderChooserTest, FollowsAPortalThatChoosesThePlaceOfTheAnswerItself)
{
    portal.choosesPlaceItself = true;
    offer();
    askAndWait();
    // Until the reply arrives, the program does not know which path to listen on.
    ASSERT_TRUE(QTest::qWaitFor(
        [&] {
            portal.answer(portal.requests.last(), 0, {QStringLiteral("file:///tmp")});
            return !chosen->isEmpty();
        },
        patience));
    EXPECT_EQ(chosen->first().first().toUrl(), QUrl(QStringLiteral("file:///tmp")));
}

TEST_F(PortalFolderChooserTest, ADialogThatIsClosedChoosesNothing)
{
    offer();
    for (const uint code : {1U, 2U, 0U}) {
        askAndWait();
        portal.answer(portal.requests.last(), code, {});
        ASSERT_TRUE(waitFor(*dismissed)) << code;
        dismissed->clear();
    }
    EXPECT_TRUE(chosen->isEmpty());
    EXPECT_TRUE(unavailable->isEmpty());
}

TEST_F(PortalFolderChooserTest, WithoutAFileChooserThereIsNone)
{
    ask();
    ASSERT_TRUE(waitFor(*unavailable));
    EXPECT_EQ(unavailable->count(), 1);
}

TEST_F(PortalFolderChooserTest, APortalThatOnlyKnowsFilesIsNotAsked)
{
    portal.version = 2;
    offer();
    ask();
    ASSERT_TRUE(waitFor(*unavailable));
    EXPECT_TRUE(portal.requests.isEmpty());
}

TEST_F(PortalFolderChooserTest, AnotherQuestionTakesTheUnansweredOneBack)
{
    offer();
    askAndWait();
    const QString first = portal.requests.last();
    askAndWait();
    ASSERT_TRUE(QTest::qWaitFor([&] { return closed.paths.contains(first); }));
    EXPECT_FALSE(closed.paths.contains(portal.requests.last()));

    portal.answer(first, 0, {QStringLiteral("file:///first")});
    portal.answer(portal.requests.last(), 0, {QStringLiteral("file:///second")});
    ASSERT_TRUE(waitFor(*chosen));
    EXPECT_EQ(chosen->first().first().toUrl(), QUrl(QStringLiteral("file:///second")));
    EXPECT_EQ(chosen->count(), 1) << "the first question has no answer any more";
}

TEST_F(PortalFolderChooserTest, TheEndOfTheWindowClosesTheDialog)
{
    offer();
    askAndWait();
    chooser.reset();
    ASSERT_TRUE(QTest::qWaitFor([&] { return closed.paths.contains(portal.requests.last()); }));
    portal.answer(portal.requests.last(), 0, {QStringLiteral("file:///tmp")});
}

TEST(SystemFolderChooser, WithoutASessionBusThereIsNone)
{
    ASSERT_FALSE(qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS"));
    EXPECT_EQ(systemFolderChooser(), nullptr);
}

} // namespace
} // namespace corvane

#include "portal_folder_chooser_test.moc"

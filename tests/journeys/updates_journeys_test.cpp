#include <filesystem>

#include <QSslConfiguration>

#include "journeys/journey.h"
#include "journeys/shown_texts.h"
#include "shell/updates/update_server.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class UpdatesJourney : public Journey {
protected:
    UpdatesJourney()
    {
        QSslConfiguration trusting = m_usual;
        trusting.setCaCertificates({updates.server.certificate()});
        QSslConfiguration::setDefaultConfiguration(trusting);
        setUpdates({updates.server.url(QStringLiteral("feed.xml")).toString(), updates.key.publicKey()});
    }
    ~UpdatesJourney() override
    {
        quit();
        QSslConfiguration::setDefaultConfiguration(m_usual);
        std::filesystem::remove_all(downloads());
    }

    [[nodiscard]] std::string downloads() const { return folder() / "cache/corvane/updates"; }
    void check()
    {
        chooseInMenu(QStringLiteral("appMenu.checkForUpdates"));
        waitForPopup(QStringLiteral("update"));
    }

    UpdateServer updates;

private:
    const QSslConfiguration m_usual = QSslConfiguration::defaultConfiguration();
};

TEST_F(UpdatesJourney, NewVersionIsFetchedAndShownInTheFileManager)
{
    open();
    check();
    waitForText(QStringLiteral("Corvane 1.2.0 is available"));
    EXPECT_THAT(macWordsIn(window()), IsEmpty());
    press(Qt::Key_Return);
    waitForText(QStringLiteral("Corvane 1.2.0 has been downloaded"));
    EXPECT_THAT(macWordsIn(window()), IsEmpty());
    EXPECT_TRUE(std::filesystem::is_regular_file(downloads() + "/Corvane-1.2.0.deb"));
    EXPECT_THAT(Sandbox::instance().opened(), IsEmpty()) << "nothing is opened unasked";
    click(QStringLiteral("update.reveal"));
    waitForPopupClosed(QStringLiteral("update"));
    waitUntil([&] { return !Sandbox::instance().opened().empty(); }, QStringLiteral("the file manager"));
    EXPECT_THAT(Sandbox::instance().opened(), ElementsAre(downloads()));
}

TEST_F(UpdatesJourney, ForgedDownloadIsRefusedInOneLine)
{
    FeedItem forged = updates.item();
    forged.signature = SigningKey(8).sign(updates.package).toBase64();
    updates.publish(forged);
    open();
    check();
    waitForText(QStringLiteral("Corvane 1.2.0 is available"));
    press(Qt::Key_Return);
    waitForText(QStringLiteral("The download's signature is not valid. It was deleted."));
    EXPECT_TRUE(std::filesystem::is_empty(downloads()));
    press(Qt::Key_Return);
    waitForPopupClosed(QStringLiteral("update"));
}

TEST_F(UpdatesJourney, AnUpdateFoundByAnAutomaticCheckOpensTheSheet)
{
    setDefault("SUEnableAutomaticChecks", "true");
    open();
    waitForPopup(QStringLiteral("update"));
    EXPECT_TRUE(shows(QStringLiteral("Corvane 1.2.0 is available")));
    press(Qt::Key_Escape);
    waitForPopupClosed(QStringLiteral("update"));
    quit();
    open();
    driver().rest();
    EXPECT_EQ(updates.requests("/feed.xml"), 1) << "asked again within a day";
}

TEST_F(UpdatesJourney, WhatIsFoundWaitsUntilTheWelcomeIsDismissed)
{
    setDefault("SUEnableAutomaticChecks", "true");
    launch();
    waitForPopup(QStringLiteral("welcome"));
    const UpdateState &found = services().updater()->controller().session()->state();
    waitUntil([&] { return found.phase == UpdateState::Phase::available; }, QStringLiteral("the check"));
    EXPECT_FALSE(window().findChild<QObject *>(QStringLiteral("update"))->property("visible").toBool());
    press(Qt::Key_Escape);
    waitForPopupClosed(QStringLiteral("welcome"));
    waitForPopup(QStringLiteral("update"));
}

TEST_F(UpdatesJourney, BuildWithoutAKeyNeverAsks)
{
    setUpdates({updates.server.url(QStringLiteral("feed.xml")).toString(), QStringLiteral("REPLACE_ME")});
    setDefault("SUEnableAutomaticChecks", "true");
    open();
    click(QStringLiteral("appMenuButton"));
    waitForPopup(QStringLiteral("appMenu"));
    EXPECT_FALSE(isEnabledInMenu(QStringLiteral("Check for Updates…")));
    driver().rest();
    EXPECT_EQ(updates.server.connections(), 0);
}

} // namespace
} // namespace corvane

#include <memory>

#include <QDir>
#include <QFile>
#include <QtTest/QTest>

#include "core/path_guard.h"
#include "screenshots/photographer.h"
#include "shell/fake_update_controller.h"
#include "shell/ui/services/feedback_presenter.h"
#include "shell/ui/services/settings_presenter.h"
#include "support/loopback_server.h"

namespace corvane {

namespace {

/// Grants full disk access on the fake Mac while this object lives.
class GrantedAccess {
public:
    GrantedAccess()
    {
        QFile probe(m_probe);
        if (!setLocked(false) || !probe.open(QIODevice::WriteOnly))
            giveUp(QStringLiteral("cannot write %1").arg(m_probe));
    }
    GrantedAccess(const GrantedAccess &) = delete;
    GrantedAccess &operator=(const GrantedAccess &) = delete;
    ~GrantedAccess()
    {
        QFile::remove(m_probe);
        setLocked(true);
    }

private:
    bool setLocked(bool locked) const
    {
        return QFile::setPermissions(QFileInfo(m_probe).path(),
                                     locked ? QFile::Permissions()
                                            : QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    const QString m_probe = QString::fromStdString(PathGuard::accessProbePath(PathGuard::home()));
};

} // namespace

void Photographer::takeWelcome()
{
    if (m_example.kind == SystemKind::mac)
        m_driver.click(m_driver.item(QStringLiteral("overview.accessGuide")));
    else
        m_services.defaults()->setDidOnboard(false);
    m_driver.pointAtNothing();
    take(QStringLiteral("welcome"));
    dismiss();
}

void Photographer::takeServices()
{
    show(StorageStore::SidebarItem::overview);
    takeFeedback();
    takeSettings();

    m_services.crashReporter()->setShowPrompt(true);
    take(QStringLiteral("crash-prompt"));
    dismiss();

    if (m_example.kind != SystemKind::mac)
        return; // no access is needed
    const GrantedAccess access;
    m_services.defaults()->setDidOnboard(false);
    take(QStringLiteral("welcome-granted"));
    dismiss();
}

void Photographer::takeFeedback()
{
    auto *const form = m_driver.window()->findChild<FeedbackPresenter *>();
    LoopbackServer server;
    API service(server.url());
    API *const usual = form->api();
    form->setApi(&service);

    m_store.setShowFeedback(true);
    take(QStringLiteral("feedback-empty"));
    form->setMessage(
        QStringLiteral("A way to compare two scans would be lovely: what grew since last month, shown on the map."));
    server.answerAll({.ending = LoopbackAnswer::Ending::closed});
    form->send();
    m_driver.waitFor([&] { return !form->errorText().isEmpty(); }, QStringLiteral("the failure"));
    m_driver.press(Qt::Key_End, Qt::ControlModifier);
    take(QStringLiteral("feedback"));

    server.answerAll({});
    form->setEmail(QStringLiteral("ada@example.org"));
    form->send();
    m_driver.waitFor([&] { return form->isSent(); }, QStringLiteral("the thanks"));
    take(QStringLiteral("feedback-thanks"));
    dismiss();
    form->setApi(usual);
}

void Photographer::takeSettings()
{
    auto *const choices = m_driver.window()->findChild<SettingsPresenter *>();
    m_driver.press(Qt::Key_Comma, Qt::ControlModifier);
    auto *const settings = m_driver.window()->findChild<QQuickWindow *>(QStringLiteral("settings"));
    const WindowDriver driver(*settings);
    takeWindow(QStringLiteral("settings-noupdates"), driver);
    settings->close();

    AppUpdater updater(std::make_unique<FakeUpdateController>(), true);
    choices->setUpdater(&updater);
    m_driver.press(Qt::Key_Comma, Qt::ControlModifier);
    takeWindow(QStringLiteral("settings"), driver);
    settings->close();
    choices->setUpdater(m_services.updater());
}

} // namespace corvane

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

/// Shows another presenter in a sheet or window while this object lives.
class OtherPresenter {
public:
    OtherPresenter(QObject &shown, const char *property, QObject &other)
        : m_shown(shown), m_property(property), m_usual(shown.property(property))
    {
        if (!m_shown.setProperty(m_property, QVariant::fromValue(&other)))
            giveUp(QStringLiteral("%1 has no %2").arg(shown.objectName(), QLatin1String(property)));
    }
    OtherPresenter(const OtherPresenter &) = delete;
    OtherPresenter &operator=(const OtherPresenter &) = delete;
    ~OtherPresenter() { m_shown.setProperty(m_property, m_usual); }

private:
    QObject &m_shown;
    const char *const m_property;
    const QVariant m_usual;
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
    LoopbackServer server;
    API api(server.url());
    Services answered(*m_services.defaults(), api, *m_services.crashReporter(), *m_services.updater());
    FeedbackPresenter form(m_store, answered);

    m_store.setShowFeedback(true);
    const OtherPresenter shown(madeObject(QStringLiteral("feedback")), "feedback", form);
    take(QStringLiteral("feedback-empty"));
    form.setMessage(
        QStringLiteral("A way to compare two scans would be lovely: what grew since last month, shown on the map."));
    server.answerAll({.ending = LoopbackAnswer::Ending::closed});
    form.send();
    m_driver.waitFor([&] { return !form.errorText().isEmpty(); }, QStringLiteral("the failure"));
    m_driver.press(Qt::Key_End, Qt::ControlModifier);
    take(QStringLiteral("feedback"));

    server.answerAll({});
    form.setEmail(QStringLiteral("ada@example.org"));
    form.send();
    m_driver.waitFor([&] { return form.isSent(); }, QStringLiteral("the thanks"));
    take(QStringLiteral("feedback-thanks"));
    dismiss();
}

void Photographer::takeSettings()
{
    m_driver.press(Qt::Key_Comma, Qt::ControlModifier);
    QObject &made = madeObject(QStringLiteral("settings"));
    auto *const settings = qobject_cast<QQuickWindow *>(&made);
    const WindowDriver driver(*settings);
    takeWindow(QStringLiteral("settings-noupdates"), driver);
    settings->close();

    AppUpdater updater(std::make_unique<FakeUpdateController>(), true);
    Services updated(*m_services.defaults(), *m_services.api(), *m_services.crashReporter(), updater);
    SettingsPresenter choices(m_store, updated);
    const OtherPresenter shown(made, "settings", choices);
    m_driver.press(Qt::Key_Comma, Qt::ControlModifier);
    takeWindow(QStringLiteral("settings"), driver);
    settings->close();
}

QObject &Photographer::madeObject(const QString &name) const
{
    QObject *made = nullptr;
    m_driver.waitFor([&] { return (made = m_driver.window()->findChild<QObject *>(name)) != nullptr; }, name);
    return *made;
}

} // namespace corvane

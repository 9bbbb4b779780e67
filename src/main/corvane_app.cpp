#include "main/corvane_app.h"

#include <cstdio>
#include <cstdlib>

#include <QGuiApplication>
#include <QQmlComponent>

#include "core/path_guard.h"
#include "main/folder_argument.h"
#include "main/user_settings.h"
#include "platform/host.h"
#include "shell/ui/app_icon.h"
#include "shell/ui/services_registration.h"
#include "shell/ui/shell_ui.h"
#include "shell/ui/store_registration.h"

namespace corvane {

namespace {

// By default Qt calls abort() if the graphics driver provides nothing to draw with. Ends without destructors, because
// threads of the engine may be at work.
void endWithoutGraphics(QQuickWindow::SceneGraphError, const QString &message)
{
    std::fprintf(stderr, "corvane: %s; QT_QUICK_BACKEND=software draws without the graphics driver\n",
                 qPrintable(message.simplified()));
    std::fflush(nullptr);
    std::_Exit(EXIT_FAILURE);
}

} // namespace

CorvaneApp::CorvaneApp(const QUrl &site, const UpdateConfiguration &updates, const Host &host)
    : m_store(host, PathGuard::locations()),
      m_defaults(openUserSettings()),
      m_updater(makeUpdateController(updates, m_defaults),
                AppUpdater::isConfigured(updates.publicKey, updates.feedUrl)),
      m_api(site),
      m_crashReporter(m_defaults, m_api, systemHost().files, CrashReporter::places(systemHost().files)),
      m_services(m_defaults, m_api, m_crashReporter, m_updater)
{
    StoreRegistration::setStore(&m_store);
    ServicesRegistration::setServices(&m_services);
    setUpShell(m_engine);
    QObject::connect(&m_engine, &QQmlEngine::quit, QCoreApplication::instance(), &QCoreApplication::quit,
                     Qt::QueuedConnection);
}

bool CorvaneApp::openWindow()
{
    // Measuring keeps every core busy while the window needs them for its creation.
    m_store.holdBreakdown();
    QQmlComponent main(&m_engine, QUrl(QStringLiteral("qrc:/qt/qml/Corvane/App/Main.qml")));
    m_root.reset(main.create());
    m_window = qobject_cast<QQuickWindow *>(m_root.get());
    if (!m_window) {
        std::fputs(qPrintable(main.errorString()), stderr);
        std::fputs("corvane: the window could not be opened; is the installation complete?\n", stderr);
        return false;
    }
    QObject::connect(m_window, &QQuickWindow::sceneGraphError, m_window, endWithoutGraphics, Qt::DirectConnection);
    QObject::connect(
        m_window, &QQuickWindow::frameSwapped, m_window, [this] { finishStart(); },
        static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
    m_windowState.emplace(*m_window, m_defaults.settings());
    m_windowState->restore();
    if (m_window->windowState() == Qt::WindowMaximized)
        m_window->showMaximized();
    else
        m_window->show();
    m_window->requestActivate();
    systemHost().desktop.activateApplication();
    return true;
}

void CorvaneApp::finishStart()
{
    QGuiApplication::setWindowIcon(appIcon());
    m_store.releaseBreakdown();
    measureCleanup();
    m_crashReporter.checkOnLaunch();
}

void CorvaneApp::answer(const StartRequest &request)
{
    if (m_window) {
        // Qt reads this variable once, when a window is activated.
        if (!request.activationToken.empty())
            qputenv("XDG_ACTIVATION_TOKEN", QByteArray::fromStdString(request.activationToken));
        m_window->setWindowStates(m_window->windowStates() & ~Qt::WindowMinimized);
        m_window->requestActivate();
    }
    if (request.folder.empty())
        return;
    const Judged<std::string> folder = folderArgument(request.folder, systemHost().files);
    if (!folder)
        m_store.showToast(folder.error(), true);
    else if (m_store.phase() != StorageStore::Phase::scanning || m_store.lastScanPath() != *folder)
        m_store.scan(*folder);
}

void CorvaneApp::measureCleanup()
{
    if (m_defaults.didOnboard())
        m_store.refreshCleanup();
    else
        QObject::connect(
            &m_defaults, &UserDefaults::didOnboardChanged, &m_store, [this] { m_store.refreshCleanup(); },
            Qt::SingleShotConnection);
}

} // namespace corvane

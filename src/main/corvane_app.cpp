#include "main/corvane_app.h"

#include <cstdio>
#include <cstdlib>

#include <QQuickWindow>

#include "core/path_guard.h"
#include "main/user_settings.h"
#include "platform/host.h"
#include "shell/ui/shell_ui.h"
#include "shell/ui/store_registration.h"

namespace corvane {

namespace {

// Left to itself Qt ends the program with abort() when the graphics driver gives it nothing to draw with.
void endWithoutGraphics(QQuickWindow::SceneGraphError, const QString &message)
{
    std::fprintf(stderr, "corvane: %s; QT_QUICK_BACKEND=software draws without the graphics driver\n",
                 qPrintable(message.simplified()));
    std::exit(EXIT_FAILURE);
}

} // namespace

CorvaneApp::CorvaneApp() : m_store(systemHost(), PathGuard::locations()), m_settings(openUserSettings())
{
    StoreRegistration::setStore(&m_store);
    setUpShell(m_engine);
}

bool CorvaneApp::openWindow()
{
    m_engine.load(QUrl(QStringLiteral("qrc:/qt/qml/Corvane/App/Main.qml")));
    auto *window =
        m_engine.rootObjects().isEmpty() ? nullptr : qobject_cast<QQuickWindow *>(m_engine.rootObjects().first());
    if (window == nullptr) {
        std::fputs("corvane: the window could not be made; is the installation complete?\n", stderr);
        return false;
    }
    QObject::connect(window, &QQuickWindow::sceneGraphError, window, endWithoutGraphics, Qt::DirectConnection);
    m_windowState.emplace(*window, *m_settings);
    m_windowState->restore();
    if (window->windowState() == Qt::WindowMaximized)
        window->showMaximized();
    else
        window->show();
    window->requestActivate();
    systemHost().desktop.activateApplication();
    // Known by the time the screen that shows it is opened.
    m_store.refreshCleanup();
    return true;
}

} // namespace corvane

#pragma once

#include <memory>
#include <optional>
#include <string>

#include <QPointer>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QUrl>

#include "core/store/storage_store.h"
#include "main/running_program.h"
#include "platform/host.h"
#include "shell/app_info.h"
#include "shell/services.h"
#include "shell/ui/window/window_state.h"
#include "shell/update_system.h"

namespace corvane {

/// The program: owns the store and the services for as long as it runs, and the window over them. Made once, after the
/// QGuiApplication and before its event loop; main thread only.
class CorvaneApp {
public:
    /// `site` is where what the user sends goes, `updates` where updates come from, `host` the system that is shown.
    explicit CorvaneApp(const QUrl &site = AppInfo::site(),
                        const UpdateConfiguration &updates = UpdateConfiguration::ofThisBuild(),
                        const Host &host = systemHost());

    /// Shows the window and brings it to the front; false, with one line on standard error, when it cannot be
    /// made. What the start needs besides is done once the window is drawn.
    [[nodiscard]] bool openWindow();

    /// Brings the window to the front and, where there is a folder, scans it as if it had been chosen there; one that
    /// is being scanned already goes on. What is wrong with the folder is said in the window.
    void answer(const StartRequest &request);

    [[nodiscard]] StorageStore &store() { return m_store; }
    [[nodiscard]] Services &services() { return m_services; }
    /// The main window; null until it is open.
    [[nodiscard]] QQuickWindow *window() const { return m_window; }

private:
    /// Makes what is not visible yet when the window is drawn for the first time.
    void finishStart();
    /// Measures what can be cleaned, so that the figures are there when a screen shows them. Not before the welcome has
    /// said what for: a system that guards folders asks about them one by one.
    void measureCleanup();

    // In this order: the window state reads the window, the window reads the store and the services.
    StorageStore m_store;
    UserDefaults m_defaults;
    AppUpdater m_updater;
    API m_api;
    CrashReporter m_crashReporter;
    Services m_services;
    // Not an application engine: it would look for variants of every file, of which there are none.
    QQmlEngine m_engine;
    std::unique_ptr<QObject> m_root;
    QPointer<QQuickWindow> m_window;
    std::optional<WindowState> m_windowState;
};

} // namespace corvane

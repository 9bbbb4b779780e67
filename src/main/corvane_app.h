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

/// The program: owns the store, the services and the window. Created once, after the QGuiApplication and before its
/// event loop; main thread only.
class CorvaneApp {
public:
    /// `site` receives what the user sends, `updates` configures the update check, `host` is the system shown.
    explicit CorvaneApp(const QUrl &site = AppInfo::site(),
                        const UpdateConfiguration &updates = UpdateConfiguration::ofThisBuild(),
                        const Host &host = systemHost());

    /// Shows the window and brings it to the front; returns false, with one line on standard error, if it cannot be
    /// created. The rest of the startup follows after the first frame.
    [[nodiscard]] bool openWindow();

    /// Brings the window to the front and, if a folder is given, scans it as if the user had chosen it; a scan of it
    /// that is already running continues. Errors are shown in the window.
    void answer(const StartRequest &request);

    [[nodiscard]] StorageStore &store() { return m_store; }
    [[nodiscard]] Services &services() { return m_services; }
    /// The main window; null until it is open.
    [[nodiscard]] QQuickWindow *window() const { return m_window; }

private:
    /// Creates what is not visible in the first frame.
    void finishStart();
    /// Measures the cleanup catalogue in advance, so that screens have the figures at once. Not before the welcome has
    /// explained the reason: a system that protects folders prompts for each of them.
    void measureCleanup();

    // Keep this order: the window state uses the window, the window uses the store and the services.
    StorageStore m_store;
    UserDefaults m_defaults;
    AppUpdater m_updater;
    API m_api;
    CrashReporter m_crashReporter;
    Services m_services;
    // Not a QQmlApplicationEngine: it would look for variants of every file, and there are none.
    QQmlEngine m_engine;
    std::unique_ptr<QObject> m_root;
    QPointer<QQuickWindow> m_window;
    std::optional<WindowState> m_windowState;
};

} // namespace corvane

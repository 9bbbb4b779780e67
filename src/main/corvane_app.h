#pragma once

#include <memory>
#include <optional>
#include <string>

#include <QQmlApplicationEngine>
#include <QSettings>

#include "core/store/storage_store.h"
#include "shell/ui/window/window_state.h"

class QQuickWindow;

namespace corvane {

/// The program: owns the store for as long as it runs, and the window over it. Made once, after the
/// QGuiApplication and before its event loop; main thread only.
class CorvaneApp {
public:
    CorvaneApp();

    /// Shows the window and brings it to the front; false, with one line on standard error, when it cannot be
    /// made.
    [[nodiscard]] bool openWindow();

    [[nodiscard]] StorageStore &store() { return m_store; }

private:
    // In this order: the window state reads the window, the window reads the store.
    StorageStore m_store;
    const std::unique_ptr<QSettings> m_settings;
    QQmlApplicationEngine m_engine;
    std::optional<WindowState> m_windowState;
};

} // namespace corvane

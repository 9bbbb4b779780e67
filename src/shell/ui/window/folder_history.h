#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include "shell/ui/store_registration.h"

namespace corvane {

/// The history of folders shown in the map, for Back and Forward. Stores paths, so that it survives a rescan; folders
/// no longer in the tree are skipped. Works only while the map is the current screen. Main thread only.
class FolderHistory : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool canGoBack READ canGoBack NOTIFY changed)
    Q_PROPERTY(bool canGoForward READ canGoForward NOTIFY changed)

public:
    /// The maximum length of the history.
    static constexpr std::size_t foldersKept = 100;

    explicit FolderHistory(StorageStore &store = StoreRegistration::store(), QObject *parent = nullptr);

    [[nodiscard]] bool canGoBack() const { return nearest(-1).has_value(); }
    [[nodiscard]] bool canGoForward() const { return nearest(1).has_value(); }
    Q_INVOKABLE void goBack() { walk(-1); }
    Q_INVOKABLE void goForward() { walk(1); }
    /// The same, deferred to the event loop: the menu must close before the map takes the focus.
    Q_INVOKABLE void goBackSoon() { walkSoon(-1); }
    Q_INVOKABLE void goForwardSoon() { walkSoon(1); }
    /// Handles a mouse button: Qt::BackButton and Qt::ForwardButton navigate.
    Q_INVOKABLE void go(int button);

signals:
    void changed();

private:
    void follow();
    void walk(int step);
    void walkSoon(int step);
    /// The index of the next folder in a direction that can be shown and is not the current one.
    [[nodiscard]] std::optional<std::size_t> nearest(int step) const;

    StorageStore &m_store;
    std::vector<std::string> m_paths; // bytes
    std::size_t m_place = 0;          // index of the current folder, once there is one
};

} // namespace corvane

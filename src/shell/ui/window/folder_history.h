#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include "shell/ui/store_registration.h"

namespace corvane {

/// The folders that the map has shown, to walk back and forward among. Remembers paths, so that the way outlives a
/// rescan; what is no longer in the tree is passed over. Walks only while the map is the screen shown.
/// Main thread only.
class FolderHistory : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool canGoBack READ canGoBack NOTIFY changed)
    Q_PROPERTY(bool canGoForward READ canGoForward NOTIFY changed)

public:
    /// Older folders than that many are forgotten.
    static constexpr std::size_t foldersKept = 100;

    explicit FolderHistory(StorageStore &store = StoreRegistration::store(), QObject *parent = nullptr);

    [[nodiscard]] bool canGoBack() const { return nearest(-1).has_value(); }
    [[nodiscard]] bool canGoForward() const { return nearest(1).has_value(); }
    Q_INVOKABLE void goBack() { walk(-1); }
    Q_INVOKABLE void goForward() { walk(1); }
    /// The same once control is back in the event loop: a menu closes before the map takes the keyboard.
    Q_INVOKABLE void goBackSoon() { walkSoon(-1); }
    Q_INVOKABLE void goForwardSoon() { walkSoon(1); }
    /// What a button of the mouse does: Qt::BackButton and Qt::ForwardButton walk.
    Q_INVOKABLE void go(int button);

signals:
    void changed();

private:
    void follow();
    void walk(int step);
    void walkSoon(int step);
    /// The place of the next folder in a direction that can be shown and is not shown already.
    [[nodiscard]] std::optional<std::size_t> nearest(int step) const;

    StorageStore &m_store;
    std::vector<std::string> m_paths; // bytes
    std::size_t m_place = 0;          // of the folder shown, once there is one
};

} // namespace corvane

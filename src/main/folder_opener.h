#pragma once

#include <QObject>

namespace corvane {

class StorageStore;

/// Scans the folders that the system hands to the running program: those dropped on its icon, or opened with it.
/// Installed as an event filter of the application; main thread only.
class FolderOpener final : public QObject {
    Q_OBJECT

public:
    /// `store` outlives the object.
    explicit FolderOpener(StorageStore &store, QObject *parent = nullptr) : QObject(parent), m_store(store) {}

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    StorageStore &m_store;
};

} // namespace corvane

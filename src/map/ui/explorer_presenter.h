#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include "shell/ui/store_registration.h"

namespace corvane {

/// The explorer's texts and figures, and the command to go up. Main thread only.
class ExplorerPresenter : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString folderName READ folderName NOTIFY changed)
    Q_PROPERTY(QString folderSize READ folderSize NOTIFY changed)
    Q_PROPERTY(QString fileCount READ fileCount NOTIFY changed)
    /// The note that the scan was stopped; otherwise empty.
    Q_PROPERTY(QString partialText READ partialText NOTIFY changed)
    Q_PROPERTY(bool canGoUp READ canGoUp NOTIFY changed)
    Q_PROPERTY(QString upText READ upText CONSTANT)
    // The accessible names of the path and the map.
    Q_PROPERTY(QString wayName READ wayName CONSTANT)
    Q_PROPERTY(QString mapName READ mapName CONSTANT)
    /// Whether the current folder has no tiles, and the text shown instead.
    Q_PROPERTY(bool empty READ isEmpty NOTIFY changed)
    Q_PROPERTY(QString emptySymbol READ emptySymbol NOTIFY changed)
    Q_PROPERTY(QString emptyTitle READ emptyTitle NOTIFY changed)
    Q_PROPERTY(QString emptyText READ emptyText NOTIFY changed)

public:
    explicit ExplorerPresenter(StorageStore &store = StoreRegistration::store(), QObject *parent = nullptr);

    [[nodiscard]] QString folderName() const;
    [[nodiscard]] QString folderSize() const;
    [[nodiscard]] QString fileCount() const;
    [[nodiscard]] QString partialText() const;
    [[nodiscard]] bool canGoUp() const;
    [[nodiscard]] QString upText() const;
    [[nodiscard]] QString wayName() const { return QStringLiteral("Path"); }
    [[nodiscard]] QString mapName() const { return QStringLiteral("Space Map"); }
    [[nodiscard]] bool isEmpty() const;
    [[nodiscard]] QString emptySymbol() const;
    [[nodiscard]] QString emptyTitle() const;
    [[nodiscard]] QString emptyText() const;

    Q_INVOKABLE void goUp() const;

signals:
    void changed();

private:
    [[nodiscard]] const FileNode *folder() const;

    /// Why the current folder cannot be read.
    [[nodiscard]] QString blockedText() const;

    StorageStore &m_store;
};

} // namespace corvane

#pragma once

#include <memory>

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include "core/file_node.h"

class QMimeData;

namespace corvane {

class StorageStore;

/// What can be done with one item of the tree from a tile's or a row's context menu, and the words for it.
/// Main thread only.
class NodeActions : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Given by the map and by the list")
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(bool canOpen READ canOpen NOTIFY changed)
    Q_PROPERTY(bool canSelect READ canSelect NOTIFY changed)
    Q_PROPERTY(QString openText READ openText CONSTANT)
    Q_PROPERTY(QString revealText READ revealText CONSTANT)
    Q_PROPERTY(QString copyText READ copyText CONSTANT)
    Q_PROPERTY(QString selectText READ selectText NOTIFY changed)

public:
    explicit NodeActions(QObject *parent = nullptr) : QObject(parent) {}

    /// Neither is taken over; the store outlives this object.
    void setTarget(StorageStore *store, std::shared_ptr<FileNode> node);
    [[nodiscard]] const std::shared_ptr<FileNode> &node() const { return m_node; }

    [[nodiscard]] QString title() const;
    [[nodiscard]] bool canOpen() const;
    [[nodiscard]] bool canSelect() const;
    [[nodiscard]] QString openText() const;
    [[nodiscard]] QString revealText() const;
    [[nodiscard]] QString copyText() const;
    [[nodiscard]] QString selectText() const;

    Q_INVOKABLE void open() const;
    Q_INVOKABLE void reveal() const;
    Q_INVOKABLE void copyPath() const;
    Q_INVOKABLE void toggleSelection() const;

signals:
    void changed();

private:
    [[nodiscard]] bool isSelected() const;

    StorageStore *m_store = nullptr;
    std::shared_ptr<FileNode> m_node;
};

/// Puts an item into the selection or takes it out; does nothing for one that may not be selected, or that
/// goes with a selected folder anyway.
void toggleSelected(StorageStore &store, const FileNode &node);

/// What another program gets when the item is dragged to it. The caller owns it.
[[nodiscard]] QMimeData *makeMimeData(const FileNode &node);

} // namespace corvane

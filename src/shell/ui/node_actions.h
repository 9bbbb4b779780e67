#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include "core/file_node.h"

class QMimeData;

namespace corvane {

class StorageStore;

/// The commands and labels of the context menu of a tile or row, for one item. Main thread only.
class NodeActions : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Given by the map and by the lists")
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(bool canOpen READ canOpen NOTIFY changed)
    Q_PROPERTY(bool canReveal READ canReveal NOTIFY changed)
    Q_PROPERTY(bool canSelect READ canSelect NOTIFY changed)
    Q_PROPERTY(QString openText READ openText NOTIFY changed)
    Q_PROPERTY(QString copyText READ copyText CONSTANT)
    Q_PROPERTY(QString selectText READ selectText NOTIFY changed)

public:
    /// The store outlives this object.
    explicit NodeActions(StorageStore &store, QObject *parent = nullptr) : QObject(parent), m_store(store) {}

    /// An item of the tree, shown by the explorer.
    void setTarget(std::shared_ptr<FileNode> node);
    /// An item of another screen, in the tree or not: a folder opens in the explorer's screen. The caller gives the
    /// kind that it has listed, because asking a disk that does not respond would block the window.
    void setTarget(const std::string &path, std::int64_t size, FileNode::Kind kind);
    [[nodiscard]] const std::shared_ptr<FileNode> &node() const { return m_node; }

    [[nodiscard]] QString title() const;
    [[nodiscard]] bool canOpen() const;
    /// Whether the item still exists, as far as is known.
    [[nodiscard]] bool canReveal() const;
    [[nodiscard]] bool canSelect() const;
    [[nodiscard]] QString openText() const;
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

    StorageStore &m_store;
    std::string m_path; // bytes; empty for no target
    std::int64_t m_size = 0;
    std::shared_ptr<FileNode> m_node; // null if it is not in the tree
    bool m_isFile = false;            // or a link: opens in another program
    bool m_isElsewhere = false;
};

/// Whether the map can show the contents of a node.
[[nodiscard]] bool opensInMap(const FileNode *node);

/// Selects all children of a folder except those that may not be selected; its aggregated small files are not items.
void selectChildren(StorageStore &store, const FileNode &folder);

/// The data for dragging the item to another program. The caller owns it.
[[nodiscard]] QMimeData *makeMimeData(const FileNode &node);

} // namespace corvane

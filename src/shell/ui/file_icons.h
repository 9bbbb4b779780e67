#pragma once

#include <string>

#include <QByteArray>
#include <QCache>
#include <QColor>
#include <QImage>
#include <QMutex>
#include <QQuickImageProvider>
#include <QString>

#include "core/file_node.h"
#include "core/file_type.h"

namespace corvane {

/// The `iconKey` of `FileIcon`: encodes the item's kind and path. Any thread.
[[nodiscard]] QString fileIconKey(const FileNode &node);
[[nodiscard]] QString fileIconKey(const std::string &path, FileNode::Kind kind);

/// Encodes a path, which is bytes, as letters and digits that are safe in a URL, and back. Any thread.
[[nodiscard]] QString encodedPath(const std::string &path);
[[nodiscard]] std::string decodedPath(const QString &text);

/// The colour of an item's generic icon: its type's, slightly darker; folders have their own.
[[nodiscard]] QColor fileIconColor(FileType type, FileNode::Kind kind);

/// Serves QML image://file/KEY, the icon of a file or folder, at the requested source size. Does not read the disk: the
/// name and the kind determine the icon, unless the system has a better one. Keeps those used last, by path. Any
/// thread.
class FileIconProvider : public QQuickImageProvider {
public:
    FileIconProvider();

    QImage requestImage(const QString &id, QSize *size, const QSize &requestedSize) override;

private:
    [[nodiscard]] QImage icon(const std::string &path, FileNode::Kind kind);

    QMutex m_mutex;
    QCache<QByteArray, QImage> m_icons; // guarded by m_mutex; by path, costs are bytes
};

} // namespace corvane

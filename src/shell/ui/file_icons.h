#pragma once

#include <string>

#include <QColor>
#include <QImage>
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

/// Serves QML image://file/KEY from the icon cache, at the requested source size.
class FileIconProvider : public QQuickImageProvider {
public:
    FileIconProvider();

    QImage requestImage(const QString &id, QSize *size, const QSize &requestedSize) override;
};

} // namespace corvane

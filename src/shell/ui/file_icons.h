#pragma once

#include <string>

#include <QColor>
#include <QImage>
#include <QQuickImageProvider>
#include <QString>

#include "core/file_node.h"
#include "core/file_type.h"

namespace corvane {

/// What `FileIcon` takes as `iconKey`: stands for the item's kind and path. Any thread.
[[nodiscard]] QString fileIconKey(const FileNode &node);
[[nodiscard]] QString fileIconKey(const std::string &path, FileNode::Kind kind);

/// A path, which is bytes, as letters and figures that an address can hold, and back. Any thread.
[[nodiscard]] QString encodedPath(const std::string &path);
[[nodiscard]] std::string decodedPath(const QString &text);

/// The colour of an item's drawn icon: its type's, a little darker; folders have their own.
[[nodiscard]] QColor fileIconColor(FileType type, FileNode::Kind kind);

/// Gives QML image://file/KEY from the icon cache, at the source size asked for.
class FileIconProvider : public QQuickImageProvider {
public:
    FileIconProvider();

    QImage requestImage(const QString &id, QSize *size, const QSize &requestedSize) override;
};

} // namespace corvane

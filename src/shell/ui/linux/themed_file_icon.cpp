// For desktops with icon themes: the icon depends on the extension.

#include <algorithm>

#include <QIcon>
#include <QMimeDatabase>
#include <QPixmap>

#include "core/file_type.h"
#include "platform/ascii_case.h"
#include "platform/path.h"
#include "shell/ui/system_file_icon.h"

namespace corvane {

namespace {

QIcon themedIcon(const std::string &path, FileNode::Kind kind)
{
    if (kind == FileNode::Kind::directory)
        return QIcon::fromTheme(QStringLiteral("folder"));
    // Icon themes have no icon for packages.
    if (kind == FileNode::Kind::package)
        return {};
    const QMimeType type = QMimeDatabase().mimeTypeForFile(QString::fromStdString(path), QMimeDatabase::MatchExtension);
    const QIcon icon = QIcon::fromTheme(type.iconName());
    return icon.isNull() ? QIcon::fromTheme(type.genericIconName()) : icon;
}

} // namespace

QImage systemFileIcon(const std::string &path, FileNode::Kind kind, int pixels)
{
    const QIcon icon = themedIcon(path, kind);
    if (icon.isNull())
        return {};
    return icon.pixmap(QSize(pixels, pixels), 1.0).toImage();
}

std::string iconPath(const std::string &path, FileNode::Kind kind)
{
    if (kind == FileNode::Kind::directory)
        return "/folder";
    const std::string_view extension = nameExtension(lastPathComponent(path));
    return (kind == FileNode::Kind::package ? "/package." : "/file.") + lowerAscii(std::string(extension));
}

} // namespace corvane

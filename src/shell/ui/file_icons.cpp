#include "shell/ui/file_icons.h"

#include <QMutexLocker>

#include "platform/path.h"
#include "shell/ui/icon_provider.h"
#include "shell/ui/qt_color.h"
#include "shell/ui/system_file_icon.h"
#include "shell/ui/theme.h"

namespace corvane {

namespace {

constexpr QByteArray::Base64Options keyEncoding = QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals;

// More than any use of an icon needs, so that icons are only ever scaled down: the largest is 22 points, which are 66
// pixels on a screen of three pixels per point.
constexpr int cachedPixels = 128;
// Room for five hundred icons of that size.
constexpr qsizetype largestCache = 32'000'000;

std::string_view iconName(FileType type, FileNode::Kind kind)
{
    if (kind == FileNode::Kind::directory)
        return "folder";
    if (kind == FileNode::Kind::package)
        return type == FileType::app ? "app-window" : "package";
    switch (type) {
    case FileType::video:
        return "file-video";
    case FileType::image:
        return "file-image";
    case FileType::audio:
        return "file-audio";
    case FileType::archive:
        return "file-zip";
    case FileType::diskImage:
        return "hard-drive";
    case FileType::app:
        return "app-window";
    case FileType::document:
        return "file-text";
    case FileType::code:
        return "file-code";
    case FileType::folder:
        return "folder";
    case FileType::small:
        return "files";
    case FileType::other:
        break;
    }
    return "file";
}

QImage drawnIcon(const std::string &path, FileNode::Kind kind, int pixels)
{
    const std::string_view extension = nameExtension(lastPathComponent(path));
    const FileType type = FileType::from(extension, kind == FileNode::Kind::package);
    return renderIcon(iconName(type, kind), IconWeight::fill, fileIconColor(type, kind), pixels);
}

} // namespace

QString encodedPath(const std::string &path)
{
    return QString::fromLatin1(QByteArray::fromStdString(path).toBase64(keyEncoding));
}

std::string decodedPath(const QString &text)
{
    return QByteArray::fromBase64(text.toLatin1(), keyEncoding).toStdString();
}

QString fileIconKey(const std::string &path, FileNode::Kind kind)
{
    return QString::number(static_cast<int>(kind)) + u'/' + encodedPath(iconPath(path, kind));
}

QString fileIconKey(const FileNode &node)
{
    return fileIconKey(node.path(), node.kind);
}

QColor fileIconColor(FileType type, FileNode::Kind kind)
{
    if (kind == FileNode::Kind::directory)
        return Theme::folderIcon();
    const QColor color = toQColor(type.color());
    const auto part = [](int value) { return qRound(value * 0.94); };
    return QColor(part(color.red()), part(color.green()), part(color.blue()));
}

FileIconProvider::FileIconProvider() : QQuickImageProvider(QQuickImageProvider::Image), m_icons(largestCache) {}

QImage FileIconProvider::requestImage(const QString &id, QSize *size, const QSize &requestedSize)
{
    const auto kind = static_cast<FileNode::Kind>(id.section(u'/', 0, 0).toInt());
    QImage image = icon(decodedPath(id.section(u'/', 1, 1)), kind);
    if (requestedSize.width() > 0)
        image = image.scaled(requestedSize, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    image.setDevicePixelRatio(1);
    if (size)
        *size = image.size();
    return image;
}

QImage FileIconProvider::icon(const std::string &path, FileNode::Kind kind)
{
    const QByteArray key = QByteArray::fromStdString(path);
    // Held while the icon is rendered too: icon themes are not thread-safe.
    const QMutexLocker lock(&m_mutex);
    if (const QImage *const known = m_icons.object(key))
        return *known;

    QImage image = systemFileIcon(path, kind, cachedPixels);
    if (image.isNull())
        image = drawnIcon(path, kind, cachedPixels);
    m_icons.insert(key, new QImage(image), image.sizeInBytes());
    return image;
}

} // namespace corvane

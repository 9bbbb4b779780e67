#include "shell/ui/icon_cache.h"

#include <QMutexLocker>

#include "core/file_type.h"
#include "platform/path.h"
#include "shell/ui/file_icons.h"
#include "shell/ui/icon_provider.h"
#include "shell/ui/system_file_icon.h"

namespace corvane {

namespace {

constexpr int points = 32;
// For the largest use: an application icon of 64 points on a screen of two pixels per point.
constexpr int pixelsPerPoint = 4;
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

IconCache::IconCache() : m_icons(largestCache) {}

IconCache &IconCache::shared()
{
    static IconCache cache;
    return cache;
}

QImage IconCache::icon(const std::string &path, FileNode::Kind kind)
{
    const QByteArray key(path.data(), static_cast<qsizetype>(path.size()));
    // Held while the icon is rendered too: icon themes are not thread-safe.
    const QMutexLocker lock(&m_mutex);
    if (const QImage *const known = m_icons.object(key))
        return *known;

    QImage image = systemFileIcon(path, kind, points * pixelsPerPoint);
    if (image.isNull())
        image = drawnIcon(path, kind, points * pixelsPerPoint);
    image.setDevicePixelRatio(pixelsPerPoint);
    m_icons.insert(key, new QImage(image), image.sizeInBytes());
    return image;
}

} // namespace corvane

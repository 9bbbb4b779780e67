#include "shell/ui/file_icons.h"

#include "shell/ui/icon_cache.h"
#include "shell/ui/qt_color.h"
#include "shell/ui/system_file_icon.h"

namespace corvane {

namespace {

constexpr QByteArray::Base64Options keyEncoding = QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals;

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
        return QColor(0x4e, 0x9c, 0xeb);
    const QColor color = toQColor(type.color());
    const auto part = [](int value) { return qRound(value * 0.94); };
    return QColor(part(color.red()), part(color.green()), part(color.blue()));
}

FileIconProvider::FileIconProvider() : QQuickImageProvider(QQuickImageProvider::Image) {}

QImage FileIconProvider::requestImage(const QString &id, QSize *size, const QSize &requestedSize)
{
    const auto kind = static_cast<FileNode::Kind>(id.section(u'/', 0, 0).toInt());
    QImage image = IconCache::shared().icon(decodedPath(id.section(u'/', 1, 1)), kind);
    if (requestedSize.width() > 0)
        image = image.scaled(requestedSize, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    image.setDevicePixelRatio(1);
    if (size)
        *size = image.size();
    return image;
}

} // namespace corvane

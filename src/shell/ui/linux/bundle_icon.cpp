// Where the system knows nothing of bundles: the picture that a bundle names and brings along.

#include <QFile>
#include <QFileInfo>

#include "platform/path.h"
#include "platform/property_list.h"
#include "shell/ui/icns.h"
#include "shell/ui/system_file_icon.h"

namespace corvane {

namespace {

constexpr qint64 largestList = 1'000'000;    // bytes
constexpr qint64 largestPicture = 8'000'000; // bytes

/// The contents of a file; empty where it is no file, larger than that, or cannot be read.
QByteArray contents(const std::string &path, qint64 most)
{
    QFile file(QFile::decodeName(QByteArray::fromStdString(path)));
    // Whatever else lies there, such as a pipe, may be read without an end.
    if (const QFileInfo facts(file); !facts.isFile() || facts.size() > most)
        return {};
    return file.open(QIODevice::ReadOnly) ? file.read(most) : QByteArray();
}

std::string_view bytesOf(const QByteArray &array)
{
    return {array.data(), static_cast<std::size_t>(array.size())};
}

/// The name of the bundle's icon file; empty where it names none.
std::string iconName(const std::string &bundle)
{
    const QByteArray list = contents(bundle + "/Contents/Info.plist", largestList);
    const std::optional<PropertyList> info = PropertyList::parse(bytesOf(list));
    const PropertyList *const value = info ? info->find("CFBundleIconFile") : nullptr;
    const std::string *const name = value != nullptr ? value->string() : nullptr;
    // A name, not the way to some other place.
    if (name == nullptr || name->empty() || name->find('/') != std::string::npos)
        return {};
    return nameExtension(*name).empty() ? *name + ".icns" : *name;
}

} // namespace

QImage systemBundleIcon(const std::string &path, int pixels)
{
    const std::string name = iconName(path);
    if (name.empty())
        return {};
    const QByteArray icns = contents(path + "/Contents/Resources/" + name, largestPicture);
    const std::string_view png = findPng(bytesOf(icns), pixels);
    return QImage::fromData(reinterpret_cast<const uchar *>(png.data()), static_cast<int>(png.size()), "PNG");
}

} // namespace corvane

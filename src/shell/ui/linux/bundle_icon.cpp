// For systems without bundle support: the icon file that a bundle names and contains, or the image file found for an
// application.

#include <cstddef>
#include <optional>

#include "platform/ascii_case.h"
#include "platform/host.h"
#include "platform/path.h"
#include "platform/property_list.h"
#include "shell/ui/icns.h"
#include "shell/ui/linux/svg_icon.h"
#include "shell/ui/system_file_icon.h"

namespace corvane {

namespace {

constexpr std::size_t largestList = 1'000'000;    // bytes
constexpr std::size_t largestPicture = 8'000'000; // bytes
constexpr std::size_t largestDrawing = 512'000;   // bytes

/// The contents of a file; empty if it cannot be read or exceeds `most` bytes.
std::string contents(const std::string &path, std::size_t most)
{
    return systemHost().files.readFile(path, most).value_or(std::string());
}

/// The name of the bundle's icon file; empty if there is none.
std::string iconName(const std::string &bundle)
{
    const std::optional<PropertyList> info =
        PropertyList::parse(contents(bundle + "/Contents/Info.plist", largestList));
    const PropertyList *const value = info ? info->find("CFBundleIconFile") : nullptr;
    const std::string *const name = value != nullptr ? value->string() : nullptr;
    // Accept a file name only, not a path out of the bundle.
    if (name == nullptr || name->empty() || name->find('/') != std::string::npos)
        return {};
    return nameExtension(*name).empty() ? *name + ".icns" : *name;
}

QImage read(std::string_view picture)
{
    const std::string png = pixelsAlone(picture);
    const QImage image =
        QImage::fromData(reinterpret_cast<const uchar *>(png.data()), static_cast<int>(png.size()), "PNG");
    // Scaling an indexed image would produce another palette and dither the missing colours.
    return image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

} // namespace

QImage systemBundleIcon(const std::string &path, int pixels)
{
    const std::string ending = lowerAscii(std::string(nameExtension(lastPathComponent(path))));
    if (ending == "png")
        return read(iconPng(contents(path, largestPicture)));
    if (ending == "svg")
        return drawnIcon(contents(path, largestDrawing), pixels);
    const std::string name = iconName(path);
    if (name.empty())
        return {};
    const std::string icns = contents(path + "/Contents/Resources/" + name, largestPicture);
    return read(findPng(icns, pixels));
}

} // namespace corvane

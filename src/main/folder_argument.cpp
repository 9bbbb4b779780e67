#include "main/folder_argument.h"

#include <QByteArray>
#include <QUrl>

#include "core/store/file_url.h"

namespace corvane {

namespace {

/// Whether it starts like a URL: with a scheme, a colon and a slash.
bool looksLikeAddress(std::string_view argument)
{
    constexpr std::string_view ofSchemes = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789+-.";
    const std::size_t colon = argument.find_first_not_of(ofSchemes);
    return colon != 0 && colon != std::string_view::npos && argument.substr(colon).starts_with(":/");
}

bool exists(std::string_view argument, FileSystem &files)
{
    const Judged<std::string> path = withCurrentFolder(argument);
    return path && files.exists(*path);
}

} // namespace

Judged<std::string> folderArgument(std::string_view argument, FileSystem &files)
{
    if (!looksLikeAddress(argument) || exists(argument, files))
        return existingFolder(argument, files);
    const QUrl url = QUrl::fromEncoded(QByteArray(argument.data(), static_cast<qsizetype>(argument.size())));
    const bool isHere = url.host().isEmpty() || url.host() == QLatin1String("localhost");
    const std::string path = isHere ? pathOfFileUrl(url) : std::string();
    if (path.empty() || path.find('\0') != std::string::npos)
        return tl::unexpected(std::string(argument) +
                              " is not on a disk of this computer; mount it and give the folder where it is mounted");
    return existingFolder(path, files);
}

} // namespace corvane

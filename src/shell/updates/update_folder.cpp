#include "shell/updates/update_folder.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>
#include <utility>

namespace corvane {

namespace {

constexpr std::string_view prefix = "Corvane-";
constexpr std::string_view partial = ".part";
constexpr std::string_view otherKind = ".download";
// The longest first where one ends with another.
constexpr std::array<std::string_view, 3> packages{".deb", ".rpm", ".flatpak"};
constexpr std::array<std::string_view, 9> others{".appimage", ".tar.gz", ".tar.xz", ".tar.zst", ".tar.bz2",
                                                 ".snap",     ".zip",    ".dmg",    ".pkg"};

bool isPlain(char character)
{
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           (character >= '0' && character <= '9') || character == '.' || character == '-' || character == '+';
}

std::string partialName(const std::string &name)
{
    return name + std::string(partial);
}

} // namespace

std::string UpdateName::of(const QString &version, const QUrl &download)
{
    constexpr std::size_t longestVersion = 40;
    std::string name(prefix);
    for (const char character : version.toStdString().substr(0, longestVersion))
        name += isPlain(character) ? character : '-';
    const std::string address = download.path(QUrl::FullyDecoded).toLower().toStdString();
    for (const auto kinds : {std::span<const std::string_view>(packages), std::span<const std::string_view>(others)}) {
        for (const std::string_view kind : kinds) {
            if (address.ends_with(kind))
                return name.append(kind);
        }
    }
    return name.append(otherKind);
}

bool UpdateName::isOurs(const std::string &name)
{
    std::string_view rest = name;
    if (!rest.starts_with(prefix) || !std::all_of(rest.begin(), rest.end(), isPlain))
        return false;
    if (rest.ends_with(partial))
        rest.remove_suffix(partial.size());
    const auto ends = [rest](std::string_view kind) { return rest.ends_with(kind); };
    return std::any_of(packages.begin(), packages.end(), ends) || std::any_of(others.begin(), others.end(), ends) ||
           ends(otherKind);
}

bool UpdateName::isPackage(const std::string &name)
{
    return std::any_of(packages.begin(), packages.end(), [&](std::string_view kind) { return name.ends_with(kind); });
}

Expected<UpdateFolder> UpdateFolder::open(const std::string &caches)
{
    auto folder = PrivateFolder::open(caches, {"corvane", "updates"});
    if (!folder)
        return tl::unexpected(folder.error());
    return UpdateFolder(std::move(*folder));
}

Expected<FileDescriptor> UpdateFolder::startDownload(const std::string &name) const
{
    abandonDownload(name);
    return m_folder.createFile(partialName(name));
}

Expected<FileDescriptor> UpdateFolder::finished(const std::string &name) const
{
    return m_folder.openFile(name);
}

Expected<void> UpdateFolder::finishDownload(const std::string &name, const FileDescriptor &file) const
{
    auto renamed = m_folder.renameFile(file, partialName(name), name);
    if (renamed)
        removeOthers(name);
    return renamed;
}

void UpdateFolder::abandonDownload(const std::string &name) const
{
    m_folder.removeFile(partialName(name));
}

void UpdateFolder::removeOthers(const std::string &name) const
{
    for (const std::string &other : m_folder.names()) {
        if (other != name && UpdateName::isOurs(other))
            m_folder.removeFile(other);
    }
}

} // namespace corvane

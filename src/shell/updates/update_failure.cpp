#include "shell/updates/update_failure.h"

#include <cerrno>

#include "core/store/qt_words.h"

namespace corvane {

namespace {

// An exhausted quota looks the same to the user.
bool isFullDisk(const Error &error)
{
    return error.code == std::errc::no_space_on_device ||
           error.code == std::error_code(EDQUOT, std::generic_category());
}

} // namespace

UpdateFailure UpdateFailure::ofFolder(const Error &error)
{
    if (error.code == std::errc::resource_unavailable_try_again)
        return {Kind::anotherDownloads};
    if (isFullDisk(error))
        return {Kind::diskFull};
    return {Kind::folderUnusable, displayText(error.path + ": " + error.description())};
}

UpdateFailure UpdateFailure::ofWriting(const Error &error)
{
    if (isFullDisk(error))
        return {Kind::diskFull};
    return {Kind::notWritten, displayText(error.description())};
}

QString UpdateFailure::sentence() const
{
    switch (kind) {
    case Kind::insecureFeed:
        return QStringLiteral("The address of the update feed does not use https.");
    case Kind::badKey:
        return QStringLiteral("The key that this build uses to verify updates is not valid.");
    case Kind::unreachable:
        return QStringLiteral("Couldn't reach the update server. Check your internet connection.");
    case Kind::untrustedServer:
        return QStringLiteral("The update server's certificate is not trusted.");
    case Kind::serverStatus:
        return QStringLiteral("The update server had a problem (%1).").arg(detail);
    case Kind::insecureRedirect:
        return QStringLiteral("The update server redirects to an address that does not use https.");
    case Kind::tooManyRedirects:
        return QStringLiteral("The update server redirects too many times.");
    case Kind::feedTooLarge:
        return QStringLiteral("The update feed is too large.");
    case Kind::feedCut:
        return QStringLiteral("The update feed did not arrive completely. Try again later.");
    case Kind::feedMalformed:
        return QStringLiteral("The update feed can't be read.");
    case Kind::nothingForSystem:
        return QStringLiteral("The update feed has no version for this system.");
    case Kind::newerSystemNeeded:
        return QStringLiteral("The newest version needs a newer system (%1 or later).").arg(detail);
    case Kind::onlyOlder:
        return QStringLiteral("The update feed offers only an older version (%1).").arg(detail);
    case Kind::insecureDownload:
        return QStringLiteral("The address of the download does not use https.");
    case Kind::notSigned:
        return QStringLiteral("The update is not signed, so it can't be trusted.");
    case Kind::downloadTooLarge:
        return QStringLiteral("The download is too large.");
    case Kind::downloadCut:
        return QStringLiteral("The download did not arrive completely. Try again later.");
    case Kind::wrongLength:
        return QStringLiteral("The download does not have the size given in the feed. It was deleted.");
    case Kind::wrongSignature:
        return QStringLiteral("The download's signature is not valid. It was deleted.");
    case Kind::anotherDownloads:
        return QStringLiteral("Another copy of Corvane is already downloading an update.");
    case Kind::folderUnusable:
        return QStringLiteral("Can't use the folder for downloads, %1.").arg(detail);
    case Kind::diskFull:
        return QStringLiteral("There is not enough free space on the disk for the update.");
    case Kind::notWritten:
        return QStringLiteral("Can't write the download: %1.").arg(detail);
    }
    return {};
}

} // namespace corvane

#pragma once

#include <QString>

#include "platform/error.h"

namespace corvane {

/// Why no update can be offered.
struct UpdateFailure {
    enum class Kind {
        insecureFeed,
        badKey,
        unreachable,
        untrustedServer,
        serverStatus, ///< detail: the status code
        insecureRedirect,
        tooManyRedirects,
        feedTooLarge,
        feedCut,
        feedMalformed,
        nothingForSystem,
        newerSystemNeeded, ///< detail: the version of the system
        onlyOlder,         ///< detail: the version that the feed offers
        insecureDownload,
        notSigned,
        downloadTooLarge,
        downloadCut,
        wrongLength,
        wrongSignature,
        anotherDownloads, ///< another process of this program has locked the folder
        folderUnusable,   ///< detail: the folder and the system's error message
        diskFull,
        notWritten, ///< detail: the system's error message
    };

    Kind kind;
    QString detail = {};

    /// Maps an error of the download folder, or of writing to it.
    [[nodiscard]] static UpdateFailure ofFolder(const Error &error);
    [[nodiscard]] static UpdateFailure ofWriting(const Error &error);

    /// A one-line message for the user.
    [[nodiscard]] QString sentence() const;

    friend bool operator==(const UpdateFailure &, const UpdateFailure &) = default;
};

} // namespace corvane

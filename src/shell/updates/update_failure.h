#pragma once

#include <QString>

#include "platform/error.h"

namespace corvane {

/// Why there is no update to offer.
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
        anotherDownloads, ///< another process of this program holds the folder
        folderUnusable,   ///< detail: the folder and the system's sentence
        diskFull,
        notWritten, ///< detail: the system's sentence
    };

    Kind kind;
    QString detail = {};

    /// What an error of the folder of downloads is, or of writing to it.
    [[nodiscard]] static UpdateFailure ofFolder(const Error &error);
    [[nodiscard]] static UpdateFailure ofWriting(const Error &error);

    /// One line for people.
    [[nodiscard]] QString sentence() const;

    friend bool operator==(const UpdateFailure &, const UpdateFailure &) = default;
};

} // namespace corvane

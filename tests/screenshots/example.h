#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <QString>

#include "platform/system_kind.h"

namespace corvane {

/// The subjects of the screenshots in one shaped root. Paths are absolute; names are those of items, rows and
/// applications.
struct Example {
    SystemKind kind;
    QString mark; ///< part of the screenshots' names
    std::string home;
    std::string videos;           ///< name of the videos folder in the home
    std::string closedFolder;     ///< unreadable folder
    std::string duplicatesFolder; ///< contains one file of the last group of duplicates
    std::int64_t filesUnderWay;   ///< files counted early in a scan of the home
    QString app;                  ///< has data in several places
    QString otherApp;             ///< removed in another way
    QString otherAppMark;
    QString cleanupRow; ///< not a parent of the first one's items
    std::vector<QString> cachesTicked;
};

/// The reference stays valid for the whole run.
[[nodiscard]] const Example &exampleOf(SystemKind kind);

} // namespace corvane

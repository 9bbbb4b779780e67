#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <QString>

#include "platform/system_kind.h"

namespace corvane {

/// What the pictures of one shaped root show. Paths are absolute; names are those of items, rows and applications.
struct Example {
    SystemKind kind;
    QString mark; ///< in the names of the pictures
    std::string home;
    std::string videos;           ///< the name of that folder in the home
    std::string closedFolder;     ///< nobody may read it
    std::string duplicatesFolder; ///< one file of the last group of duplicates lies in it
    std::int64_t filesUnderWay;   ///< of a scan of the home that is not near its end
    QString app;                  ///< with data in several places
    QString otherApp;             ///< one that is removed in another way
    QString otherAppMark;
    QString cleanupRow; ///< one that holds no part of the first
    std::vector<QString> cachesTicked;
};

/// Of static storage.
[[nodiscard]] const Example &exampleOf(SystemKind kind);

} // namespace corvane

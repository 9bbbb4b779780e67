#pragma once

#include <optional>
#include <vector>

#include <QByteArray>
#include <QString>
#include <QUrl>
#include <tl/expected.hpp>

#include "shell/updates/dotted_version.h"

namespace corvane {

/// One version listed in an update feed.
struct AppcastItem {
    DottedVersion build;
    QString version;                            ///< the display version; a single line without unsafe characters
    QString system;                             ///< lower case, such as "linux"; empty for every system
    std::optional<DottedVersion> minimumSystem; ///< the oldest system that it supports
    QString minimumSystemText;                  ///< as written in the feed
    QUrl download;
    std::optional<qint64> length; ///< download size in bytes
    QByteArray signature;         ///< Ed25519, 64 bytes; empty if missing or malformed
    QUrl releaseNotes;            ///< https only; empty if there are none
};

/// The list of versions in an update feed: RSS with an enclosure for each version, and elements and attributes in the
/// update framework's namespace. Untrusted input: parsing always terminates, in bounded time and memory.
struct Appcast {
    static constexpr qsizetype maximumBytes = 1'000'000;
    static constexpr int maximumItems = 1'000;
    static constexpr int maximumDepth = 32;
    static constexpr qsizetype maximumText = 2'048; ///< characters per value; an item with a longer one is skipped

    enum class Failure {
        tooLarge,
        malformed, ///< not well-formed, not a feed, or with a DTD or an entity reference
    };

    /// The items that can be compared and fetched, that is, with a build number and an address, in the feed's order.
    /// Skips items of channels that users must opt into.
    [[nodiscard]] static tl::expected<std::vector<AppcastItem>, Failure> parse(const QByteArray &feed);
};

} // namespace corvane

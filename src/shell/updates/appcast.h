#pragma once

#include <optional>
#include <vector>

#include <QByteArray>
#include <QString>
#include <QUrl>
#include <tl/expected.hpp>

#include "shell/updates/dotted_version.h"

namespace corvane {

/// One version that an update feed lists.
struct AppcastItem {
    DottedVersion build;
    QString version;                            ///< as it is shown to people; on one line, safe to show
    QString system;                             ///< in small letters, such as "linux"; empty for every system
    std::optional<DottedVersion> minimumSystem; ///< the oldest system that it runs on
    QString minimumSystemText;                  ///< the same as the feed writes it
    QUrl download;
    std::optional<qint64> length; ///< of the download, bytes
    QByteArray signature;         ///< Ed25519, 64 bytes; empty where there is none, or none that can be one
    QUrl releaseNotes;            ///< over https; empty where there are none
};

/// The list of versions that a feed publishes: RSS with an enclosure for each version, and elements and attributes in
/// the namespace of the update framework. Foreign data: whatever the bytes are, reading them ends soon and with an
/// answer.
struct Appcast {
    static constexpr qsizetype maximumBytes = 1'000'000;
    static constexpr int maximumItems = 1'000;
    static constexpr int maximumDepth = 32;
    static constexpr qsizetype maximumText = 2'048; ///< characters of one value; an item with a longer one is left out

    enum class Failure {
        tooLarge,
        malformed, ///< not well-formed, not a feed, or with a document type or an entity of its own
    };

    /// The items that can be compared and fetched, in the feed's order: those with a build number and an address. Those
    /// of a channel that users must choose are left out.
    [[nodiscard]] static tl::expected<std::vector<AppcastItem>, Failure> parse(const QByteArray &feed);
};

} // namespace corvane

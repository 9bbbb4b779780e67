#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/file_node.h"
#include "platform/time.h"

namespace corvane {

/// An item in the user's Library left by an application, identified by its path.
struct Leftover {
    enum class Match {
        exact,  ///< named after the application's identifier
        name,   ///< named after the application's name only: a possible match
        orphan, ///< belongs to no installed application
    };

    std::string path; ///< bytes; directly inside one of the locations
    FileNode::Kind kind = FileNode::Kind::file;
    std::int64_t size = 0;     ///< allocated bytes
    std::string_view location; ///< the label of the location; of static storage
    Match match = Match::exact;
    std::optional<Time> modified;

    friend bool operator==(const Leftover &, const Leftover &) = default;
};

/// The name of the case, as in the JSON of the command line.
[[nodiscard]] std::string_view caseName(Leftover::Match match);

/// The data of deleted applications with a common identifier, largest first. Identified by `id`.
struct OrphanGroup {
    std::string id; ///< the first three components of the items' reverse-domain name; bytes
    std::vector<Leftover> items;

    /// The sum of the items' sizes.
    [[nodiscard]] std::int64_t size() const;

    friend bool operator==(const OrphanGroup &, const OrphanGroup &) = default;
};

} // namespace corvane

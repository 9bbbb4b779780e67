#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/file_reader.h"

namespace corvane {

/// A file with the same contents as one to be removed, and its status when the two were compared.
struct KeptCopy {
    std::string path;
    FileStatus seen;
};

/// The copies of one group that stay, shared by all entries of the group that are removed.
using KeptCopies = std::shared_ptr<const std::vector<KeptCopy>>;

/// Conditions checked just before an entry is removed.
struct RemovalCondition {
    std::optional<FileStatus> itself = std::nullopt; ///< the entry's status when it was compared
    std::vector<KeptCopies> copies = {};             ///< at least one of each must be unchanged
    bool holdsKeptCopy = false; ///< the entry is, or contains, the last copy of another removed entry: it stays

    friend bool operator==(const RemovalCondition &, const RemovalCondition &) = default;
};

/// The conditions of a removal, keyed by the entry's path.
using RemovalConditions = std::map<std::string, RemovalCondition>;

} // namespace corvane

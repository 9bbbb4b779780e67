#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/file_reader.h"

namespace corvane {

/// A file with the same contents as one that is to be removed, and what it was when the two were compared.
struct KeptCopy {
    std::string path;
    FileStatus seen;
};

/// Those of one group that stay, shared by all that go.
using KeptCopies = std::shared_ptr<const std::vector<KeptCopy>>;

/// What has to hold in the moment before an entry is removed.
struct RemovalCondition {
    std::optional<FileStatus> itself = std::nullopt; ///< what the entry was when it was compared
    std::vector<KeptCopies> copies = {};             ///< of each, one at least must be as it was
    bool holdsKeptCopy = false; ///< the entry is, or holds, the last copy of what goes elsewhere: it stays

    friend bool operator==(const RemovalCondition &, const RemovalCondition &) = default;
};

/// Those of a removal, by the path of the entry.
using RemovalConditions = std::map<std::string, RemovalCondition>;

} // namespace corvane

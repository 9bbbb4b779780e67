#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "platform/system_kind.h"

namespace corvane {

/// `safe`: its owner makes or downloads the data again. `review`: removal loses something that should be
/// looked at first.
enum class CleanupRisk { safe, review };

/// The sections of the catalogue, in this order.
enum class CleanupGroup { system, developer, personal };

inline constexpr std::array<CleanupGroup, 3> allCleanupGroups{CleanupGroup::system, CleanupGroup::developer,
                                                              CleanupGroup::personal};

/// The system colours that the catalogue's icons take.
enum class CleanupTint { blue, gray, cyan, red, indigo, purple, teal, green, mint, orange };

/// One row of the catalogue: a well-known folder, or several that hold the same kind of data.
struct CleanupDefinition {
    std::string_view id;
    std::string_view title;
    std::string_view detail;
    std::string_view symbol;
    CleanupTint tint;
    CleanupRisk risk;
    CleanupGroup group;
    /// Beneath the home folder, without a leading slash. The part "*" stands for every folder there: what the rest
    /// names in each of them is one entry, called as that folder is.
    std::string_view relativePath;
    std::array<std::string_view, 3> morePaths = {}; ///< written alike; the last ones may be empty
};

/// A command that frees space and that only the administrator, or the owner of a service, may run. The user copies it;
/// nothing here runs it.
struct CommandDefinition {
    /// How what it frees is found out, and whether there is anything.
    enum class Answer : std::uint8_t {
        folders,          ///< all that the folders hold
        journal,          ///< what the tool tells, or the folders hold, beyond `kept`
        containers,       ///< what the tool tells of stopped containers, the build cache and unnamed images
        snapRevisions,    ///< the earlier revisions that the tool tells, but for the newest of each
        unneededPackages, ///< the packages that the tool would remove, where a kernel is among them
        severalKernels,   ///< whether the tool tells more than one; not how large they are
        unusedRuntimes,   ///< the runtimes that the tool tells and that no application uses
    };

    std::string_view id;
    std::string_view title;
    std::string_view detail;
    std::string_view symbol;
    CleanupTint tint;
    std::string_view command;
    std::string_view tool; ///< its path; without it the command is not offered
    Answer answer;
    std::array<std::string_view, 2> folders = {}; ///< absolute; the second may be empty
    std::string_view deniedCommand = {};          ///< in place of the other one where the tool does not answer the user
    std::int64_t kept = 0;                        ///< bytes that the command leaves
    /// Makes the tool tell the address of the service that the command would speak to, which has to be one of this
    /// computer; empty where it can be no other.
    std::array<std::string_view, 4> serviceArguments = {};
};

/// What one system's catalogue has beside the rows that every system has.
struct CleanupTable {
    std::span<const CleanupDefinition> rows; ///< these come after the others
    /// Of the rows of every system, by their ids, those of programs that this one does not have. They are shown only
    /// where they hold something.
    std::span<const std::string_view> foreignRows;
    std::span<const CommandDefinition> commands;
    /// A folder that lies in two rows counts in the more special one only.
    bool countsOnce;
    /// Rows that hold nothing are folded into one line.
    bool foldsEmptyRows;
};

/// Of static storage.
[[nodiscard]] const CleanupTable &cleanupTableOf(SystemKind kind);

} // namespace corvane

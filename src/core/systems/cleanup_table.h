#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "platform/system_kind.h"

namespace corvane {

/// `safe`: the owner recreates or downloads the data again. `review`: removal loses something that the user should look
/// at first.
enum class CleanupRisk { safe, review };

/// The sections of the catalogue, in this order.
enum class CleanupGroup { system, developer, personal };

inline constexpr std::array<CleanupGroup, 3> allCleanupGroups{CleanupGroup::system, CleanupGroup::developer,
                                                              CleanupGroup::personal};

/// The system colours that the catalogue's icons take.
enum class CleanupTint { blue, gray, cyan, red, indigo, purple, teal, green, mint, orange };

/// One row of the catalogue: a well-known folder, or several with the same kind of data.
struct CleanupDefinition {
    std::string_view id;
    std::string_view title;
    std::string_view detail;
    std::string_view symbol;
    CleanupTint tint;
    CleanupRisk risk;
    CleanupGroup group;
    /// Relative to the home folder, without a leading slash. The component "*" matches every folder there; each match
    /// is one entry, named after that folder.
    std::string_view relativePath;
    std::array<std::string_view, 3> morePaths = {}; ///< same syntax; trailing ones may be empty
};

/// A command that frees space and that only the administrator, or the owner of a service, may run. The user copies it;
/// the program never runs it.
struct CommandDefinition {
    /// How to determine whether the command frees anything, and how much.
    enum class Answer : std::uint8_t {
        folders,          ///< everything in the folders
        journal,          ///< the tool's figure, or the size of the folders, beyond `kept`
        containers,       ///< the tool's figures for stopped containers, the build cache and unnamed images
        snapRevisions,    ///< the listed disabled revisions, except the newest of each
        unneededPackages, ///< the packages that the tool would remove, if a kernel is among them
        severalKernels,   ///< whether the tool lists more than one; sizes are unknown
        unusedRuntimes,   ///< the listed runtimes that no application uses
    };

    std::string_view id;
    std::string_view title;
    std::string_view detail;
    std::string_view symbol;
    CleanupTint tint;
    std::string_view command;
    std::string_view tool; ///< full path; without the tool the command is not offered
    Answer answer;
    std::array<std::string_view, 2> folders = {}; ///< absolute; the second may be empty
    std::string_view deniedCommand = {};          ///< used instead if the tool denies access to the user
    std::int64_t kept = 0;                        ///< bytes that the command keeps
    /// Arguments that print the address of the service that the command would use, which must be on this computer;
    /// empty if it can be no other.
    std::array<std::string_view, 4> serviceArguments = {};
};

/// What one system's catalogue adds to the rows common to all systems.
struct CleanupTable {
    std::span<const CleanupDefinition> rows; ///< listed after the common rows
    /// Ids of common rows for programs that this system does not have. Shown only if they contain something.
    std::span<const std::string_view> foreignRows;
    std::span<const CommandDefinition> commands;
    /// A folder that belongs to two rows counts only in the more specific one.
    bool countsOnce;
    /// Empty rows are folded into one line.
    bool foldsEmptyRows;
};

/// Static storage.
[[nodiscard]] const CleanupTable &cleanupTableOf(SystemKind kind);

} // namespace corvane

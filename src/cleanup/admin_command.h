#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/shell.h"
#include "core/stop_flag.h"
#include "core/systems/cleanup_table.h"
#include "platform/host.h"

namespace corvane {

/// A command for the user to copy that frees space. It requires root, or removes data of a service; the program never
/// runs it. Texts have static storage.
struct AdminCommand {
    std::string_view id = {};
    std::string_view title = {};
    std::string_view detail = {};
    std::string_view symbol = {};
    CleanupTint tint = CleanupTint::gray;
    std::string_view command = {};
    std::optional<std::int64_t> bytes = {}; ///< bytes that it would free; nothing if unknown

    friend bool operator==(const AdminCommand &, const AdminCommand &) = default;
};

/// The commands for the root's system whose tool is installed and that would free something: largest first, then those
/// of unknown size. Runs nothing that needs privileges. Any thread; blocks.
[[nodiscard]] std::vector<AdminCommand> findAdminCommands(FileSystem &files, const ToolRunner &runTool,
                                                          const StopFlag &stop = neverStopped);

/// The same with the tools of this computer.
[[nodiscard]] std::vector<AdminCommand> findAdminCommands(FileSystem &files, const StopFlag &stop = neverStopped);

/// The total of the known sizes.
[[nodiscard]] std::int64_t bytesOf(std::span<const AdminCommand> commands);

} // namespace corvane

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

/// A command for the user to copy that frees space. It needs the administrator, or removes what a service keeps; the
/// program never runs it. Texts are of static storage.
struct AdminCommand {
    std::string_view id = {};
    std::string_view title = {};
    std::string_view detail = {};
    std::string_view symbol = {};
    CleanupTint tint = CleanupTint::gray;
    std::string_view command = {};
    std::optional<std::int64_t> bytes = {}; ///< what it would free; nothing where that cannot be told

    friend bool operator==(const AdminCommand &, const AdminCommand &) = default;
};

/// The commands of the system that the root describes whose tools are there and that have something to free: largest
/// first, then those of which that is not known. Nothing that needs a privilege is run. Any thread; blocks.
[[nodiscard]] std::vector<AdminCommand> findAdminCommands(FileSystem &files, const ToolRunner &runTool,
                                                          const StopFlag &stop = neverStopped);

/// The same with the tools of this computer.
[[nodiscard]] std::vector<AdminCommand> findAdminCommands(FileSystem &files, const StopFlag &stop = neverStopped);

/// What they would free together, as far as that is known.
[[nodiscard]] std::int64_t bytesOf(std::span<const AdminCommand> commands);

} // namespace corvane

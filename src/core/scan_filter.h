#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// What a scan leaves out, and what it counts, by the user's choice. Immutable while a scan uses it, so safe to ask
/// from any thread. One that nobody has changed leaves out nothing and costs nothing.
struct ScanFilter {
    enum class Mounts { asUsual, none };   ///< none: nothing that is mounted beneath the folder
    enum class Sizes { onDisk, apparent }; ///< apparent: how long a file is, whatever the disk keeps for it

    /// Patterns as shells have them, with "*", "?" and "[a-z]". One without a slash is compared with each item's name;
    /// one with a slash with the path from the scanned folder, or with the whole path where it starts with one, and
    /// its "*" stops at a slash. One that ends in a slash matches folders alone.
    std::vector<std::string> excluded = {};
    Mounts mounts = Mounts::asUsual;
    Sizes sizes = Sizes::onDisk;

    enum class Kind { file, folder };

    /// Whether a pattern matches the item called `name` in `folder`, whose absolute path it is, in a scan of `root`.
    [[nodiscard]] bool leavesOut(std::string_view name, Kind kind, std::string_view folder,
                                 std::string_view root) const;

    [[nodiscard]] bool isUsual() const
    {
        return excluded.empty() && mounts == Mounts::asUsual && sizes == Sizes::onDisk;
    }
};

} // namespace corvane

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// What the user has chosen to leave out of a scan, and which size of files to count. By default a scan leaves out
/// nothing and spends no time on this. Not changed while a scan uses it, so any thread may read it.
struct ScanFilter {
    enum class Mounts { asUsual, none };   ///< none: skip everything mounted below the folder
    enum class Sizes { onDisk, apparent }; ///< apparent: the length of a file, not its allocated size

    /// Shell patterns with "*", "?" and "[a-z]". One without a slash is matched against each item's name, one with a
    /// slash against the path below the scanned folder, and one that starts with a slash against the whole path; there
    /// "*" does not match a slash. A pattern that ends in a slash matches folders only.
    std::vector<std::string> excluded = {};
    Mounts mounts = Mounts::asUsual;
    Sizes sizes = Sizes::onDisk;

    enum class Kind { file, folder };

    /// Whether a pattern matches the item `name` in the folder at the absolute path `folder`, in a scan of `root`.
    [[nodiscard]] bool leavesOut(std::string_view name, Kind kind, std::string_view folder,
                                 std::string_view root) const;

    [[nodiscard]] bool isUsual() const
    {
        return excluded.empty() && mounts == Mounts::asUsual && sizes == Sizes::onDisk;
    }
};

} // namespace corvane

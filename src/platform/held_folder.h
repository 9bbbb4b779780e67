#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/error.h"
#include "platform/file_system.h"

namespace corvane {

/// The folder that contains an item to be removed. It stays open from the checks to the removal, so that both concern
/// the same folder even if its path leads elsewhere in between. Names are those of items directly inside it; a name
/// that is empty, ".", ".." or contains "/" fails with EINVAL. Not thread-safe: one thread at a time.
class HeldFolder {
public:
    HeldFolder() = default;
    HeldFolder(const HeldFolder &) = delete;
    HeldFolder &operator=(const HeldFolder &) = delete;
    virtual ~HeldFolder() = default;

    /// The path at which it was opened: absolute, with all links resolved.
    [[nodiscard]] virtual const std::string &path() const = 0;

    /// All zeros if unknown.
    [[nodiscard]] virtual FolderIdentity identity() const = 0;

    /// Does not follow links. Fails with ENOENT if no item has that name.
    [[nodiscard]] virtual Expected<ItemFacts> facts(const std::string &name) = 0;

    /// Permanently deletes an item with everything inside. Fails with `replacedMeanwhile` if the name no longer belongs
    /// to `expected`, and with ENOENT if it belongs to no item. Links are deleted, never followed, and folders on other
    /// mounts are not entered. Deletes as much as possible: the error is that of the first item inside that could not
    /// be deleted, with its path, and `Error::inPart` tells whether any other was.
    [[nodiscard]] virtual Expected<void> removeItem(const std::string &name, const ItemIdentity &expected) = 0;

    /// Moves an item, whichever has the name at that moment, to a name in a held folder of the same `FileSystem`. Fails
    /// with EEXIST if the new name is taken, and with EXDEV if the folders are on different volumes.
    [[nodiscard]] virtual Expected<void> moveItem(const std::string &name, HeldFolder &target,
                                                  const std::string &newName) = 0;

    /// The descriptor of the open folder, which remains owned by this object; -1 if it has none.
    [[nodiscard]] virtual int descriptor() const = 0;
};

/// Why a folder is not removed, or not entered by `HeldFolder::removeItem`.
inline constexpr const char *diskMountedInside = "Another disk is mounted inside it.";

/// The error (ESTALE) of an operation that found a different item from the one that was checked.
[[nodiscard]] Error replacedMeanwhile(std::string_view operation, std::string_view path);

} // namespace corvane

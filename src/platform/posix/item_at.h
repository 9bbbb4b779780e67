#pragma once

#include <optional>
#include <string>

#include "platform/file_system.h"

namespace corvane {

// Operations on single items relative to an open folder's descriptor.

/// What opening an item does if its name belongs to a symbolic link.
enum class LinkRule { follow, refuse };

/// Whether the text names an item directly inside a folder.
[[nodiscard]] bool isItemName(const std::string &name);

/// The identity of the item with that name, without following a link; nothing, with `errno` set, on failure.
[[nodiscard]] std::optional<ItemIdentity> identityAt(int folder, const std::string &name);

/// The facts of the item with that name, without following a link and without `isPackage`; `path` is for the error.
[[nodiscard]] Expected<ItemFacts> factsAt(int folder, const std::string &name, const std::string &path);

/// Whether the open item has that name in the folder. Unlike a remembered inode number, that of an open item cannot be
/// reused meanwhile.
[[nodiscard]] bool isAt(int item, int folder, const std::string &name);

/// Moves an item without ever replacing another; false, with `errno` set, on failure; EEXIST if the name is taken.
[[nodiscard]] bool moveAt(int folder, const std::string &name, int target, const std::string &newName);

/// The same for file systems without an atomic no-replace rename: checks first whether the name is taken.
[[nodiscard]] bool moveAfterLooking(int folder, const std::string &name, int target, const std::string &newName);

/// `prefix` followed by 16 random digits: a name that nothing else has.
[[nodiscard]] std::string uniqueName(const std::string &prefix);

} // namespace corvane

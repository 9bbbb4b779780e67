#pragma once

#include <optional>
#include <string>

#include <sys/stat.h>

#include "platform/file_system.h"

namespace corvane {

// Single items relative to an open folder's number.

/// Whether the text names an item directly inside a folder.
[[nodiscard]] bool isItemName(const std::string &name);

/// What the kernel's record says the item is.
[[nodiscard]] ItemIdentity identityOf(const struct stat &facts);

/// What the item of that name is, a link not followed; nothing, with `errno` set, where it cannot be looked at.
[[nodiscard]] std::optional<ItemIdentity> identityAt(int folder, const std::string &name);

/// Whether the open item bears that name in the folder. Other than a number that was remembered, that of an open item
/// is not given to a new one meanwhile.
[[nodiscard]] bool isAt(int item, int folder, const std::string &name);

/// Moves an item and never replaces another one; false with `errno` set where it could not, EEXIST for a taken name.
[[nodiscard]] bool moveAt(int folder, const std::string &name, int target, const std::string &newName);

/// "PREFIX" and 16 random digits: a name that nothing else bears.
[[nodiscard]] std::string uniqueName(const std::string &prefix);

} // namespace corvane

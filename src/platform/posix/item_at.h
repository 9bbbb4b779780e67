#pragma once

#include <optional>
#include <string>

#include "platform/file_system.h"

namespace corvane {

// Single items relative to an open folder's number.

/// Whether the text names an item directly inside a folder.
[[nodiscard]] bool isItemName(const std::string &name);

/// What the item of that name is, a link not followed; nothing, with `errno` set, where it cannot be looked at.
[[nodiscard]] std::optional<ItemIdentity> identityAt(int folder, const std::string &name);

/// What the item of that name is, a link not followed, but for whether it is a package; `path` is for the error.
[[nodiscard]] Expected<ItemFacts> factsAt(int folder, const std::string &name, const std::string &path);

/// Whether the open item bears that name in the folder. Other than a number that was remembered, that of an open item
/// is not given to a new one meanwhile.
[[nodiscard]] bool isAt(int item, int folder, const std::string &name);

/// Moves an item and never replaces another one; false with `errno` set where it could not, EEXIST for a taken name.
[[nodiscard]] bool moveAt(int folder, const std::string &name, int target, const std::string &newName);

/// The same where the file system cannot rename without replacing: looks first whether the name is taken.
[[nodiscard]] bool moveAfterLooking(int folder, const std::string &name, int target, const std::string &newName);

/// "PREFIX" and 16 random digits: a name that nothing else bears.
[[nodiscard]] std::string uniqueName(const std::string &prefix);

} // namespace corvane

#pragma once

#include <cstdint>
#include <string>

#include <QString>

namespace corvane {

class StorageStore;

/// Why an item can be neither put into the selection nor taken out of it; empty where it can. A few words for a
/// check box.
[[nodiscard]] QString refusalOf(const StorageStore &store, const std::string &path);
[[nodiscard]] QString protectedRefusal();
[[nodiscard]] QString coveredRefusal();

/// Says in the toast that the item of that name cannot be selected, and why.
void sayRefusal(StorageStore &store, const QString &name, const QString &refusal);

/// Puts an item into the selection; says why where that is refused. `size` in bytes.
void selectItem(StorageStore &store, const std::string &path, std::int64_t size);
/// Puts an item into the selection or takes it out; says why where that is refused.
void toggleItem(StorageStore &store, const std::string &path, std::int64_t size);

} // namespace corvane

#pragma once

#include <cstdint>
#include <span>
#include <string>

#include <QString>

#include "core/selected_entry.h"
#include "core/selection_facts.h"

namespace corvane {

class FileNode;
class StorageStore;

/// The state of a check box, and why it is disabled if it is.
struct CheckFacts {
    Qt::CheckState state = Qt::Unchecked;
    bool isCheckable = false;
    QString reason; ///< a few words

    friend bool operator==(const CheckFacts &, const CheckFacts &) = default;
};

[[nodiscard]] Qt::CheckState checkState(Selected selected);
/// A short text for a check box; empty if there is none.
[[nodiscard]] QString refusalText(SelectionRefusal refusal);
[[nodiscard]] CheckFacts checkFacts(const SelectionFacts &facts);

/// Whether the store refuses to select a path. The store must outlive the result.
[[nodiscard]] ProtectionTest protectionTest(const StorageStore &store);
/// Of the item at a path.
[[nodiscard]] SelectionFacts selectionFactsOf(const StorageStore &store, const std::string &path);

/// Selects an item; shows a toast if that is refused. `size` in bytes.
void selectItem(StorageStore &store, const std::string &path, std::int64_t size);
/// Toggles the selection of an item; shows a toast if that is refused.
void toggleItem(StorageStore &store, const std::string &path, std::int64_t size);
/// The same for an item of the tree; ignores one that has been removed.
void selectItem(StorageStore &store, const FileNode &node);
void toggleItem(StorageStore &store, const FileNode &node);
/// Selects every entry of the location called `name` that may be selected; shows a toast if none may.
void selectEntries(StorageStore &store, const QString &name, std::span<const SelectedEntry> entries);
/// Toggles them: deselects all if there is nothing left to select.
void toggleEntries(StorageStore &store, const QString &name, std::span<const SelectedEntry> entries);

} // namespace corvane

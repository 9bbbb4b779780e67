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

/// What a check box shows of the selection, and why it cannot be used where that is so.
struct CheckFacts {
    Qt::CheckState state = Qt::Unchecked;
    bool isCheckable = false;
    QString reason; ///< a few words

    friend bool operator==(const CheckFacts &, const CheckFacts &) = default;
};

[[nodiscard]] Qt::CheckState checkState(Selected selected);
/// A few words for a check box; empty where there is nothing to say.
[[nodiscard]] QString refusalText(SelectionRefusal refusal);
[[nodiscard]] CheckFacts checkFacts(const SelectionFacts &facts);

/// Whether the store refuses to select a path. The store must outlive it.
[[nodiscard]] ProtectionTest protectionTest(const StorageStore &store);
/// Of the item at a path.
[[nodiscard]] SelectionFacts selectionFactsOf(const StorageStore &store, const std::string &path);

/// Puts an item into the selection; says why where that is refused. `size` in bytes.
void selectItem(StorageStore &store, const std::string &path, std::int64_t size);
/// Puts an item into the selection or takes it out; says why where that is refused.
void toggleItem(StorageStore &store, const std::string &path, std::int64_t size);
/// The same for an item of the tree; one that has been removed is left alone.
void selectItem(StorageStore &store, const FileNode &node);
void toggleItem(StorageStore &store, const FileNode &node);
/// Puts every entry of a location of that name into the selection that may be selected; says why where none may.
void selectEntries(StorageStore &store, const QString &name, std::span<const SelectedEntry> entries);
/// The same; takes them all out where nothing is left to select.
void toggleEntries(StorageStore &store, const QString &name, std::span<const SelectedEntry> entries);

} // namespace corvane

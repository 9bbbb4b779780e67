#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <ranges>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/selection.h"

namespace corvane {

/// How much of an item is selected.
enum class Selected : std::uint8_t {
    no,
    partly, ///< something inside it
    itself,
    throughFolder, ///< all of it, through an ancestor folder
};

/// Why an item can be neither selected nor deselected. If several reasons apply, the first one counts.
enum class SelectionRefusal : std::uint8_t {
    none,
    insideSelectedFolder, ///< removed together with that folder
    protectedLocation,
    nothingThere, ///< a location without items
};

/// Whether and how an item is selected, and whether that can be changed: for a tile, a row, a card or a menu.
struct SelectionFacts {
    Selected selected = Selected::no;
    SelectionRefusal refusal = SelectionRefusal::none;

    [[nodiscard]] bool canChange() const { return refusal == SelectionRefusal::none; }

    friend bool operator==(const SelectionFacts &, const SelectionFacts &) = default;
};

/// Whether the item at a path must never be removed (`ProtectedLocations`). It accesses the disk, so the functions
/// below call it last, and only if the result matters.
using ProtectionTest = std::function<bool(const std::string &path)>;

/// How much of the item at a path is selected. Does not access the disk.
[[nodiscard]] Selected selectedOf(const Selection &selection, std::string_view path);

/// Why an item with that selection state cannot be changed. An item selected itself can always be deselected.
[[nodiscard]] SelectionRefusal refusalOf(Selected selected, const std::function<bool()> &isProtected);

/// The facts for the item at a path.
[[nodiscard]] SelectionFacts selectionFacts(const Selection &selection, const std::string &path,
                                            const ProtectionTest &isProtected);

/// The facts for a location, which stands for the entries directly inside it, each with its `path`. It counts as
/// selected if every selectable entry is.
template <typename Entries>
[[nodiscard]] SelectionFacts selectionFactsOfAll(const Selection &selection, const Entries &entries,
                                                 const ProtectionTest &isProtected);

/// How much of each item of one folder is selected, computed in one pass for a folder of any size.
class FolderSelection {
public:
    FolderSelection() = default;
    FolderSelection(const Selection &selection, std::string_view folder);

    /// Whether the folder itself is covered by the selection.
    [[nodiscard]] bool isCovered() const { return m_isCovered; }
    /// The state of the item with that name.
    [[nodiscard]] Selected of(const std::string &name) const;
    /// The names of the items whose state differs in `other`; meaningful if both folders are covered or neither is.
    [[nodiscard]] std::vector<std::string> namesThatDiffer(const FolderSelection &other) const;

private:
    bool m_isCovered = false;
    std::unordered_map<std::string, Selected> m_byName; // without items of which nothing is selected
};

template <typename Entries>
SelectionFacts selectionFactsOfAll(const Selection &selection, const Entries &entries,
                                   const ProtectionTest &isProtected)
{
    if (std::ranges::empty(entries))
        return {Selected::no, SelectionRefusal::nothingThere};
    if (hasSelectedAncestor(selection, std::ranges::begin(entries)->path))
        return {Selected::throughFolder, SelectionRefusal::insideSelectedFolder};

    const auto isSelected = [&](const auto &entry) { return selection.contains(entry.path); };
    const bool isAnySelected = std::ranges::any_of(entries, isSelected);
    const bool isAnyLeft =
        std::ranges::any_of(entries, [&](const auto &entry) { return !isSelected(entry) && !isProtected(entry.path); });
    if (isAnySelected && !isAnyLeft)
        return {Selected::itself, SelectionRefusal::none};
    const bool isPartly = isAnySelected || std::ranges::any_of(entries, [&](const auto &entry) {
                              return hasSelectedInside(selection, entry.path);
                          });
    return {isPartly ? Selected::partly : Selected::no,
            isAnyLeft ? SelectionRefusal::none : SelectionRefusal::protectedLocation};
}

} // namespace corvane

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

/// How much of an item the selection holds.
enum class Selected : std::uint8_t {
    no,
    partly, ///< something inside it
    itself,
    throughFolder, ///< all of it, by a folder around it
};

/// Why an item can be neither put into the selection nor taken out of it. Where several are true, the first counts.
enum class SelectionRefusal : std::uint8_t {
    none,
    insideSelectedFolder, ///< it goes with that folder
    protectedLocation,
    nothingThere, ///< a location that holds no items
};

/// Whether and how an item is selected, and whether that can be changed: for a tile, a row, a card or a menu.
struct SelectionFacts {
    Selected selected = Selected::no;
    SelectionRefusal refusal = SelectionRefusal::none;

    [[nodiscard]] bool canChange() const { return refusal == SelectionRefusal::none; }

    friend bool operator==(const SelectionFacts &, const SelectionFacts &) = default;
};

/// Whether the item at a path must never be removed (`ProtectedLocations`). It asks the disk, so the functions below
/// ask it last, and not at all where the answer changes nothing.
using ProtectionTest = std::function<bool(const std::string &path)>;

/// How much of the item at a path is selected. Asks nothing of the disk.
[[nodiscard]] Selected selectedOf(const Selection &selection, std::string_view path);

/// Why an item of which that much is selected cannot be changed. What is selected itself can always be taken out.
[[nodiscard]] SelectionRefusal refusalOf(Selected selected, const std::function<bool()> &isProtected);

/// Of the item at a path.
[[nodiscard]] SelectionFacts selectionFacts(const Selection &selection, const std::string &path,
                                            const ProtectionTest &isProtected);

/// Of a location, which stands for the entries that lie directly in it, each with its `path`: selected itself when
/// every one is that may be.
template <typename Entries>
[[nodiscard]] SelectionFacts selectionFactsOfAll(const Selection &selection, const Entries &entries,
                                                 const ProtectionTest &isProtected);

/// How much of each item of one folder is selected, read in one pass for a folder of any size.
class FolderSelection {
public:
    FolderSelection() = default;
    FolderSelection(const Selection &selection, std::string_view folder);

    /// Whether the folder itself goes with the selection.
    [[nodiscard]] bool isCovered() const { return m_isCovered; }
    /// Of the item of that name.
    [[nodiscard]] Selected of(const std::string &name) const;
    /// The names of the items of which not as much is selected in the other; of use where both are covered or neither.
    [[nodiscard]] std::vector<std::string> namesThatDiffer(const FolderSelection &other) const;

private:
    bool m_isCovered = false;
    std::unordered_map<std::string, Selected> m_byName; // without those of which nothing is selected
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

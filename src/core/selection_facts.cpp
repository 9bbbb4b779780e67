#include "core/selection_facts.h"

#include <cstddef>
#include <utility>

#include "platform/path.h"

namespace corvane {

Selected selectedOf(const Selection &selection, std::string_view path)
{
    if (hasSelectedAncestor(selection, path))
        return Selected::throughFolder;
    if (selection.contains(path))
        return Selected::itself;
    return hasSelectedInside(selection, path) ? Selected::partly : Selected::no;
}

SelectionRefusal refusalOf(Selected selected, const std::function<bool()> &isProtected)
{
    if (selected == Selected::throughFolder)
        return SelectionRefusal::insideSelectedFolder;
    if (selected == Selected::itself)
        return SelectionRefusal::none;
    return isProtected() ? SelectionRefusal::protectedLocation : SelectionRefusal::none;
}

SelectionFacts selectionFacts(const Selection &selection, const std::string &path, const ProtectionTest &isProtected)
{
    const Selected selected = selectedOf(selection, path);
    return {selected, refusalOf(selected, [&] { return isProtected(path); })};
}

FolderSelection::FolderSelection(const Selection &selection, std::string_view folder)
{
    if (selection.empty())
        return;
    m_isCovered = corvane::isCovered(selection, folder);

    // In path order, the entries inside this folder are contiguous, and so are those inside each item.
    const std::string prefix = joined(folder, {});
    for (auto entry = selection.lower_bound(prefix); entry != selection.end() && entry->first.starts_with(prefix);) {
        const std::size_t slash = entry->first.find('/', prefix.size());
        std::string name = entry->first.substr(prefix.size(), slash - prefix.size());
        if (slash == std::string::npos) {
            m_byName[std::move(name)] = Selected::itself;
            ++entry;
        } else {
            const std::string afterItem = prefix + name + static_cast<char>('/' + 1);
            m_byName.try_emplace(std::move(name), Selected::partly);
            entry = selection.lower_bound(afterItem);
        }
    }
}

Selected FolderSelection::of(const std::string &name) const
{
    if (m_isCovered)
        return Selected::throughFolder;
    const auto found = m_byName.find(name);
    return found == m_byName.end() ? Selected::no : found->second;
}

std::vector<std::string> FolderSelection::namesThatDiffer(const FolderSelection &other) const
{
    std::vector<std::string> names;
    for (const auto &[name, selected] : m_byName) {
        const auto found = other.m_byName.find(name);
        if (found == other.m_byName.end() || found->second != selected)
            names.push_back(name);
    }
    for (const auto &[name, selected] : other.m_byName) {
        if (!m_byName.contains(name))
            names.push_back(name);
    }
    return names;
}

} // namespace corvane

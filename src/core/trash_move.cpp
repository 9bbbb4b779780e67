#include "core/trash_move.h"

#include <utility>

#include "platform/path.h"
#include "platform/trash.h"

namespace corvane {

TrashMove::TrashMove(HeldFolder &folder, std::string name, const ItemFacts &judged, const Host &host)
    : m_folder(folder), m_name(std::move(name)), m_judged(judged), m_host(host), m_path(joined(folder.path(), m_name))
{
}

Expected<void> TrashMove::perform()
{
    const Expected<TrashedItem> trashed = m_host.trash.trashItem(m_folder, m_name);
    if (trashed)
        return checked(*trashed);
    if (trashed.error().isMissing())
        return tl::unexpected(trashed.error());
    if (m_path.ends_with(".app")) {
        const Expected<TrashedItem> recycled = m_host.trash.recycle(m_folder, m_name);
        return recycled ? checked(*recycled) : tl::unexpected(trashed.error());
    }
    return performThroughFinder(trashed.error());
}

Expected<void> TrashMove::performThroughFinder(const Error &refusal)
{
    // The script addresses an alias, and an alias of a link refers to the link's target.
    if (m_judged.type == EntryType::symbolicLink)
        return tl::unexpected(refusal);
    // The file manager takes a path and does not report which item it moved.
    const Expected<ItemFacts> found = m_host.files.facts(m_path);
    if (!found || found->identity != m_judged.identity)
        return tl::unexpected(replacedMeanwhile(moveToTrash, m_path));
    // Its reply is unreliable, so check what is left at the path.
    (void)m_host.trash.trashThroughFinder(m_path);
    const Expected<ItemFacts> left = m_folder.facts(m_name);
    return !left && left.error().isMissing() ? Expected<void>{} : tl::unexpected(refusal);
}

Expected<void> TrashMove::checked(const TrashedItem &arrived)
{
    if (arrived.folder && arrived.identity == m_judged.identity)
        return {};
    if (arrived.folder)
        return putBack(arrived);
    return isStillThere() ? tl::unexpected(replacedMeanwhile(moveToTrash, m_path)) : Expected<void>{};
}

Expected<void> TrashMove::putBack(const TrashedItem &wrongItem)
{
    Error error = replacedMeanwhile(moveToTrash, m_path);
    // If the judged item still has its name, the other item came not from this folder but from one that had this
    // folder's path for a while.
    std::unique_ptr<HeldFolder> other;
    HeldFolder *origin = &m_folder;
    if (isStillThere()) {
        other = otherFolderAtPath();
        origin = other.get();
    }
    if (origin != nullptr && wrongItem.folder->moveItem(wrongItem.name, *origin, m_name))
        m_host.trash.forget(*wrongItem.folder, wrongItem.name);
    else
        error.text += ", and what took its place is in the Trash";
    return tl::unexpected(std::move(error));
}

/// The folder that is at the judged folder's path now; null if only the judged one is found. If two folders are swapped
/// back and forth, a few attempts find the other.
std::unique_ptr<HeldFolder> TrashMove::otherFolderAtPath()
{
    constexpr int looks = 1000;
    for (int look = 0; look < looks; ++look) {
        Expected<std::unique_ptr<HeldFolder>> found = m_host.files.holdFolder(m_folder.path());
        if (found && !((*found)->identity() == m_folder.identity()))
            return std::move(*found);
    }
    return nullptr;
}

bool TrashMove::isStillThere()
{
    const Expected<ItemFacts> found = m_folder.facts(m_name);
    return found && found->identity == m_judged.identity;
}

} // namespace corvane

#include "shell/ui/window/folder_history.h"

namespace corvane {

FolderHistory::FolderHistory(StorageStore &store, QObject *parent) : QObject(parent), m_store(store)
{
    connect(&m_store, &StorageStore::currentFolderChanged, this, &FolderHistory::follow);
    for (const auto signal :
         {&StorageStore::treeChanged, &StorageStore::revisionChanged, &StorageStore::sidebarChanged})
        connect(&m_store, signal, this, &FolderHistory::changed);
    follow();
}

void FolderHistory::follow()
{
    const FileNode *const folder = m_store.currentFolder().get();
    std::string path = folder != nullptr ? folder->path() : std::string();
    if (!path.empty() && (m_paths.empty() || m_paths[m_place] != path)) {
        // Opening another folder discards the forward history.
        if (!m_paths.empty())
            m_paths.resize(m_place + 1);
        m_paths.push_back(std::move(path));
        if (m_paths.size() > foldersKept)
            m_paths.erase(m_paths.begin());
        m_place = m_paths.size() - 1;
    }
    emit changed();
}

std::optional<std::size_t> FolderHistory::nearest(int step) const
{
    if (!m_store.currentFolder() || m_store.sidebar() != StorageStore::SidebarItem::explorer)
        return std::nullopt;
    for (auto place = static_cast<std::ptrdiff_t>(m_place) + step;
         place >= 0 && place < static_cast<std::ptrdiff_t>(m_paths.size()); place += step) {
        const FileNode *const node = m_store.node(m_paths[static_cast<std::size_t>(place)]);
        if (node != nullptr && node->kind != FileNode::Kind::file && node != m_store.currentFolder().get())
            return static_cast<std::size_t>(place);
    }
    return std::nullopt;
}

void FolderHistory::walk(int step)
{
    const std::optional<std::size_t> place = nearest(step);
    if (!place)
        return;
    m_place = *place; // before opening, so that follow() does not add it as a new folder
    m_store.open(m_store.sharedNode(m_paths[m_place]));
}

void FolderHistory::walkSoon(int step)
{
    QMetaObject::invokeMethod(
        this, [this, step] { walk(step); }, Qt::QueuedConnection);
}

void FolderHistory::go(int button)
{
    if (button == Qt::BackButton)
        goBack();
    else if (button == Qt::ForwardButton)
        goForward();
}

} // namespace corvane

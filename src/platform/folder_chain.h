#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/file_system.h"
#include "platform/patient_open.h"

namespace corvane {

/// The folders on the way from the top of a walk down to where it stands, each directly inside the one
/// before. Only the innermost few are kept open, so a walk may go down thousands of levels; one that was
/// closed is opened again from its child on the way back up. Used by one thread.
class FolderChain {
public:
    /// Some systems allow a program 256 open files, and a walk runs on every core. Few folders lie deeper
    /// than this below the top of a walk, so few are ever opened twice.
    static constexpr std::size_t openLimit = 16;

    [[nodiscard]] bool empty() const { return m_links.empty(); }
    [[nodiscard]] std::size_t size() const { return m_links.size(); }

    /// Goes down into a folder directly inside the innermost one, or starts the chain.
    void push(std::shared_ptr<OpenFolder> folder)
    {
        m_links.push_back({std::move(folder), {}, {}});
        closeAllBut(openLimit);
    }

    /// The position, from the top, of the outermost folder that is open.
    [[nodiscard]] std::size_t firstOpen() const { return m_firstOpen; }

    /// The open folder at that position, for another walk that goes on from there. It stays open as long as either
    /// keeps it. Null where it is out of reach.
    [[nodiscard]] std::shared_ptr<OpenFolder> shared(std::size_t position) const
    {
        std::shared_ptr<OpenFolder> folder = m_links[position].folder;
        if (folder)
            (void)folder->identity(); // from now on several threads may ask for it
        return folder;
    }

    /// Opens a folder directly inside the innermost one, which is not null. Where file numbers have run out, here
    /// or for another walk, the chain gives back all but its last.
    [[nodiscard]] Expected<std::unique_ptr<OpenFolder>> openChild(const std::string &name)
    {
        if (waitingForFileNumbers.load(std::memory_order_relaxed) > 0)
            closeAllBut(1);
        return openPatiently([&] { return innermost()->openChild(name); }, [this] { closeAllBut(1); });
    }

    /// The innermost folder. Null when it had been closed and cannot be reached again, because what the walk
    /// went through has been moved away meanwhile; then every folder above is out of reach as well.
    [[nodiscard]] OpenFolder *innermost() const { return m_links.back().folder.get(); }

    /// Why the innermost folder is null: what opening it again failed with. Absent where another folder was found in
    /// its place, and as long as nothing was lost.
    [[nodiscard]] const std::optional<Error> &loss() const { return m_loss; }

    /// Goes back up by one folder.
    void pop()
    {
        const std::shared_ptr<OpenFolder> left = std::move(m_links.back().folder);
        m_links.pop_back();
        if (m_links.size() > m_firstOpen || m_links.empty())
            return;
        Link &now = m_links.back();
        m_firstOpen = m_links.size() - 1;
        if (!left)
            return;
        Expected<std::unique_ptr<OpenFolder>> reopened = openPatiently([&] { return left->openParent(); });
        if (reopened && (*reopened)->identity() == now.identity)
            now.folder = now.wrapping ? now.wrapping(std::move(*reopened)) : std::move(*reopened);
        else if (!reopened)
            m_loss = std::move(reopened.error());
    }

private:
    struct Link {
        std::shared_ptr<OpenFolder> folder; // null while closed
        FolderIdentity identity;            // noted when it is closed
        OpenFolder::Wrapping wrapping;      // the same
    };

    /// Keeps the innermost `count` open.
    void closeAllBut(std::size_t count)
    {
        while (m_links.size() - m_firstOpen > count) {
            Link &outermost = m_links[m_firstOpen++];
            outermost.identity = outermost.folder->identity();
            outermost.wrapping = outermost.folder->wrapping();
            outermost.folder.reset();
        }
    }

    std::vector<Link> m_links;
    std::size_t m_firstOpen = 0; // position of the outermost folder that is open
    std::optional<Error> m_loss;
};

} // namespace corvane

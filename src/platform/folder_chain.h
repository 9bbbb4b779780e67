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

/// The folders from the top of a walk down to its current position, each directly inside the previous one. Only the
/// innermost few stay open, so a walk may go thousands of levels deep; a closed one is reopened from its child on the
/// way back up. Not thread-safe.
class FolderChain {
public:
    /// Some systems allow a program only 256 open files, and a walk runs on every core. Few folders are deeper than
    /// this below the top of a walk, so few have to be reopened.
    static constexpr std::size_t openLimit = 16;

    [[nodiscard]] bool empty() const { return m_links.empty(); }
    [[nodiscard]] std::size_t size() const { return m_links.size(); }

    /// Enters a folder directly inside the innermost one, or starts the chain.
    void push(std::shared_ptr<OpenFolder> folder)
    {
        m_links.push_back({std::move(folder), {}, {}});
        closeAllBut(openLimit);
    }

    /// The index, from the top, of the outermost open folder.
    [[nodiscard]] std::size_t firstOpen() const { return m_firstOpen; }

    /// The open folder at that index, for another walk that continues from there. Stays open while either uses it. Null
    /// if out of reach.
    [[nodiscard]] std::shared_ptr<OpenFolder> shared(std::size_t position) const
    {
        std::shared_ptr<OpenFolder> folder = m_links[position].folder;
        if (folder)
            (void)folder->identity(); // from now on several threads may call it
        return folder;
    }

    /// Opens a folder directly inside the innermost one, which must not be null. If descriptors have run out, here or
    /// in another walk, the chain closes all but its last.
    [[nodiscard]] Expected<std::unique_ptr<OpenFolder>> openChild(const std::string &name)
    {
        if (waitingForDescriptors.load(std::memory_order_relaxed) > 0)
            closeAllBut(1);
        return openPatiently([&] { return innermost()->openChild(name); }, [this] { closeAllBut(1); });
    }

    /// The innermost folder. Null if it had been closed and cannot be reopened because it has been moved; all folders
    /// above are then out of reach as well.
    [[nodiscard]] OpenFolder *innermost() const { return m_links.back().folder.get(); }

    /// Why the innermost folder is null: the error of reopening it. Empty if another folder was found in its place, or
    /// if nothing was lost.
    [[nodiscard]] const std::optional<Error> &loss() const { return m_loss; }

    /// Goes up by one folder.
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
        FolderIdentity identity;            // set when closed
        OpenFolder::Wrapping wrapping;      // set when closed
    };

    /// Keeps only the innermost `count` open.
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
    std::size_t m_firstOpen = 0; // index of the outermost open folder
    std::optional<Error> m_loss;
};

} // namespace corvane

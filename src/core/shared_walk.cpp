#include "core/shared_walk.h"

#include <utility>

#include "core/walk_pace.h"
#include "platform/folder_chain.h"
#include "platform/walk_conditions.h"

namespace corvane {

/// One thread's traversal of a piece. Keeps an explicit stack instead of recursing: a tree may be thousands of levels
/// deep.
class SharedWalk::Walker {
public:
    explicit Walker(SharedWalk &shared) : m_shared(shared) {}

    void walk(Piece piece)
    {
        m_path = std::move(piece.path);
        push(piece.listed, std::move(piece.folder), piece.begin, piece.end);
        while (!m_levels.empty()) {
            if (!goDown())
                goUp();
        }
    }

private:
    // Handing out a piece and fetching it costs about as much as walking one folder, so a thread walks several folders
    // before it hands out again. A walk of fewer folders does not need a second thread.
    static constexpr std::size_t foldersBetween = 8;

    struct Level {
        ListedFolder *listed = nullptr;
        std::size_t next = 0; // index of the next subfolder
        std::size_t end = 0;  // end of this walker's range of subfolders
        std::size_t pathLength = 0;
    };

    void push(ListedFolder *listed, std::shared_ptr<OpenFolder> folder, std::size_t begin, std::size_t end)
    {
        m_folders.push(std::move(folder));
        m_levels.push_back({listed, begin, end, m_path.size()});
    }

    /// Advances to the innermost level's next subfolder; false if there is none left, or none can be reached.
    bool goDown()
    {
        Level &level = m_levels.back();
        if (!m_folders.innermost()) {
            if (m_folders.loss())
                m_shared.m_visitor.lost(*m_folders.loss());
            return false;
        }
        if (level.next == level.end)
            return false;
        const std::size_t place = level.next++;
        if (m_shared.m_visitor.shouldStop())
            return true;
        const std::string &name = level.listed->subfolderName(place);
        Expected<std::unique_ptr<OpenFolder>> opened = m_folders.openChild(name);
        if (!opened) {
            m_shared.m_visitor.notOpened(opened.error());
            return true;
        }
        if (!m_path.ends_with('/'))
            m_path += '/';
        m_path += name;
        if (std::unique_ptr<ListedFolder> child = m_shared.m_visitor.enter(*level.listed, place, **opened, m_path)) {
            child->m_parent = level.listed;
            child->m_place = place;
            const std::size_t count = child->subfolderCount();
            push(child.release(), std::move(*opened), 0, count); // `finish` deletes it
        } else {
            m_path.resize(level.pathLength);
        }
        tickWalkPace();
        if (++m_walked >= foldersBetween && m_shared.wantsPieces())
            handOut();
        return true;
    }

    void goUp()
    {
        ListedFolder *const done = m_levels.back().listed;
        m_levels.pop_back();
        m_folders.pop();
        if (m_levels.empty()) {
            m_shared.leave(done);
            return;
        }
        m_path.resize(m_levels.back().pathLength);
        if (done->m_open.load(std::memory_order_acquire) == 1) { // no other thread was here, or all have left
            m_shared.finish(done);
            return;
        }
        // Keep the containing folder from being finished before this one, whichever thread is the last here.
        m_levels.back().listed->m_open.fetch_add(1, std::memory_order_relaxed);
        m_shared.leave(done);
    }

    /// Hands out half of the remaining subfolders of the outermost level that has any and can be shared.
    void handOut()
    {
        for (std::size_t i = m_folders.firstOpen(); i < m_levels.size(); ++i) {
            Level &level = m_levels[i];
            const std::size_t left = level.end - level.next;
            const bool isInnermost = i + 1 == m_levels.size();
            const std::size_t given = isInnermost ? left / 2 : (left + 1) / 2;
            if (given == 0)
                continue;
            std::shared_ptr<OpenFolder> folder = m_folders.shared(i);
            if (!folder)
                continue;
            level.end -= given;
            // This thread is counted, so the count cannot have reached 0.
            level.listed->m_open.fetch_add(1, std::memory_order_relaxed);
            m_walked = 0;
            m_shared.add(
                {level.listed, std::move(folder), level.end, level.end + given, m_path.substr(0, level.pathLength)});
            return;
        }
    }

    SharedWalk &m_shared;
    std::string m_path;
    FolderChain m_folders;
    std::vector<Level> m_levels; // same indices as m_folders
    std::size_t m_walked = 0;    // folders since the last hand-out
};

void SharedWalk::walk(std::unique_ptr<ListedFolder> top, std::shared_ptr<OpenFolder> folder, std::string path)
{
    const std::size_t count = top->subfolderCount();
    m_pieces.push_back({top.release(), std::move(folder), 0, count, std::move(path)}); // `finish` deletes it
    m_pieceCount = 1;
    WorkPool::instance().perform(*this, 0);
}

bool SharedWalk::takeOne() noexcept
{
    std::unique_lock lock(m_lock);
    if (m_pieces.empty())
        return false;
    Piece piece = std::move(m_pieces.front()); // the oldest piece is nearest to the top
    m_pieces.erase(m_pieces.begin());
    m_pieceCount.store(m_pieces.size(), std::memory_order_relaxed);
    lock.unlock();
    const WalkConditions conditions;
    Walker(*this).walk(std::move(piece));
    return true;
}

bool SharedWalk::wantsPieces() const
{
    // Pieces already waiting are for the threads that have just been woken.
    return m_pieceCount.load(std::memory_order_relaxed) == 0 && WorkPool::instance().hasRoom();
}

void SharedWalk::add(Piece piece)
{
    {
        const std::scoped_lock lock(m_lock);
        m_pieces.push_back(std::move(piece));
        m_pieceCount.store(m_pieces.size(), std::memory_order_relaxed);
    }
    WorkPool::instance().addedPiece(*this);
}

void SharedWalk::finish(ListedFolder *listed)
{
    const std::unique_ptr<ListedFolder> done(listed);
    m_visitor.finish(*done);
}

/// The calling thread is done with the folder. The last thread to leave finishes it, and then leaves the containing
/// folder too.
void SharedWalk::leave(ListedFolder *listed)
{
    while (listed && listed->m_open.fetch_sub(1, std::memory_order_acq_rel) == 1) {
        ListedFolder *const around = listed->m_parent;
        finish(listed);
        listed = around;
    }
}

} // namespace corvane

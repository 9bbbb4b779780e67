#pragma once

#include <atomic>
#include <cstddef>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "core/work_pool.h"
#include "platform/error.h"
#include "platform/file_system.h"

namespace corvane {

/// A folder with subfolders, from its listing until all of them have been finished. What a walk keeps of it is in a
/// class of that walk's own.
class ListedFolder {
public:
    ListedFolder() = default;
    ListedFolder(const ListedFolder &) = delete;
    ListedFolder &operator=(const ListedFolder &) = delete;
    virtual ~ListedFolder() = default;

    /// At least 1.
    [[nodiscard]] virtual std::size_t subfolderCount() const = 0;
    /// Asked for once, just before the subfolder is opened; by several threads at once for different subfolders.
    [[nodiscard]] virtual const std::string &subfolderName(std::size_t place) const = 0;

    /// The folder around it and its place there; null and 0 for the top of a walk.
    [[nodiscard]] ListedFolder *parent() const { return m_parent; }
    [[nodiscard]] std::size_t place() const { return m_place; }

private:
    friend class SharedWalk;

    ListedFolder *m_parent = nullptr;
    std::size_t m_place = 0;
    // How many threads are inside, and how many subfolders that were left while others were still inside are not
    // finished.
    std::atomic<std::size_t> m_open = 1;
};

/// Walks everything below one folder, each thread depth first. A thread of the pool that has nothing to do is handed
/// the last of the subfolders that another has before it, from as far out as it can. Which thread comes through which
/// folder is left to chance, and nothing else.
class SharedWalk : private WorkPool::Job {
public:
    /// What is made of the folders. Called by all threads of the walk at once, for different folders.
    class Visitor {
    public:
        Visitor() = default;
        Visitor(const Visitor &) = delete;
        Visitor &operator=(const Visitor &) = delete;
        virtual ~Visitor() = default;

        /// Lists a subfolder that has been opened; `path` is its own. Null where it has no subfolders to be walked:
        /// then it is finished with.
        [[nodiscard]] virtual std::unique_ptr<ListedFolder> enter(ListedFolder &parent, std::size_t place,
                                                                  OpenFolder &folder, const std::string &path) = 0;
        /// A subfolder could not be opened.
        virtual void notOpened(const Error &error) = 0;
        /// All subfolders of the folder are finished, as far as they were reached. Called once for each, by the thread
        /// that is the last to leave it; nobody touches it after that.
        virtual void finish(ListedFolder &folder) = 0;
        /// The way back up is lost: folders stay that were not reached.
        virtual void lost(const Error &error) = 0;
        /// Whether no further folder is to be opened.
        [[nodiscard]] virtual bool shouldStop() const = 0;
    };

    explicit SharedWalk(Visitor &visitor) : m_visitor(visitor) {}

    /// Returns when all has been finished, `top` included. `path` is the top's, absolute or empty.
    void walk(std::unique_ptr<ListedFolder> top, std::shared_ptr<OpenFolder> folder, std::string path);

private:
    class Walker;

    /// Some of a folder's subfolders, for one thread to walk.
    struct Piece {
        ListedFolder *listed = nullptr;
        std::shared_ptr<OpenFolder> folder;
        std::size_t begin = 0;
        std::size_t end = 0;
        std::string path;
    };

    bool takeOne() noexcept override;
    [[nodiscard]] bool isHandedOut() const override { return m_pieceCount.load(std::memory_order_relaxed) == 0; }

    /// Whether a further piece would find a thread.
    [[nodiscard]] bool wantsPieces() const;
    void add(Piece piece);
    void finish(ListedFolder *listed);
    void leave(ListedFolder *listed);

    Visitor &m_visitor;
    std::mutex m_lock;
    std::vector<Piece> m_pieces; // guarded by m_lock
    std::atomic<std::size_t> m_pieceCount = 0;
};

} // namespace corvane

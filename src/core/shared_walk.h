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

/// A folder with subfolders, from its listing until all of them are finished. Each kind of walk derives a class for its
/// own data.
class ListedFolder {
public:
    ListedFolder() = default;
    ListedFolder(const ListedFolder &) = delete;
    ListedFolder &operator=(const ListedFolder &) = delete;
    virtual ~ListedFolder() = default;

    /// At least 1.
    [[nodiscard]] virtual std::size_t subfolderCount() const = 0;
    /// Called once, just before the subfolder is opened; by several threads at once for different subfolders.
    [[nodiscard]] virtual const std::string &subfolderName(std::size_t place) const = 0;

    /// The containing folder and this folder's index in it; null and 0 for the top of a walk.
    [[nodiscard]] ListedFolder *parent() const { return m_parent; }
    [[nodiscard]] std::size_t place() const { return m_place; }

private:
    friend class SharedWalk;

    ListedFolder *m_parent = nullptr;
    std::size_t m_place = 0;
    // The number of threads inside, plus the number of unfinished subfolders that a thread left while others were still
    // inside them.
    std::atomic<std::size_t> m_open = 1;
};

/// Walks everything below one folder, each thread depth first. An idle pool thread takes over the last of the
/// subfolders that another thread still has to walk, from as close to the top as possible. Only the assignment of
/// folders to threads varies between runs.
class SharedWalk : private WorkPool::Job {
public:
    /// Receives the folders. Called by all threads of the walk at once, for different folders.
    class Visitor {
    public:
        Visitor() = default;
        Visitor(const Visitor &) = delete;
        Visitor &operator=(const Visitor &) = delete;
        virtual ~Visitor() = default;

        /// Lists an opened subfolder; `path` is its own. Returns null if it has no subfolders to walk; the folder is
        /// then finished.
        [[nodiscard]] virtual std::unique_ptr<ListedFolder> enter(ListedFolder &parent, std::size_t place,
                                                                  OpenFolder &folder, const std::string &path) = 0;
        /// Called when a subfolder could not be opened.
        virtual void notOpened(const Error &error) = 0;
        /// Called once for each folder when all its subfolders are finished or skipped, by the last thread to leave it;
        /// no thread uses the folder afterwards.
        virtual void finish(ListedFolder &folder) = 0;
        /// Called if a folder on the way up cannot be reopened: what is left of it and of those above is not walked.
        virtual void lost(const Error &error) = 0;
        /// Whether to stop opening folders.
        [[nodiscard]] virtual bool shouldStop() const = 0;
    };

    explicit SharedWalk(Visitor &visitor) : m_visitor(visitor) {}

    /// Returns when everything is finished, including `top`. `path` is the top's, absolute or empty.
    void walk(std::unique_ptr<ListedFolder> top, std::shared_ptr<OpenFolder> folder, std::string path);

private:
    class Walker;

    /// A range of a folder's subfolders for one thread to walk.
    struct Piece {
        ListedFolder *listed = nullptr;
        std::shared_ptr<OpenFolder> folder;
        std::size_t begin = 0;
        std::size_t end = 0;
        std::string path;
    };

    bool takeOne() noexcept override;
    [[nodiscard]] bool isHandedOut() const override { return m_pieceCount.load(std::memory_order_relaxed) == 0; }

    /// Whether a thread is available for another piece.
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

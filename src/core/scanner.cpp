#include "core/scanner.h"

#include <algorithm>
#include <atomic>
#include <iterator>
#include <span>
#include <utility>
#include <vector>

#include "core/checked_add.h"
#include "core/concurrent_perform.h"
#include "core/foreign_sum.h"
#include "core/scan_bounds.h"
#include "core/volume_info.h"
#include "platform/folder_chain.h"
#include "platform/path.h"
#include "platform/patient_open.h"
#include "platform/walk_conditions.h"

namespace corvane {

namespace {

// The levels whose subfolders are walked at once: 0 and 1.
constexpr int parallelLevels = 2;

struct Subfolder {
    std::string name; // moves into the node when its turn comes
    FileNode::Kind kind;
};

/// One folder between its listing and the return of its subfolders. Used by one thread, but for `node` and
/// `path`, which the threads that walk the subfolders read.
struct Visit {
    std::shared_ptr<FileNode> node;
    FolderPath path; // shared by the child nodes; null until the first child exists
    std::vector<Subfolder> subfolders;
    std::vector<std::shared_ptr<FileNode>> folders; // those that stay
    std::vector<std::shared_ptr<FileNode>> files;

    void absorb(std::shared_ptr<FileNode> folder)
    {
        node->size = checkedAdd(node->size, folder->size);
        node->fileCount = checkedAdd(node->fileCount, folder->fileCount);
        if (folder->size > 0)
            folders.push_back(std::move(folder));
    }

    void finish()
    {
        std::vector<std::shared_ptr<FileNode>> &children = node->children;
        children = std::move(folders);
        children.insert(children.end(), std::make_move_iterator(files.begin()), std::make_move_iterator(files.end()));
        std::ranges::stable_sort(children, std::ranges::greater{}, &FileNode::size);
        children.shrink_to_fit();
    }
};

/// What all threads of one walk share.
struct Walk {
    ScanProgress &progress;
    const ScanBounds bounds;
    // Of all the files' figures, which come from outside. More than `foreignSumLimit` cannot be added up.
    std::atomic<std::int64_t> total = 0;

    /// Makes room for one folder's bytes; false where they cannot be added up with the others.
    bool admit(std::int64_t bytes)
    {
        std::int64_t before = total.load(std::memory_order_relaxed);
        std::int64_t after = 0;
        do {
            after = before;
            if (!addForeign(after, bytes))
                return false;
        } while (!total.compare_exchange_weak(before, after, std::memory_order_relaxed));
        return true;
    }

    /// Takes note of a folder that could not be opened; that it has just vanished is nothing special.
    void noteUnopened(const Error &error)
    {
        if (hasRunOutOfFileNumbers(error))
            progress.fail(error);
        else if (!error.isMissing())
            progress.recordDenied();
    }
};

/// Takes one folder's entries as they are listed. Nothing of it reaches the node before the listing has come
/// to a good end.
class Reader {
public:
    Reader(Walk &walk, const std::string &path, Visit &visit)
        : m_walk(walk), m_path(path), m_skipped(walk.bounds.skippedIn(path)), m_visit(visit)
    {
    }

    Listing take(const DirectoryEntry &entry)
    {
        switch (entry.type) {
        case EntryType::symbolicLink:
            break;
        case EntryType::directory:
            takeFolder(entry);
            break;
        case EntryType::file:
            takeFile(entry);
            break;
        }
        const bool isTooMuch = m_visit.subfolders.size() + m_visit.files.size() > Scanner::keptEntriesLimit;
        const bool isStopped = ++m_entries % stopInterval == 0 && m_walk.progress.shouldStop();
        return isTooMuch || isStopped ? Listing::stop : Listing::goOn;
    }

    /// False, with nothing counted, where the figures cannot be added up with those of the other folders.
    bool commit()
    {
        if (!m_walk.admit(m_bytes))
            return false;
        FileNode &node = *m_visit.node;
        node.size = m_bytes;
        node.fileCount = m_files;
        node.smallFilesSize = m_smallSize;
        node.smallFilesCount = m_smallCount;
        m_walk.progress.record(m_files, m_bytes, m_path);
        return true;
    }

private:
    // A folder that has been entered is listed to its end, unless it is so large that the end may never come.
    static constexpr std::uint64_t stopInterval = 1024;

    void takeFolder(const DirectoryEntry &entry)
    {
        if (std::ranges::find(m_skipped, entry.name) != m_skipped.end())
            return;
        nodePath();
        m_visit.subfolders.push_back(
            {std::string(entry.name), entry.isPackage ? FileNode::Kind::package : FileNode::Kind::directory});
    }

    void takeFile(const DirectoryEntry &entry)
    {
        ++m_files;
        // A size that no file can have counts as one that cannot be read.
        const std::int64_t size = addForeign(m_bytes, entry.allocated) ? entry.allocated : 0;
        if (size < Scanner::smallFileLimit) {
            m_smallSize += size; // a part of m_bytes, so it cannot overflow first
            ++m_smallCount;
            return;
        }
        auto node = std::make_shared<FileNode>(nodePath(), std::string(entry.name), FileNode::Kind::file, m_visit.node);
        node->size = size;
        node->modified = entry.modified;
        m_visit.files.push_back(std::move(node));
    }

    const FolderPath &nodePath()
    {
        if (!m_visit.path)
            m_visit.path = m_visit.node->pathForChildren();
        return m_visit.path;
    }

    Walk &m_walk;
    const std::string &m_path;
    const std::span<const std::string> m_skipped;
    Visit &m_visit;
    std::uint64_t m_entries = 0;
    std::int64_t m_files = 0;
    std::int64_t m_bytes = 0;
    std::int64_t m_smallSize = 0;
    std::int64_t m_smallCount = 0;
};

/// Lists a folder into its visit. Where that fails, the node is `unreadable` and stays empty, and the visit is over;
/// so is it where the walk is to end.
bool read(Walk &walk, OpenFolder &folder, const std::string &path, Visit &visit)
{
    Reader reader(walk, path, visit);
    const Expected<void> listed = folder.list([&reader](const DirectoryEntry &entry) { return reader.take(entry); });
    if (listed && reader.commit())
        return true;
    if (!listed && hasRunOutOfFileNumbers(listed.error()))
        walk.progress.fail(listed.error());
    visit.node->unreadable = !walk.progress.shouldStop();
    return false;
}

/// Walks everything below one folder on the calling thread. A tree may be thousands of levels deep, so the
/// way down is kept here and not on the thread's stack.
class SubtreeWalk {
public:
    SubtreeWalk(std::string path, Walk &walk) : m_walk(walk), m_path(std::move(path)) {}

    void walk(std::unique_ptr<OpenFolder> top, std::shared_ptr<FileNode> node)
    {
        if (enter(std::move(top), std::move(node)) == Entered::done)
            return;
        while (!m_levels.empty()) {
            if (!goDown())
                goUp();
        }
    }

private:
    enum class Entered { done, pending };

    struct Level {
        Visit visit;
        std::size_t next = 0; // of the subfolders
        std::size_t pathLength = 0;
    };

    /// Lists a folder. One with subfolders becomes the innermost level; any other is done with.
    Entered enter(std::unique_ptr<OpenFolder> folder, std::shared_ptr<FileNode> node)
    {
        Visit visit;
        visit.node = std::move(node);
        if (!read(m_walk, *folder, m_path, visit))
            return Entered::done;
        if (visit.subfolders.empty()) {
            visit.finish();
            return Entered::done;
        }
        m_folders.push(std::move(folder));
        m_levels.push_back({.visit = std::move(visit), .next = 0, .pathLength = m_path.size()});
        return Entered::pending;
    }

    /// Goes on to the innermost level's next subfolder; false when there is none left, or none can be reached.
    bool goDown()
    {
        Level &level = m_levels.back();
        if (!m_folders.innermost()) {
            if (m_folders.loss() && hasRunOutOfFileNumbers(*m_folders.loss()))
                m_walk.progress.fail(*m_folders.loss());
            return false;
        }
        if (level.next == level.visit.subfolders.size())
            return false;
        Subfolder &subfolder = level.visit.subfolders[level.next++];
        if (m_walk.progress.shouldStop())
            return true;
        Expected<std::unique_ptr<OpenFolder>> opened = m_folders.openChild(subfolder.name);
        if (!opened) {
            m_walk.noteUnopened(opened.error());
            return true; // unreadable, so of size 0: such a folder has no place in the tree
        }
        auto node =
            std::make_shared<FileNode>(level.visit.path, std::move(subfolder.name), subfolder.kind, level.visit.node);
        node->modified = (*opened)->modified();
        m_path.append("/").append(node->name);
        if (enter(std::move(*opened), node) == Entered::done) {
            m_path.resize(level.pathLength);
            if (node->unreadable)
                m_walk.progress.recordDenied();
            level.visit.absorb(std::move(node));
        }
        return true;
    }

    void goUp()
    {
        Visit done = std::move(m_levels.back().visit);
        m_levels.pop_back();
        m_folders.pop();
        done.finish();
        if (m_levels.empty())
            return;
        m_path.resize(m_levels.back().pathLength);
        m_levels.back().visit.absorb(std::move(done.node));
    }

    Walk &m_walk;
    std::string m_path;
    FolderChain m_folders;
    std::vector<Level> m_levels; // the same folders
};

/// The walk of the top of the tree, where subfolders are walked at once.
class TopWalk {
public:
    explicit TopWalk(Walk &walk) : m_walk(walk) {}

    void walk(std::unique_ptr<OpenFolder> folder, std::shared_ptr<FileNode> node, std::string path, int depth) const
    {
        if (depth >= parallelLevels) {
            SubtreeWalk(std::move(path), m_walk).walk(std::move(folder), std::move(node));
            return;
        }
        Visit visit;
        visit.node = std::move(node);
        if (!read(m_walk, *folder, path, visit))
            return;
        std::vector<std::shared_ptr<FileNode>> walked(visit.subfolders.size());
        concurrentPerform(walked.size(), [&](std::size_t i) {
            walked[i] = walkSubfolder(*folder, visit, visit.subfolders[i], path, depth + 1);
        });
        for (std::shared_ptr<FileNode> &subfolder : walked) {
            if (subfolder)
                visit.absorb(std::move(subfolder));
        }
        visit.finish();
    }

private:
    /// Null where the folder is not entered or cannot be opened: being of size 0, it has no place in the tree.
    std::shared_ptr<FileNode> walkSubfolder(OpenFolder &folder, const Visit &visit, Subfolder &subfolder,
                                            const std::string &path, int depth) const
    {
        if (m_walk.progress.shouldStop())
            return nullptr;
        const WalkConditions conditions;
        Expected<std::unique_ptr<OpenFolder>> opened = openPatiently([&] { return folder.openChild(subfolder.name); });
        if (!opened) {
            m_walk.noteUnopened(opened.error());
            return nullptr;
        }
        auto node = std::make_shared<FileNode>(visit.path, std::move(subfolder.name), subfolder.kind, visit.node);
        node->modified = (*opened)->modified();
        walk(std::move(*opened), node, joined(path, node->name), depth);
        if (node->unreadable)
            m_walk.progress.recordDenied();
        return node;
    }

    Walk &m_walk;
};

/// The kind of the folder that the path leads to. A link was chosen for the sake of what it points to.
FileNode::Kind rootKind(const std::string &path, FileSystem &files)
{
    Expected<ItemFacts> facts = files.facts(path);
    if (facts && facts->type == EntryType::symbolicLink)
        facts = files.realPath(path).and_then([&](const std::string &target) { return files.facts(target); });
    return facts && facts->isPackage ? FileNode::Kind::package : FileNode::Kind::directory;
}

} // namespace

std::shared_ptr<FileNode> Scanner::scan(const std::string &path, ScanProgress &progress, FileSystem &files)
{
    auto root = std::make_shared<FileNode>(path, rootKind(path, files), path == "/" ? diskName(files) : std::string());
    if (progress.isCancelled())
        return root;
    const WalkConditions conditions;
    Walk walk{.progress = progress, .bounds = ScanBounds::of(path, files)};
    Expected<std::unique_ptr<OpenFolder>> folder = openPatiently([&] { return files.openFolder(path); });
    if (folder) {
        TopWalk(walk).walk(std::move(*folder), root, path, 0);
    } else {
        if (hasRunOutOfFileNumbers(folder.error()))
            progress.fail(folder.error());
        root->unreadable = true;
    }
    return root;
}

} // namespace corvane

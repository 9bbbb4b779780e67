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
#include "core/shared_walk.h"
#include "core/stoppable_files.h"
#include "core/volume_info.h"
#include "core/walk_pace.h"
#include "platform/path.h"
#include "platform/patient_open.h"
#include "platform/walk_conditions.h"

namespace corvane {

namespace {

// Subfolders of levels 0 and 1 are walked in parallel.
constexpr int parallelLevels = 2;

struct Subfolder {
    std::string name; // moves into the node later
    FileNode::Kind kind;
    std::shared_ptr<FileNode> node; // set when finished, if it stays, by the thread that finishes it
};

/// One folder from its listing until its subfolders are finished. Its node is written once, by the last thread in the
/// folder.
struct Visit : ListedFolder {
    explicit Visit(std::shared_ptr<FileNode> folder) : node(std::move(folder)) {}

    std::shared_ptr<FileNode> node;
    FolderPath path; // shared by the child nodes; null until the first child exists
    std::vector<Subfolder> subfolders;
    std::vector<std::shared_ptr<FileNode>> files;
    std::int64_t ownFiles = 0;
    std::int64_t ownBytes = 0;
    std::int64_t smallFiles = 0;
    std::int64_t smallBytes = 0;
    std::atomic<std::int64_t> filesOfNoSize = 0; // in subfolders that do not stay

    [[nodiscard]] std::size_t subfolderCount() const override { return subfolders.size(); }
    [[nodiscard]] const std::string &subfolderName(std::size_t place) const override { return subfolders[place].name; }

    [[nodiscard]] std::shared_ptr<FileNode> makeNode(std::size_t place, const OpenFolder &folder)
    {
        Subfolder &subfolder = subfolders[place];
        auto child = std::make_shared<FileNode>(path, std::move(subfolder.name), subfolder.kind, node);
        child->modified = folder.modified();
        return child;
    }

    /// Takes a finished subfolder; called concurrently for different places. One of size 0 gets no place in the tree.
    void keep(std::size_t place, std::shared_ptr<FileNode> finished)
    {
        if (finished->size > 0)
            subfolders[place].node = std::move(finished);
        else
            filesOfNoSize.fetch_add(finished->fileCount, std::memory_order_relaxed);
    }

    void finish()
    {
        node->size = ownBytes;
        node->fileCount = checkedAdd(ownFiles, filesOfNoSize.load(std::memory_order_relaxed));
        node->smallFilesSize = smallBytes;
        node->smallFilesCount = smallFiles;
        std::vector<std::shared_ptr<FileNode>> &children = node->children;
        for (Subfolder &subfolder : subfolders) {
            if (!subfolder.node)
                continue;
            node->size = checkedAdd(node->size, subfolder.node->size);
            node->fileCount = checkedAdd(node->fileCount, subfolder.node->fileCount);
            children.push_back(std::move(subfolder.node));
        }
        children.insert(children.end(), std::make_move_iterator(files.begin()), std::make_move_iterator(files.end()));
        std::ranges::stable_sort(children, std::ranges::greater{}, &FileNode::size);
        children.shrink_to_fit();
    }
};

/// Shared by all threads of one walk.
struct Walk {
    ScanProgress &progress;
    const ScanBounds bounds;
    const ScanFilter &filter;
    const std::string &root;
    // Sum of all file sizes, which come from outside; limited to `foreignSumLimit`.
    std::atomic<std::int64_t> total = 0;

    /// Counts a folder that could not be opened, unless it has just vanished or the wait for it was cancelled.
    void noteUnopened(const Error &error)
    {
        if (isOutOfDescriptors(error))
            progress.fail(error);
        else if (!error.isMissing() && error.code != std::errc::operation_canceled)
            progress.recordDenied();
    }
};

/// Collects one folder's entries while they are listed. Does not touch the node.
class Reader {
public:
    Reader(Walk &walk, const std::string &path, Visit &visit)
        : m_walk(walk), m_path(path), m_skipped(walk.bounds.skippedIn(path)), m_visit(visit)
    {
    }

    Listing take(const DirectoryEntry &entry)
    {
        if (!m_walk.filter.excluded.empty() && isLeftOut(entry))
            return m_walk.progress.shouldStop() ? Listing::stop : Listing::goOn;
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

    /// Returns false, with nothing counted, if the figures cannot be added to those of the other folders.
    bool commit()
    {
        if (!addForeign(m_walk.total, m_visit.ownBytes))
            return false;
        m_walk.progress.record(m_visit.ownFiles, m_visit.ownBytes, m_path);
        return true;
    }

private:
    // An entered folder is listed to its end, but a huge listing may never end, so check every so many entries.
    static constexpr std::uint64_t stopInterval = 1024;

    bool isLeftOut(const DirectoryEntry &entry)
    {
        const auto kind = entry.type == EntryType::directory ? ScanFilter::Kind::folder : ScanFilter::Kind::file;
        const bool isOut = m_walk.filter.leavesOut(entry.name, kind, m_path, m_walk.root);
        if (isOut)
            m_walk.progress.recordLeftOut();
        return isOut;
    }

    void takeFolder(const DirectoryEntry &entry)
    {
        if (std::ranges::find(m_skipped, entry.name) != m_skipped.end())
            return;
        nodePath();
        m_visit.subfolders.push_back(
            {std::string(entry.name), entry.isPackage ? FileNode::Kind::package : FileNode::Kind::directory, {}});
    }

    void takeFile(const DirectoryEntry &entry)
    {
        ++m_visit.ownFiles;
        const bool isApparent = m_walk.filter.sizes == ScanFilter::Sizes::apparent;
        const std::int64_t told = isApparent ? entry.length : entry.allocated;
        // An impossible file size counts as unreadable.
        const std::int64_t size = addForeign(m_visit.ownBytes, told) ? told : 0;
        if (size < Scanner::smallFileLimit) {
            m_visit.smallBytes += size; // a part of ownBytes, so it cannot overflow first
            ++m_visit.smallFiles;
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
};

/// Lists a folder into its visit. Returns false, and the visit is over, if the walk should end or the listing fails;
/// then the node is `unreadable` and stays empty.
bool read(Walk &walk, OpenFolder &folder, const std::string &path, Visit &visit)
{
    Reader reader(walk, path, visit);
    const Expected<void> listed = folder.list([&reader](const DirectoryEntry &entry) { return reader.take(entry); });
    if (listed && reader.commit())
        return true;
    if (!listed && isOutOfDescriptors(listed.error()))
        walk.progress.fail(listed.error());
    visit.node->unreadable = !walk.progress.shouldStop();
    return false;
}

/// The visitor for everything below the top of the tree.
class Below : public SharedWalk::Visitor {
public:
    explicit Below(Walk &walk) : m_walk(walk) {}

    [[nodiscard]] std::unique_ptr<ListedFolder> enter(ListedFolder &parent, std::size_t place, OpenFolder &folder,
                                                      const std::string &path) override
    {
        auto &around = static_cast<Visit &>(parent);
        auto visit = std::make_unique<Visit>(around.makeNode(place, folder));
        if (!read(m_walk, folder, path, *visit)) {
            if (visit->node->unreadable)
                m_walk.progress.recordDenied();
            return nullptr;
        }
        if (!visit->subfolders.empty())
            return visit;
        visit->finish();
        around.keep(place, std::move(visit->node));
        return nullptr;
    }

    void notOpened(const Error &error) override { m_walk.noteUnopened(error); }

    void finish(ListedFolder &folder) override
    {
        auto &visit = static_cast<Visit &>(folder);
        visit.finish();
        if (folder.parent())
            static_cast<Visit &>(*folder.parent()).keep(folder.place(), std::move(visit.node));
    }

    void lost(const Error &error) override
    {
        if (isOutOfDescriptors(error))
            m_walk.progress.fail(error);
    }

    [[nodiscard]] bool shouldStop() const override { return m_walk.progress.shouldStop(); }

private:
    Walk &m_walk;
};

/// Walks the top of the tree, where subfolders are walked in parallel.
class TopWalk {
public:
    explicit TopWalk(Walk &walk) : m_walk(walk) {}

    void walk(std::unique_ptr<OpenFolder> folder, std::shared_ptr<FileNode> node, std::string path, int depth) const
    {
        auto visit = std::make_unique<Visit>(std::move(node));
        if (!read(m_walk, *folder, path, *visit))
            return;
        tickWalkPace();
        if (visit->subfolders.empty()) {
            visit->finish();
        } else if (depth >= parallelLevels) {
            Below visitor(m_walk);
            SharedWalk(visitor).walk(std::move(visit), std::move(folder), std::move(path));
        } else {
            concurrentPerform(visit->subfolders.size(),
                              [&](std::size_t i) { walkSubfolder(*folder, *visit, i, path, depth + 1); });
            visit->finish();
        }
    }

private:
    void walkSubfolder(OpenFolder &folder, Visit &visit, std::size_t place, const std::string &path, int depth) const
    {
        if (m_walk.progress.shouldStop())
            return;
        const WalkConditions conditions;
        const std::string &name = visit.subfolders[place].name;
        Expected<std::unique_ptr<OpenFolder>> opened = openPatiently([&] { return folder.openChild(name); });
        if (!opened) {
            m_walk.noteUnopened(opened.error());
            return;
        }
        std::shared_ptr<FileNode> node = visit.makeNode(place, **opened);
        walk(std::move(*opened), node, joined(path, node->name), depth);
        if (node->unreadable)
            m_walk.progress.recordDenied();
        visit.keep(place, std::move(node));
    }

    Walk &m_walk;
};

/// The kind of the folder that the path leads to. If the user chose a link, its target is scanned.
FileNode::Kind rootKind(const std::string &path, FileSystem &files)
{
    Expected<ItemFacts> facts = files.facts(path);
    if (facts && facts->type == EntryType::symbolicLink)
        facts = files.realPath(path).and_then([&](const std::string &target) { return files.facts(target); });
    return facts && facts->isPackage ? FileNode::Kind::package : FileNode::Kind::directory;
}

} // namespace

Waiting Scanner::waiting(ScanProgress &progress)
{
    return {.isOver = [&progress] { return progress.shouldStop(); },
            .isSlow = [&progress](const std::string &path) { progress.recordWait(path); }};
}

std::shared_ptr<FileNode> Scanner::scan(const std::string &path, ScanProgress &progress, FileSystem &allFiles,
                                        const ScanFilter &filter)
{
    StoppableFiles files(allFiles, path, waiting(progress));
    auto root = std::make_shared<FileNode>(path, rootKind(path, files), path == "/" ? diskName(files) : std::string());
    if (progress.isCancelled())
        return root;
    const WalkConditions conditions;
    const PacedWalk pace(path);
    Walk walk{
        .progress = progress, .bounds = ScanBounds::of(path, files, filter.mounts), .filter = filter, .root = path};
    Expected<std::unique_ptr<OpenFolder>> folder = openPatiently([&] { return files.openFolder(path); });
    if (folder) {
        TopWalk(walk).walk(std::move(*folder), root, path, 0);
    } else {
        if (isOutOfDescriptors(folder.error()))
            progress.fail(folder.error());
        root->unreadable = true;
    }
    return root;
}

} // namespace corvane

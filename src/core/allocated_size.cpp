#include "core/allocated_size.h"

#include <utility>
#include <vector>

#include "core/foreign_sum.h"
#include "platform/folder_chain.h"
#include "platform/walk_conditions.h"

namespace corvane {

namespace {

// Of a folder that holds more subfolders, and may have no end, only the files are counted.
constexpr std::size_t subfoldersLimit = 2'000'000;

class SizeWalk {
public:
    explicit SizeWalk(const StopFlag &stop) : m_stop(stop) {}

    std::int64_t walk(std::unique_ptr<OpenFolder> top)
    {
        enter(std::move(top));
        while (!m_pending.empty() && !m_stop) {
            if (m_folders.innermost() == nullptr || m_pending.back().empty()) {
                m_pending.pop_back();
                m_folders.pop();
                continue;
            }
            const std::string name = std::move(m_pending.back().back());
            m_pending.back().pop_back();
            if (auto child = m_folders.openChild(name))
                enter(std::move(*child));
        }
        return m_size;
    }

private:
    void enter(std::unique_ptr<OpenFolder> folder)
    {
        std::vector<std::string> subfolders;
        std::int64_t size = 0;
        const auto listed = folder->list([&](const DirectoryEntry &entry) {
            if (entry.type == EntryType::directory)
                subfolders.emplace_back(entry.name);
            else if (entry.type == EntryType::file)
                static_cast<void>(addForeign(size, entry.allocated)); // a size that no file can have counts as none
            return m_stop || subfolders.size() > subfoldersLimit ? Listing::stop : Listing::goOn;
        });
        // What was listed before a failure is there all the same.
        if (!addForeign(m_size, size) || !listed || subfolders.empty())
            return;
        m_pending.push_back(std::move(subfolders));
        m_folders.push(std::move(folder));
    }

    const StopFlag &m_stop;
    std::int64_t m_size = 0;
    FolderChain m_folders;
    std::vector<std::vector<std::string>> m_pending; // of the same folders, the subfolders not yet entered
};

} // namespace

std::int64_t allocatedSize(const std::string &path, FileSystem &files, const StopFlag &stop)
{
    const auto facts = files.facts(path);
    if (!facts)
        return 0;
    switch (facts->type) {
    case EntryType::symbolicLink:
        return 0;
    case EntryType::file:
        return isPlausibleSize(facts->allocated) ? facts->allocated : 0;
    case EntryType::directory:
        break;
    }
    return folderSize(path, files, stop);
}

std::int64_t folderSize(const std::string &path, FileSystem &files, const StopFlag &stop)
{
    const WalkConditions conditions;
    auto folder = files.openFolder(path);
    return folder ? SizeWalk(stop).walk(std::move(*folder)) : 0;
}

} // namespace corvane

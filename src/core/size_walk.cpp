#include "core/size_walk.h"

#include <utility>

#include "core/foreign_sum.h"
#include "platform/path.h"
#include "platform/walk_conditions.h"

namespace corvane {

namespace {

// Of a folder that holds more subfolders, and may have no end, only the files are counted.
constexpr std::size_t subfoldersLimit = 2'000'000;

} // namespace

bool ExcludedItems::anyBeneath(std::string_view folder) const
{
    const std::string below = folder == "/" ? "/" : std::string(folder) + "/";
    const auto first = m_paths.upper_bound(below);
    return first != m_paths.end() && first->starts_with(below);
}

std::int64_t fileSize(const ItemFacts &file)
{
    return isPlausibleSize(file.allocated) ? file.allocated : 0;
}

std::int64_t SizeWalk::walk(std::unique_ptr<OpenFolder> top, std::string path)
{
    const WalkConditions conditions;
    m_size = 0;
    enter(std::move(top), std::move(path));
    while (!m_levels.empty() && !m_stop) {
        Level &level = m_levels.back();
        if (m_folders.innermost() == nullptr || level.names.empty()) {
            m_levels.pop_back();
            m_folders.pop();
            continue;
        }
        const std::string name = std::move(level.names.back());
        level.names.pop_back();
        if (auto child = m_folders.openChild(name))
            enter(std::move(*child), level.path.empty() ? std::string() : joined(level.path, name));
        else
            ++m_unreadable;
    }
    return m_size;
}

void SizeWalk::enter(std::unique_ptr<OpenFolder> folder, std::string path)
{
    Contents contents = contentsOf(*folder, path);
    // What was listed before a failure is there all the same.
    if (!addForeign(m_size, contents.size) || !contents.isComplete || contents.subfolders.empty())
        return;
    const bool isWatched = !path.empty() && m_excluded.anyBeneath(path);
    m_levels.push_back({std::move(contents.subfolders), isWatched ? std::move(path) : std::string()});
    m_folders.push(std::move(folder));
}

SizeWalk::Contents SizeWalk::contentsOf(OpenFolder &folder, const std::string &path, const FileVisitor &visit)
{
    const bool asTheDisk = m_counting == Counting::asTheDisk;
    const bool isWatched = !path.empty() && m_excluded.anyBeneath(path);
    Contents contents;
    if (!m_devices.empty() && !m_devices.contains(folder.identity().device))
        return contents;
    const auto add = [&contents](std::int64_t bytes) {
        static_cast<void>(addForeign(contents.size, bytes)); // a size that no file can have counts as none
    };
    if (asTheDisk)
        add(folder.allocated());
    const auto listed = folder.list([&](const DirectoryEntry &entry) {
        if (isWatched && m_excluded.holds(joined(path, entry.name)))
            return Listing::goOn;
        if (entry.type == EntryType::directory) {
            contents.subfolders.emplace_back(entry.name);
        } else if (entry.type == EntryType::file &&
                   (!asTheDisk || entry.links < 2 || isFirstName(folder.identity().device, entry.inode))) {
            add(entry.allocated);
            if (visit)
                visit(entry.name, entry.allocated);
        }
        return m_stop || contents.subfolders.size() > subfoldersLimit ? Listing::stop : Listing::goOn;
    });
    contents.isComplete = listed.has_value();
    if (!listed)
        ++m_unreadable;
    return contents;
}

bool SizeWalk::isFirstName(std::uint64_t device, std::uint64_t inode)
{
    return inode == 0 || m_named.emplace(device, inode).second;
}

} // namespace corvane

#include "core/size_walk.h"

#include <utility>

#include "core/foreign_sum.h"
#include "core/shared_walk.h"
#include "core/walk_pace.h"
#include "platform/path.h"
#include "platform/walk_conditions.h"

namespace corvane {

namespace {

// For a folder with more subfolders, which may have no end, only the files are counted.
constexpr std::size_t subfoldersLimit = 2'000'000;

} // namespace

bool ExcludedItems::anyBeneath(std::string_view folder) const
{
    if (m_paths.empty())
        return false;
    const std::string below = folder == "/" ? "/" : std::string(folder) + "/";
    const auto first = m_paths.upper_bound(below);
    return first != m_paths.end() && first->starts_with(below);
}

std::int64_t fileSize(const ItemFacts &file)
{
    return isPlausibleSize(file.allocated) ? file.allocated : 0;
}

/// The subfolders of a listed folder.
struct SizeWalk::Names : ListedFolder {
    std::vector<std::string> names;
    bool hasExclusions = false; // something inside is excluded

    [[nodiscard]] std::size_t subfolderCount() const override { return names.size(); }
    [[nodiscard]] const std::string &subfolderName(std::size_t place) const override { return names[place]; }
};

class SizeWalk::Below : public SharedWalk::Visitor {
public:
    explicit Below(SizeWalk &sizes) : m_sizes(sizes) {}

    [[nodiscard]] std::unique_ptr<ListedFolder> enter(ListedFolder &parent, std::size_t, OpenFolder &folder,
                                                      const std::string &path) override
    {
        return m_sizes.enter(folder, static_cast<const Names &>(parent).hasExclusions ? path : std::string());
    }
    void notOpened(const Error &) override { ++m_sizes.m_unreadable; }
    void finish(ListedFolder &) override {}
    void lost(const Error &) override {}
    [[nodiscard]] bool shouldStop() const override { return m_sizes.m_stop; }

private:
    SizeWalk &m_sizes;
};

std::int64_t SizeWalk::walk(std::unique_ptr<OpenFolder> top, std::string path)
{
    const WalkConditions conditions;
    m_size = 0;
    if (std::unique_ptr<Names> names = enter(*top, path)) {
        const PacedWalk pace(path);
        Below visitor(*this);
        SharedWalk(visitor).walk(std::move(names), std::move(top), std::move(path));
    }
    return m_size;
}

/// Returns null if there is nothing to walk below the folder.
std::unique_ptr<SizeWalk::Names> SizeWalk::enter(OpenFolder &folder, const std::string &path)
{
    Contents contents = contentsOf(folder, path);
    // Entries listed before a failure still count.
    if (!addForeign(m_size, contents.size) || !contents.isComplete || contents.subfolders.empty())
        return nullptr;
    auto names = std::make_unique<Names>();
    names->names = std::move(contents.subfolders);
    names->hasExclusions = contents.hasExclusions;
    return names;
}

SizeWalk::Contents SizeWalk::contentsOf(OpenFolder &folder, const std::string &path, const FileVisitor &visit)
{
    const bool asTheDisk = m_counting == Counting::asTheDisk;
    Contents contents;
    contents.hasExclusions = !path.empty() && m_excluded.anyBeneath(path);
    if (!m_devices.empty() && !m_devices.contains(folder.identity().device))
        return contents;
    const auto add = [&contents](std::int64_t bytes) {
        static_cast<void>(addForeign(contents.size, bytes)); // an impossible size counts as 0
    };
    if (asTheDisk)
        add(folder.allocated());
    const auto listed = folder.list([&](const DirectoryEntry &entry) {
        if (contents.hasExclusions && m_excluded.holds(joined(path, entry.name)))
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
    if (inode == 0)
        return true;
    const std::scoped_lock lock(m_namesLock);
    return m_named.emplace(device, inode).second;
}

} // namespace corvane

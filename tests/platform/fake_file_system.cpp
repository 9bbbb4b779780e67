#include "platform/fake_file_system.h"

#include <algorithm>
#include <deque>
#include <optional>
#include <span>
#include <stdexcept>
#include <utility>

#include "platform/ascii_case.h"
#include "platform/file_reader.h"
#include "platform/held_folder.h"
#include "platform/path.h"
#include "platform/text.h"

namespace corvane {

namespace {

tl::unexpected<Error> failure(std::string operation, std::string path, std::errc code)
{
    return tl::unexpected(Error{std::move(operation), std::move(path), std::make_error_code(code), {}});
}

std::deque<std::string> components(std::string_view path)
{
    std::deque<std::string> parts;
    while (!path.empty()) {
        if (const std::string_view part = takePart(path, '/'); !part.empty())
            parts.emplace_back(part);
    }
    return parts;
}

struct Trouble {
    std::errc code{};
    std::size_t entries = 0;
    std::string text;
};

} // namespace

struct FakeFileSystem::Item {
    std::string name;
    EntryType type = EntryType::directory;
    std::int64_t allocated = 0;
    Time modified = distantPast;
    std::string target;
    std::string content;
    std::optional<bool> package;
    FolderIdentity identity;
    std::uint32_t links = 1;
    std::weak_ptr<Item> parent;
    std::vector<ItemPointer> children; // in listing order
    std::map<std::string, ItemPointer, std::less<>> childrenByName;

    bool vanished = false;
    std::optional<Trouble> opening, listing, facts, removal;

    [[nodiscard]] ItemPointer child(std::string_view childName) const
    {
        const auto found = childrenByName.find(childName);
        return found == childrenByName.end() ? nullptr : found->second;
    }

    void add(const ItemPointer &child)
    {
        children.push_back(child);
        childrenByName.emplace(child->name, child);
    }

    void drop(const ItemPointer &child)
    {
        std::erase(children, child);
        if (this->child(child->name) == child) // not another item with the same name
            childrenByName.erase(child->name);
    }
};

class FakeFileSystem::Folder final : public OpenFolder {
public:
    Folder(FakeFileSystem &files, ItemPointer item) : m_files(files), m_item(std::move(item)) {}

    Expected<void> list(const EntrySink &sink) override
    {
        m_files.m_log->record("list " + path());
        struct Row {
            std::string name;
            DirectoryEntry entry;
        };
        std::vector<Row> rows;
        std::optional<Trouble> trouble;
        {
            const std::lock_guard lock(m_files.m_mutex);
            for (const ItemPointer &child : m_item->children) {
                DirectoryEntry entry;
                if (!child->facts) {
                    entry.type = child->type;
                    entry.isPackage = m_files.isPackage(*child);
                    if (child->type == EntryType::file) {
                        entry.allocated = child->allocated;
                        entry.length = static_cast<std::int64_t>(child->content.size());
                        entry.modified = child->modified;
                        entry.links = child->links;
                        entry.inode = child->identity.inode;
                    }
                }
                rows.push_back({child->name, entry});
            }
            trouble = m_item->listing;
        }
        if (trouble)
            rows.resize(std::min(rows.size(), trouble->entries));
        for (Row &row : rows) {
            row.entry.name = row.name;
            if (sink(row.entry) == Listing::stop)
                return failure("list", path(), std::errc::operation_canceled);
        }
        if (trouble)
            return failure("list", path(), trouble->code);
        return {};
    }

    Expected<std::unique_ptr<OpenFolder>> openChild(const std::string &name) override
    {
        const std::string childPath = pathInside(name);
        m_files.m_log->record("openChild " + childPath);
        const std::lock_guard lock(m_files.m_mutex);
        const ItemPointer child = m_item->child(name);
        if (!child || child->vanished)
            return failure("open", childPath, std::errc::no_such_file_or_directory);
        if (child->type == EntryType::symbolicLink)
            return failure("open", childPath, std::errc::too_many_symbolic_link_levels);
        return m_files.open(child, childPath);
    }

    Expected<std::unique_ptr<OpenFolder>> openParent() override
    {
        const std::string here = path();
        m_files.m_log->record("openParent " + here);
        const std::lock_guard lock(m_files.m_mutex);
        if (m_item == m_files.m_root)
            return m_files.open(m_item, here);
        const ItemPointer parent = m_item->parent.lock();
        if (!parent)
            return failure("open", here, std::errc::no_such_file_or_directory);
        return m_files.open(parent, here);
    }

    FolderIdentity identity() const override
    {
        const std::lock_guard lock(m_files.m_mutex);
        return m_item->identity;
    }

    Time modified() const override
    {
        const std::lock_guard lock(m_files.m_mutex);
        return m_item->modified;
    }

private:
    [[nodiscard]] std::string path() const
    {
        const std::lock_guard lock(m_files.m_mutex);
        return pathOf(*m_item);
    }

    [[nodiscard]] std::string pathInside(const std::string &name) const
    {
        const std::string here = path();
        return (here == "/" ? here : here + "/") + name;
    }

    FakeFileSystem &m_files;
    const ItemPointer m_item;
};

class FakeFileSystem::Held final : public HeldFolder {
public:
    Held(FakeFileSystem &files, ItemPointer item, std::string path)
        : m_files(files), m_item(std::move(item)), m_path(std::move(path))
    {
    }

    const std::string &path() const override { return m_path; }

    FolderIdentity identity() const override
    {
        const std::lock_guard lock(m_files.m_mutex);
        return m_item->identity;
    }

    Expected<ItemFacts> facts(const std::string &name) override
    {
        m_files.m_log->record("facts " + joined(m_path, name));
        const std::lock_guard lock(m_files.m_mutex);
        return child(name).and_then(
            [&](const ItemPointer &item) { return m_files.factsOf(*item, joined(m_path, name)); });
    }

    Expected<void> removeItem(const std::string &name, const ItemIdentity &expected) override
    {
        m_files.m_log->record("removeItem " + joined(m_path, name));
        const std::lock_guard lock(m_files.m_mutex);
        const auto item = child(name);
        if (!item)
            return tl::unexpected(item.error());
        if (identityOf(**item) != expected)
            return tl::unexpected(replacedMeanwhile("remove", joined(m_path, name)));
        return removeTree(*item, joined(m_path, name));
    }

    Expected<void> moveItem(const std::string &name, HeldFolder &target, const std::string &newName) override
    {
        m_files.m_log->record("moveItem " + joined(m_path, name));
        const std::lock_guard lock(m_files.m_mutex);
        const auto item = child(name);
        if (!item)
            return tl::unexpected(item.error());
        const ItemPointer parent = dynamic_cast<Held &>(target).m_item;
        if (parent->child(newName))
            return failure("move", joined(target.path(), newName), std::errc::file_exists);
        detach(*item);
        attach(*item, parent, newName);
        return {};
    }

    int descriptor() const override { return -1; }

private:
    [[nodiscard]] Expected<ItemPointer> child(const std::string &name) const
    {
        const ItemPointer item = m_item->child(name);
        if (!item || item->vanished)
            return failure("find", joined(m_path, name), std::errc::no_such_file_or_directory);
        return item;
    }

    FakeFileSystem &m_files;
    const ItemPointer m_item;
    const std::string m_path;
};

FakeFileSystem::FakeFileSystem(std::shared_ptr<CallLog> log)
    : m_log(std::move(log)), m_root(std::make_shared<Item>()), m_packageExtensions{"app",          "photoslibrary",
                                                                                   "xcodeproj",    "framework",
                                                                                   "sparsebundle", "logicx"}
{
    m_root->identity = {.device = 1, .inode = m_lastInode};
    setHome("/Users/me");
}

FakeFileSystem::~FakeFileSystem() = default;

void FakeFileSystem::addFolder(const std::string &path, Time modified)
{
    const std::lock_guard lock(m_mutex);
    makeFolders(path)->modified = modified;
}

void FakeFileSystem::addFile(const std::string &path, std::int64_t allocated, Time modified)
{
    const std::lock_guard lock(m_mutex);
    const ItemPointer item = make(path, EntryType::file);
    item->allocated = allocated;
    item->modified = modified;
}

void FakeFileSystem::addText(const std::string &path, std::string content, std::int64_t allocated, Time modified)
{
    const std::lock_guard lock(m_mutex);
    const ItemPointer item = make(path, EntryType::file);
    item->content = std::move(content);
    item->allocated = allocated;
    item->modified = modified;
}

void FakeFileSystem::addLink(const std::string &path, const std::string &target)
{
    const std::lock_guard lock(m_mutex);
    make(path, EntryType::symbolicLink)->target = target;
}

void FakeFileSystem::setPackage(const std::string &path, bool isPackage)
{
    const std::lock_guard lock(m_mutex);
    demand(path)->package = isPackage;
}

void FakeFileSystem::setDevice(const std::string &path, std::uint64_t device)
{
    const std::lock_guard lock(m_mutex);
    demand(path)->identity.device = device;
}

void FakeFileSystem::take(const std::string &path)
{
    const std::lock_guard lock(m_mutex);
    detach(demand(path));
}

void FakeFileSystem::move(const std::string &from, const std::string &to)
{
    const std::lock_guard lock(m_mutex);
    const ItemPointer item = demand(from);
    detach(item);
    const std::size_t slash = to.rfind('/');
    const ItemPointer parent = makeFolders(to.substr(0, slash));
    attach(item, parent, to.substr(slash + 1));
}

TrashedItem FakeFileSystem::moveOut(const std::string &path)
{
    const std::lock_guard lock(m_mutex);
    const ItemPointer item = demand(path);
    detach(item);
    const auto outside = std::make_shared<Item>();
    outside->identity = {.device = item->identity.device, .inode = ++m_lastInode};
    attach(item, outside, item->name);
    return {std::make_shared<Held>(*this, outside, "/outside"), item->name, identityOf(*item)};
}

void FakeFileSystem::setMountPoints(std::optional<std::vector<std::string>> points)
{
    const std::lock_guard lock(m_mutex);
    m_mountPoints = std::move(points);
}

void FakeFileSystem::identify(const std::string &path, const std::string &other)
{
    const std::lock_guard lock(m_mutex);
    demand(path)->identity = demand(other)->identity;
    demand(path)->links = ++demand(other)->links;
}

bool FakeFileSystem::has(const std::string &path) const
{
    const std::lock_guard lock(m_mutex);
    return find(path, LastLink::keep).has_value();
}

void FakeFileSystem::setHome(const std::string &path)
{
    const std::lock_guard lock(m_mutex);
    makeFolders(path);
    m_home = path;
}

void FakeFileSystem::setSystemKind(SystemKind kind)
{
    const std::lock_guard lock(m_mutex);
    m_kind = kind;
}

void FakeFileSystem::addMount(MountedFolder mount)
{
    const std::lock_guard lock(m_mutex);
    m_mounts.push_back(std::move(mount));
}

void FakeFileSystem::setUserFolders(std::vector<std::string> folders)
{
    const std::lock_guard lock(m_mutex);
    m_userFolders = std::move(folders);
}

void FakeFileSystem::setDiskName(std::string name)
{
    const std::lock_guard lock(m_mutex);
    m_diskName = std::move(name);
}

void FakeFileSystem::setOwnPlace(const std::string &macPlace, OwnPlace place)
{
    const std::lock_guard lock(m_mutex);
    m_ownPlaces[macPlace] = std::move(place);
}

void FakeFileSystem::setOwner(const std::string &path, std::string owner)
{
    const std::lock_guard lock(m_mutex);
    m_owners[path] = std::move(owner);
}

std::optional<std::string> FakeFileSystem::ownerOf(const std::string &path)
{
    const std::lock_guard lock(m_mutex);
    const auto owner = m_owners.find(path);
    return owner == m_owners.end() ? std::nullopt : std::optional(owner->second);
}

SystemKind FakeFileSystem::systemKind()
{
    const std::lock_guard lock(m_mutex);
    return m_kind;
}

std::vector<MountedFolder> FakeFileSystem::mounts()
{
    const std::lock_guard lock(m_mutex);
    return m_mounts;
}

std::optional<OwnPlace> FakeFileSystem::ownPlaceFor(std::string_view macPlace)
{
    const std::lock_guard lock(m_mutex);
    const auto found = m_ownPlaces.find(macPlace);
    return found == m_ownPlaces.end() ? std::nullopt : std::optional(found->second);
}

std::optional<std::string> FakeFileSystem::diskName()
{
    const std::lock_guard lock(m_mutex);
    return m_diskName;
}

std::vector<std::string> FakeFileSystem::userFolders()
{
    const std::lock_guard lock(m_mutex);
    return m_userFolders;
}

void FakeFileSystem::setSharedDataFolders(std::vector<std::string> folders)
{
    const std::lock_guard lock(m_mutex);
    m_sharedDataFolders = std::move(folders);
}

void FakeFileSystem::setVolumeTrashes(std::vector<std::string> folders)
{
    const std::lock_guard lock(m_mutex);
    m_volumeTrashes = std::move(folders);
}

std::vector<std::string> FakeFileSystem::sharedDataFolders()
{
    const std::lock_guard lock(m_mutex);
    return m_sharedDataFolders;
}

std::vector<std::string> FakeFileSystem::volumeTrashes()
{
    const std::lock_guard lock(m_mutex);
    return m_volumeTrashes;
}

void FakeFileSystem::setPackageExtensions(std::set<std::string> extensions)
{
    const std::lock_guard lock(m_mutex);
    m_packageExtensions = std::move(extensions);
}

void FakeFileSystem::failOpening(const std::string &path, std::errc code)
{
    const std::lock_guard lock(m_mutex);
    demand(path)->opening = Trouble{.code = code, .entries = 0, .text = {}};
}

void FakeFileSystem::failListing(const std::string &path, std::errc code, std::size_t entries)
{
    const std::lock_guard lock(m_mutex);
    demand(path)->listing = Trouble{.code = code, .entries = entries, .text = {}};
}

void FakeFileSystem::failFacts(const std::string &path, std::errc code)
{
    const std::lock_guard lock(m_mutex);
    demand(path)->facts = Trouble{.code = code, .entries = 0, .text = {}};
}

void FakeFileSystem::makeVanish(const std::string &path)
{
    const std::lock_guard lock(m_mutex);
    demand(path)->vanished = true;
}

void FakeFileSystem::failRemoval(const std::string &path, std::errc code, std::string text)
{
    const std::lock_guard lock(m_mutex);
    demand(path)->removal = Trouble{.code = code, .entries = 0, .text = std::move(text)};
}

Expected<std::unique_ptr<OpenFolder>> FakeFileSystem::openFolder(const std::string &path)
{
    m_log->record("openFolder " + path);
    const std::lock_guard lock(m_mutex);
    const auto item = find(path, LastLink::follow);
    if (!item)
        return failure("open", path, static_cast<std::errc>(item.error().code.value()));
    return open(*item, path);
}

Expected<ItemFacts> FakeFileSystem::facts(const std::string &path)
{
    m_log->record("facts " + path);
    const std::lock_guard lock(m_mutex);
    const auto item = find(path, LastLink::keep);
    if (!item)
        return tl::unexpected(item.error());
    return factsOf(**item, path);
}

Expected<ItemFacts> FakeFileSystem::factsOf(const Item &item, const std::string &path) const
{
    if (item.facts)
        return failure("look at", path, item.facts->code);
    return ItemFacts{item.type, isPackage(item), item.allocated, item.modified, identityOf(item)};
}

ItemIdentity FakeFileSystem::identityOf(const Item &item)
{
    return {item.type, item.identity.device, item.identity.inode};
}

bool FakeFileSystem::exists(const std::string &path)
{
    m_log->record("exists " + path);
    const std::lock_guard lock(m_mutex);
    return find(path, LastLink::follow).has_value();
}

bool FakeFileSystem::canOpen(const std::string &path)
{
    m_log->record("canOpen " + path);
    const std::lock_guard lock(m_mutex);
    const auto item = find(path, LastLink::follow);
    return item && !(*item)->opening;
}

Expected<std::string> FakeFileSystem::readFile(const std::string &path, std::size_t most)
{
    m_log->record("readFile " + path);
    const std::lock_guard lock(m_mutex);
    const auto item = find(path, LastLink::follow);
    if (!item)
        return tl::unexpected(item.error());
    if ((*item)->type != EntryType::file)
        return failure("read", path, std::errc::not_supported);
    if ((*item)->opening)
        return failure("open", path, (*item)->opening->code);
    if ((*item)->content.size() > most)
        return failure("read", path, std::errc::file_too_large);
    return (*item)->content;
}

/// Reads the file's contents as of when it was opened.
class FakeFileSystem::Reader final : public FileReader {
public:
    Reader(std::string content, const FileStatus &status) : m_content(std::move(content)), m_status(status) {}

    Expected<FileStatus> status() override { return m_status; }
    Expected<std::size_t> read(std::int64_t offset, std::span<std::byte> buffer) override
    {
        const std::size_t start = std::min(static_cast<std::size_t>(offset), m_content.size());
        const std::size_t count = std::min(buffer.size(), m_content.size() - start);
        std::ranges::copy(std::as_bytes(std::span(m_content)).subspan(start, count), buffer.begin());
        return count;
    }
    void willRead(std::int64_t, std::int64_t) override {}

private:
    const std::string m_content;
    const FileStatus m_status;
};

Expected<std::unique_ptr<FileReader>> FakeFileSystem::openFile(const std::string &path)
{
    m_log->record("openFile " + path);
    const std::lock_guard lock(m_mutex);
    const auto item = find(path, LastLink::keep);
    if (!item)
        return tl::unexpected(item.error());
    if ((*item)->type != EntryType::file)
        return failure("open", path, std::errc::not_supported);
    if ((*item)->opening)
        return failure("open", path, (*item)->opening->code);
    return std::make_unique<Reader>((*item)->content,
                                    FileStatus{.length = static_cast<std::int64_t>((*item)->content.size()),
                                               .modified = (*item)->modified,
                                               .identity = identityOf(**item)});
}

Expected<std::string> FakeFileSystem::realPath(const std::string &path)
{
    m_log->record("realPath " + path);
    const std::lock_guard lock(m_mutex);
    return find(path, LastLink::follow).map([](const ItemPointer &item) { return pathOf(*item); });
}

Expected<std::unique_ptr<HeldFolder>> FakeFileSystem::holdFolder(const std::string &path)
{
    m_log->record("holdFolder " + path);
    const std::lock_guard lock(m_mutex);
    const auto item = find(path, LastLink::follow);
    if (!item)
        return tl::unexpected(item.error());
    if ((*item)->type != EntryType::directory)
        return failure("open", path, std::errc::not_a_directory);
    return std::make_unique<Held>(*this, *item, pathOf(**item));
}

Expected<std::vector<std::string>> FakeFileSystem::mountPoints()
{
    const std::lock_guard lock(m_mutex);
    if (!m_mountPoints)
        return failure("list the disks", "/", std::errc::io_error);
    return *m_mountPoints;
}

Expected<void> FakeFileSystem::removeTree(const ItemPointer &item, const std::string &path)
{
    if (const auto &trouble = item->removal)
        return tl::unexpected(Error{"remove", path, std::make_error_code(trouble->code), trouble->text});
    Expected<void> result;
    bool hasRemoved = false;
    for (const ItemPointer &child : std::vector<ItemPointer>(item->children)) {
        const Expected<void> removed = removeTree(child, path + "/" + child->name);
        hasRemoved |= removed.has_value() || removed.error().inPart;
        if (!removed && result)
            result = removed;
    }
    if (result)
        detach(item);
    else
        result.error().inPart = hasRemoved;
    return result;
}

std::string FakeFileSystem::homeFolder()
{
    const std::lock_guard lock(m_mutex);
    return m_home;
}

/// Resolves the path like a system: handles ".", ".." and intermediate links.
Expected<FakeFileSystem::ItemPointer> FakeFileSystem::find(const std::string &path, LastLink lastLink) const
{
    constexpr int mostLinks = 40;
    int links = 0;
    ItemPointer here = m_root;
    std::deque<std::string> pending = components(path);
    if (!path.starts_with('/'))
        return failure("find", path, std::errc::no_such_file_or_directory);
    while (!pending.empty()) {
        const std::string name = std::move(pending.front());
        pending.pop_front();
        if (here->type != EntryType::directory)
            return failure("find", path, std::errc::not_a_directory);
        if (name == ".")
            continue;
        if (name == "..") {
            if (const ItemPointer parent = here->parent.lock())
                here = parent;
            continue;
        }
        const ItemPointer next = here->child(name);
        if (!next || next->vanished)
            return failure("find", path, std::errc::no_such_file_or_directory);
        const bool isLast = pending.empty() && !path.ends_with('/');
        if (next->type != EntryType::symbolicLink || (isLast && lastLink == LastLink::keep)) {
            here = next;
            continue;
        }
        if (++links > mostLinks)
            return failure("find", path, std::errc::too_many_symbolic_link_levels);
        const std::deque<std::string> target = components(next->target);
        pending.insert(pending.begin(), target.begin(), target.end());
        if (next->target.starts_with('/'))
            here = m_root;
    }
    return here;
}

FakeFileSystem::ItemPointer FakeFileSystem::demand(const std::string &path) const
{
    auto item = find(path, LastLink::keep);
    if (!item)
        throw std::logic_error("The test's tree has no item " + path);
    return std::move(*item);
}

FakeFileSystem::ItemPointer FakeFileSystem::make(const std::string &path, EntryType type)
{
    if (!path.starts_with('/') || path.ends_with('/'))
        throw std::logic_error("Not the absolute path of an item: " + path);
    const std::size_t slash = path.rfind('/');
    const ItemPointer parent = makeFolders(path.substr(0, slash));
    const std::string name = path.substr(slash + 1);
    if (parent->child(name))
        throw std::logic_error("The test's tree already has an item " + path);
    const auto item = std::make_shared<Item>();
    item->name = name;
    item->type = type;
    item->parent = parent;
    item->identity = {.device = parent->identity.device, .inode = ++m_lastInode};
    parent->add(item);
    return item;
}

FakeFileSystem::ItemPointer FakeFileSystem::makeFolders(const std::string &path)
{
    if (path.empty() || path == "/")
        return m_root;
    if (const auto found = find(path, LastLink::follow)) {
        if ((*found)->type != EntryType::directory)
            throw std::logic_error("Not a folder in the test's tree: " + path);
        return *found;
    }
    return make(path, EntryType::directory);
}

bool FakeFileSystem::isPackage(const Item &item) const
{
    if (item.type != EntryType::directory)
        return false;
    if (item.package)
        return *item.package;
    const std::size_t dot = item.name.rfind('.');
    return dot != std::string::npos && dot > 0 && m_packageExtensions.contains(lowerAscii(item.name.substr(dot + 1)));
}

Expected<std::unique_ptr<OpenFolder>> FakeFileSystem::open(const ItemPointer &item, const std::string &path)
{
    if (item->type != EntryType::directory)
        return failure("open", path, std::errc::not_a_directory);
    if (item->opening)
        return failure("open", path, item->opening->code);
    return std::make_unique<Folder>(*this, item);
}

std::string FakeFileSystem::pathOf(const Item &item)
{
    const ItemPointer parent = item.parent.lock();
    if (!parent)
        return item.name.empty() ? "/" : item.name;
    const std::string folder = pathOf(*parent);
    return (folder == "/" ? folder : folder + "/") + item.name;
}

void FakeFileSystem::detach(const ItemPointer &item)
{
    const ItemPointer parent = item->parent.lock();
    if (!parent)
        throw std::logic_error("The test's root cannot be taken away");
    parent->drop(item);
    item->parent.reset();
}

void FakeFileSystem::attach(const ItemPointer &item, const ItemPointer &parent, const std::string &name)
{
    item->name = name;
    item->parent = parent;
    parent->add(item);
}

} // namespace corvane

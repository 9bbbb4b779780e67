#include "platform/fake_file_system.h"

#include <optional>
#include <utility>

#include "platform/fake_file_system_item.h"

namespace corvane {

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

Expected<std::vector<std::string>> FakeFileSystem::mountPoints()
{
    const std::lock_guard lock(m_mutex);
    if (!m_mountPoints)
        return failure("list the disks", "/", std::errc::io_error);
    return *m_mountPoints;
}

std::string FakeFileSystem::homeFolder()
{
    const std::lock_guard lock(m_mutex);
    return m_home;
}

} // namespace corvane

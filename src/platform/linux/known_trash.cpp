#include "platform/linux/known_trash.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <glib.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/linux/glib_pointer.h"
#include "platform/linux/linux_held_folder.h"
#include "platform/path.h"
#include "platform/posix/item_at.h"

namespace corvane {

namespace {

/// Some file systems report a write error only when the descriptor is closed.
bool writeWhole(int file, const std::string &text)
{
    return ::write(file, text.data(), text.size()) == static_cast<ssize_t>(text.size()) && ::close(::dup(file)) == 0;
}

} // namespace

/// A record in the Trash, which reserves a name for an item there. The destructor removes the record unless it was kept
/// or replaced.
class KnownTrash::Record {
public:
    /// Empty: no name is available.
    Record() = default;

    /// Writes a record; empty, with `errno` set, if that fails; EEXIST if it already exists.
    Record(int records, std::string itemName, const std::string &text)
        : m_records(records), m_itemName(std::move(itemName))
    {
        m_file = FileDescriptor(
            ::openat(records, recordName(m_itemName).c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
        if (m_file.isOpen() && !writeWhole(m_file.number(), text)) {
            withdraw();
            errno = ENOSPC;
        }
    }
    Record(Record &&) = default;
    Record &operator=(Record &&other) noexcept
    {
        std::swap(m_records, other.m_records);
        std::swap(m_itemName, other.m_itemName);
        std::swap(m_file, other.m_file);
        return *this;
    }
    Record(const Record &) = delete;
    Record &operator=(const Record &) = delete;
    ~Record() { withdraw(); }

    [[nodiscard]] bool exists() const { return m_file.isOpen(); }
    [[nodiscard]] const std::string &itemName() const { return m_itemName; }
    [[nodiscard]] bool isInPlace() const { return isAt(m_file.number(), m_records, recordName(m_itemName)); }
    void keep() { m_file = FileDescriptor(); }

private:
    void withdraw()
    {
        if (exists() && isInPlace())
            ::unlinkat(m_records, recordName(m_itemName).c_str(), 0);
        m_file = FileDescriptor();
    }

    int m_records = -1;
    std::string m_itemName;
    FileDescriptor m_file; // held open, so that its inode number cannot be reused during the comparison
};

KnownTrash::KnownTrash(const HeldFolder &source, ChosenTrash chosen)
    : m_items(std::make_shared<LinuxHeldFolder>(std::move(chosen.trash.items), chosen.trash.itemsPath)),
      m_records(std::move(chosen.trash.records)),
      m_top(std::move(chosen.trash.top)),
      m_notesWholePaths(chosen.notesWholePaths),
      m_mount(Mount::of(source.descriptor())),
      m_device(source.identity().device),
      m_watched(watched())
{
}

std::optional<KnownTrash::Watched> KnownTrash::lookAt(const std::string &path)
{
    struct stat facts {};
    if (::lstat(path.c_str(), &facts) != 0)
        return std::nullopt;
    return Watched{path, facts.st_dev, facts.st_ino, facts.st_mode, facts.st_uid};
}

std::vector<KnownTrash::Watched> KnownTrash::watched() const
{
    const std::string trash(containingFolder(m_items->path()));
    std::vector<std::string> paths{m_items->path(), joined(trash, "info")};
    // On a shared volume, other users may be able to change the folders above the Trash.
    for (std::string path = trash; !m_top.empty() && liesBeneath(path, m_top);
         path.resize(containingFolder(path).size()))
        paths.push_back(path);
    std::vector<Watched> all;
    for (const std::string &path : paths) {
        std::optional<Watched> found = lookAt(path);
        if (!found || !S_ISDIR(found->mode))
            return {};
        all.push_back(std::move(*found));
    }
    const auto isFolder = [](int folder, const Watched &found) {
        struct stat facts {};
        return ::fstat(folder, &facts) == 0 && facts.st_dev == found.device && facts.st_ino == found.inode;
    };
    if (!isFolder(m_items->descriptor(), all[0]) || !isFolder(m_records.number(), all[1]))
        return {};
    return all;
}

bool KnownTrash::isAsItWas() const
{
    return std::ranges::all_of(m_watched, [](const Watched &before) { return lookAt(before.path) == before; });
}

bool KnownTrash::takesFrom(const HeldFolder &source, const ItemFacts &item) const
{
    if (m_watched.empty() || item.identity.device != m_device || source.identity().device != m_device)
        return false;
    const std::optional<Mount> mount = Mount::of(source.descriptor());
    return mount && m_mount && mount->isSameAs(*m_mount);
}

std::optional<std::string> KnownTrash::recordTextFor(const std::string &path) const
{
    const std::optional<std::string> noted = notedPath(path, m_top, m_notesWholePaths);
    const GDateTimePointer now(g_date_time_new_now_local());
    const GStringPointer date(now ? g_date_time_format(now.get(), "%Y-%m-%dT%H:%M:%S") : nullptr);
    if (!noted || !date)
        return std::nullopt;
    return "[Trash Info]\nPath=" + *noted + "\nDeletionDate=" + date.get() + "\n";
}

/// Reserves the first name used neither by a record nor by an item without one.
KnownTrash::Record KnownTrash::reserve(const std::string &name, const std::string &text)
{
    const auto taken = m_nextAttempts.find(name);
    for (int attempt = taken == m_nextAttempts.end() ? 1 : taken->second;; ++attempt) {
        if (attempt > 1)
            m_nextAttempts[name] = attempt;
        std::string itemName = trashName(name, attempt);
        if (identityAt(m_items->descriptor(), itemName))
            continue;
        if (errno != ENOENT)
            return {};
        Record record(m_records.number(), std::move(itemName), text);
        if (record.exists() || errno != EEXIST)
            return record;
    }
}

std::optional<TrashedItem> KnownTrash::take(HeldFolder &source, const std::string &name)
{
    const std::optional<std::string> text = recordTextFor(joined(source.path(), name));
    if (!text || !isAsItWas())
        return std::nullopt;
    Record record = reserve(name, *text);
    if (!record.exists())
        return std::nullopt;
    const int items = m_items->descriptor();
    if (!moveIntoTrash(source.descriptor(), name, items, record.itemName()))
        return std::nullopt;
    if (!record.isInPlace()) {
        Record another = recordedAnew(source, name, record.itemName(), *text);
        if (another.exists())
            record = std::move(another);
        else if (!arrived(record.itemName()).folder)
            return std::nullopt;
    }
    TrashedItem item = arrived(record.itemName());
    if (item.folder)
        record.keep();
    return item;
}

/// Another program emptied the Trash just before the item was moved in, so only the record was deleted. Without a
/// record the name is free, and other programs may move their items over this one. Returns an empty record if the item
/// was moved back, or if there is no way to do either: then it lies under its name without a record.
KnownTrash::Record KnownTrash::recordedAnew(HeldFolder &source, const std::string &name, const std::string &itemName,
                                            const std::string &text)
{
    const int items = m_items->descriptor();
    Record record(m_records.number(), itemName, text);
    if (record.exists() || moveAt(items, itemName, source.descriptor(), name))
        return record;
    record = reserve(name, text);
    if (record.exists() && !moveAt(items, itemName, items, record.itemName()))
        return {};
    return record;
}

TrashedItem KnownTrash::arrived(const std::string &itemName) const
{
    const Expected<ItemFacts> facts = m_items->facts(itemName);
    if (!facts && facts.error().isMissing())
        return {};
    return {m_items, itemName, facts ? facts->identity : ItemIdentity{}};
}

} // namespace corvane

#include "platform/linux/trash_slot.h"

#include <cerrno>
#include <optional>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/failure.h"
#include "platform/linux/gio_error.h"
#include "platform/linux/glib_pointer.h"
#include "platform/linux/name_reservation.h"
#include "platform/path.h"
#include "platform/posix/item_at.h"
#include "platform/trash.h"

namespace corvane {

namespace {

std::string linkTarget(const std::string &path)
{
    std::string target(8192, '\0');
    const ssize_t length = ::readlink(path.c_str(), target.data(), target.size());
    target.resize(length < 0 ? 0 : static_cast<std::size_t>(length));
    return target;
}

/// A path through the folder's descriptor ("/proc/PID/fd/N"), which leads to this folder even after it has been moved.
/// Contains the PID instead of "self", so that it is valid in other processes as well. Empty if "/proc" is missing or
/// belongs to another PID namespace.
std::string anchoredPath(int folder)
{
    const std::string process = linkTarget("/proc/self");
    if (process.empty())
        return {};
    std::string path = "/proc/" + process + "/fd/" + std::to_string(folder);
    struct stat there {};
    struct stat here {};
    const bool leadsHere = ::stat(path.c_str(), &there) == 0 && ::fstat(folder, &here) == 0 &&
                           there.st_dev == here.st_dev && there.st_ino == here.st_ino;
    return leadsHere ? path : std::string();
}

/// GIO's error, with the item's path instead of the stand-in's in its message.
Error errorOfItem(const GError &error, const std::string &itemPath, const std::string &standInPath)
{
    Error result = gioError(moveToTrash, itemPath, error);
    if (const std::size_t at = result.text.find(standInPath); at != std::string::npos)
        result.text.replace(at, standInPath.size(), itemPath);
    return result;
}

} // namespace

/// A new folder beside the item that contains the stand-in. The destructor removes the folder, and the stand-in if GIO
/// has not moved it.
class TrashSlot::Stage {
public:
    Stage(HeldFolder &parent, const std::string &itemName)
        : m_parent(parent.descriptor()), m_name(uniqueName(".corvane-")), m_itemName(itemName)
    {
        if (::mkdirat(m_parent, m_name.c_str(), 0700) != 0)
            return;
        m_folder = FileDescriptor(::openat(m_parent, m_name.c_str(), O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
        m_standIn = FileDescriptor(
            ::openat(m_folder.number(), itemName.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
        if (!m_standIn.isOpen())
            return;
        m_path = anchoredPath(m_folder.number());
        if (m_path.empty())
            m_path = joined(parent.path(), m_name);
    }
    Stage(const Stage &) = delete;
    Stage &operator=(const Stage &) = delete;
    ~Stage()
    {
        const int kept = errno;
        if (m_folder.isOpen())
            ::unlinkat(m_folder.number(), m_itemName.c_str(), 0);
        ::unlinkat(m_parent, m_name.c_str(), AT_REMOVEDIR);
        errno = kept;
    }

    /// Not open, with `errno` set, if the folder or the stand-in could not be created. Call once.
    [[nodiscard]] FileDescriptor takeStandIn() { return std::move(m_standIn); }
    /// The folder's path, through its descriptor if possible.
    [[nodiscard]] const std::string &path() const { return m_path; }

private:
    const int m_parent;
    const std::string m_name;
    const std::string m_itemName;
    FileDescriptor m_folder;
    FileDescriptor m_standIn;
    std::string m_path;
};

Expected<TrashSlot> TrashSlot::make(HeldFolder &folder, const std::string &name)
{
    TrashSlot slot(folder, name);
    std::vector<NameReservation> reservations; // until the stand-in is moved
    for (const TrashPlace &trash : trashPlacesFor(folder.descriptor(), folder.path())) {
        Expected<NameReservation> reservation = NameReservation::make(trash, name);
        if (!reservation)
            return tl::unexpected(reservation.error());
        reservations.push_back(std::move(*reservation));
    }

    Stage stage(folder, name);
    slot.m_standIn = stage.takeStandIn();
    if (!slot.m_standIn.isOpen())
        return tl::unexpected(slot.failure(errno));
    const std::string standIn = joined(stage.path(), name);
    // The default GVfs may delegate to a service on the session bus; the local one does the work in this process. It
    // still notifies the default one of the move, which has no effect without a bus.
    const GObjectPointer<GFile> file(g_vfs_get_file_for_path(g_vfs_get_local(), standIn.c_str()));
    GError *problem = nullptr;
    if (!g_file_trash(file.get(), nullptr, &problem)) {
        const GErrorPointer owner(problem);
        return tl::unexpected(errorOfItem(*problem, joined(folder.path(), name), standIn));
    }
    // Look up the places again, because GIO may just have created the Trash.
    if (!slot.find(trashPlacesFor(folder.descriptor(), folder.path())) || !slot.completeRecord()) {
        Error error = slot.failure(EIO);
        error.text = "The Trash could not record where the item came from.";
        return tl::unexpected(std::move(error));
    }
    return slot;
}

bool TrashSlot::find(const std::vector<TrashPlace> &places)
{
    for (const TrashPlace &place : places) {
        OpenTrash trash = OpenTrash::at(place);
        if (!trash.items.isOpen() || !trash.records.isOpen())
            continue;
        for (int attempt = 1;; ++attempt) {
            const std::string taken = trashName(m_name, attempt);
            if (isAt(m_standIn.number(), trash.items.number(), taken)) {
                m_trash = std::move(trash);
                m_slotName = taken;
                m_record = FileDescriptor(::openat(m_trash.records.number(), recordName(taken).c_str(),
                                                   O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
                m_isWaiting = true;
                return true;
            }
            if (!identityAt(trash.items.number(), taken) && !identityAt(trash.records.number(), recordName(taken)))
                break;
        }
    }
    return false;
}

bool TrashSlot::completeRecord()
{
    static constexpr const char *group = "Trash Info";
    static constexpr const char *key = "Path";
    struct stat facts {};
    constexpr off_t longest = 1024 * 1024;
    if (!m_record.isOpen() || ::fstat(m_record.number(), &facts) != 0 || facts.st_size > longest)
        return false;
    std::string text(static_cast<std::size_t>(facts.st_size), '\0');
    if (::pread(m_record.number(), text.data(), text.size(), 0) != static_cast<ssize_t>(text.size()))
        return false;

    const GKeyFilePointer keys(g_key_file_new());
    if (!g_key_file_load_from_data(keys.get(), text.data(), text.size(), G_KEY_FILE_NONE, nullptr))
        return false;
    const GStringPointer noted(g_key_file_get_value(keys.get(), group, key, nullptr));
    if (!noted)
        return false;
    m_notesWholePaths = noted.get()[0] == '/';
    const std::optional<std::string> path = notedPath(joined(m_source->path(), m_name), m_trash.top, m_notesWholePaths);
    if (!path)
        return false;
    g_key_file_set_value(keys.get(), group, key, path->c_str());
    gsize length = 0;
    const GStringPointer changed(g_key_file_to_data(keys.get(), &length, nullptr));
    return changed && ::pwrite(m_record.number(), changed.get(), length, 0) == static_cast<ssize_t>(length) &&
           ::ftruncate(m_record.number(), static_cast<off_t>(length)) == 0;
}

bool TrashSlot::recordIsOurs() const
{
    return isAt(m_record.number(), m_trash.records.number(), recordName(m_slotName));
}

Expected<void> TrashSlot::fill()
{
    const int items = m_trash.items.number();
    // If the Trash has been emptied and used again meanwhile, the name may belong to another program's item. So move it
    // aside and delete it only if it is the stand-in.
    const std::string aside = uniqueName(".corvane-");
    const bool isAside = moveAt(items, m_slotName, items, aside);
    if (!isAside || !isAt(m_standIn.number(), items, aside) || !recordIsOurs()) {
        if (isAside)
            (void)moveAt(items, aside, items, m_slotName);
        return tl::unexpected(changedMeanwhile());
    }
    m_standIn = FileDescriptor(); // NFS would rename a deleted file that is open, and keep it in the folder
    const bool isMoved =
        ::unlinkat(items, aside.c_str(), 0) == 0 && moveIntoTrash(m_source->descriptor(), m_name, items, m_slotName);
    if (!isMoved)
        return tl::unexpected(failure(errno));
    m_isWaiting = false;
    if (!recordIsOurs() && moveAt(items, m_slotName, m_source->descriptor(), m_name))
        return tl::unexpected(changedMeanwhile());
    return {};
}

TrashSlot::~TrashSlot()
{
    // Nothing is to be removed after a move of this object or of the item.
    if (!m_isWaiting || !m_trash.records.isOpen())
        return;
    if (isAt(m_standIn.number(), m_trash.items.number(), m_slotName))
        ::unlinkat(m_trash.items.number(), m_slotName.c_str(), 0);
    if (recordIsOurs())
        ::unlinkat(m_trash.records.number(), recordName(m_slotName).c_str(), 0);
}

ChosenTrash TrashSlot::release() &&
{
    return {std::move(m_trash), m_notesWholePaths};
}

Error TrashSlot::changedMeanwhile() const
{
    Error error = failure(EBUSY);
    error.text = "Another program has changed the Trash in the meantime.";
    return error;
}

Error TrashSlot::failure(int code) const
{
    return kernelError(moveToTrash, joined(m_source->path(), m_name), code);
}

} // namespace corvane

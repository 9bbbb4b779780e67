#include "platform/linux/name_reservation.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/failure.h"
#include "platform/path.h"
#include "platform/trash.h"

namespace corvane {

namespace {

bool exists(const FileDescriptor &folder, const std::string &name)
{
    struct stat facts {};
    return ::fstatat(folder.number(), name.c_str(), &facts, AT_SYMLINK_NOFOLLOW) == 0;
}

} // namespace

Expected<NameReservation> NameReservation::make(const TrashPlace &trash, const std::string &name)
{
    NameReservation reservation;
    OpenTrash open = OpenTrash::at(trash);
    reservation.m_records = std::move(open.records);
    if (!open.items.isOpen())
        return reservation;

    for (int attempt = 1;; ++attempt) {
        const std::string taken = trashName(name, attempt);
        const std::string record = recordName(taken);
        if (exists(reservation.m_records, record))
            continue;
        if (!exists(open.items, taken))
            return reservation;
        if (!reservation.m_records.isOpen()) {
            ::mkdirat(trash.open().number(), "info", 0700);
            reservation.m_records = OpenTrash::at(trash).records;
        }
        const FileDescriptor made(
            ::openat(reservation.m_records.number(), record.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
        if (made.isOpen()) {
            reservation.m_made.push_back(record);
        } else if (errno != EEXIST) {
            return failure(
                moveToTrash, joined(open.itemsPath, taken), errno,
                "The Trash already holds an item with that name and no record of where it came from. Empty the "
                "Trash first.");
        }
    }
}

NameReservation::~NameReservation()
{
    for (const std::string &record : m_made)
        ::unlinkat(m_records.number(), record.c_str(), 0);
}

} // namespace corvane

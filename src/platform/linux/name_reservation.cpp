#include "platform/linux/name_reservation.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>

#include "platform/path.h"

namespace corvane {

namespace {

/// The name that GIO tries as its `attempt`-th, the first being 1: the number goes before the first dot's part.
std::string candidate(const std::string &name, int attempt)
{
    if (attempt == 1)
        return name;
    const std::size_t dot = name.find('.');
    const std::string number = "." + std::to_string(attempt);
    return dot == std::string::npos ? name + number : name.substr(0, dot) + number + name.substr(dot);
}

FileDescriptor openFolder(int parent, const std::string &name)
{
    return FileDescriptor(::openat(parent, name.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
}

bool exists(const FileDescriptor &folder, const std::string &name)
{
    struct stat facts {};
    return ::fstatat(folder.number(), name.c_str(), &facts, AT_SYMLINK_NOFOLLOW) == 0;
}

} // namespace

Expected<NameReservation> NameReservation::make(const std::string &trash, const std::string &name)
{
    NameReservation reservation;
    const FileDescriptor top = openFolder(AT_FDCWD, trash);
    const FileDescriptor files = openFolder(top.number(), "files");
    reservation.m_records = openFolder(top.number(), "info");
    if (!files.isOpen())
        return reservation;

    for (int attempt = 1;; ++attempt) {
        const std::string taken = candidate(name, attempt);
        const std::string record = taken + ".trashinfo";
        if (exists(reservation.m_records, record))
            continue;
        if (!exists(files, taken))
            return reservation;
        if (!reservation.m_records.isOpen()) {
            ::mkdirat(top.number(), "info", 0700);
            reservation.m_records = openFolder(top.number(), "info");
        }
        const FileDescriptor made(
            ::openat(reservation.m_records.number(), record.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
        if (made.isOpen()) {
            reservation.m_made.push_back(record);
        } else if (errno != EEXIST) {
            return tl::unexpected(Error{"move to Trash", joined(joined(trash, "files"), taken),
                                        std::error_code(errno, std::system_category()),
                                        "The Trash already holds an item of that name, and nothing tells where it "
                                        "came from. Empty the Trash first."});
        }
    }
}

NameReservation::~NameReservation()
{
    for (const std::string &record : m_made)
        ::unlinkat(m_records.number(), record.c_str(), 0);
}

} // namespace corvane

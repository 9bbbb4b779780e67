#pragma once

#include <cerrno>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "platform/held_folder.h"
#include "platform/linux/linux_file_system.h"
#include "platform/path.h"
#include "support/temporary_folder.h"

namespace corvane {

/// A copy of an entry, valid after the listing.
struct Entry {
    EntryType type = EntryType::file;
    bool isPackage = false;
    std::int64_t allocated = 0;
    Time modified = distantPast;
};

inline std::map<std::string, Entry> entriesOf(OpenFolder &folder)
{
    std::map<std::string, Entry> entries;
    const Expected<void> listed = folder.list([&](const DirectoryEntry &entry) {
        const bool isNew = entries
                               .try_emplace(std::string(entry.name),
                                            Entry{entry.type, entry.isPackage, entry.allocated, entry.modified})
                               .second;
        EXPECT_TRUE(isNew) << entry.name;
    });
    EXPECT_TRUE(listed) << listed.error().description();
    return entries;
}

inline std::set<std::string> namesIn(OpenFolder &folder)
{
    std::set<std::string> names;
    for (const auto &[name, entry] : entriesOf(folder))
        names.insert(name);
    return names;
}

/// The real file system, in a temporary folder.
class LinuxFileSystemTest : public testing::Test {
protected:
    std::unique_ptr<OpenFolder> open(const std::string &path)
    {
        Expected<std::unique_ptr<OpenFolder>> folder = files.openFolder(path);
        if (!folder)
            throw std::system_error(folder.error().code, path);
        return std::move(*folder);
    }

    /// Deletes an item as a removal does: relative to its parent folder.
    Expected<void> remove(const std::string &path)
    {
        const std::string plain = path.substr(0, path.find_last_not_of('/') + 1);
        const Expected<std::unique_ptr<HeldFolder>> folder = files.holdFolder(std::string(containingFolder(plain)));
        if (!folder)
            return tl::unexpected(folder.error());
        const std::string name(lastPathComponent(plain));
        return (*folder)->facts(name).and_then(
            [&](const ItemFacts &facts) { return (*folder)->removeItem(name, facts.identity); });
    }

    /// Creates `levels` nested folders called `name`; returns the full path of the innermost.
    std::string makeDeep(const std::string &name, int levels)
    {
        std::string path = temporary.path();
        int descriptor = ::open(path.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
        for (int level = 0; level < levels; ++level) {
            if (::mkdirat(descriptor, name.c_str(), 0700) != 0)
                throw std::system_error(errno, std::generic_category(), "mkdirat");
            const int next = ::openat(descriptor, name.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
            ::close(descriptor);
            descriptor = next;
            path += "/" + name;
        }
        const int file = ::openat(descriptor, "file", O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
        EXPECT_EQ(::write(file, "text", 4), 4);
        ::close(file);
        EXPECT_EQ(::symlinkat("file", descriptor, "link"), 0);
        ::close(descriptor);
        return path;
    }

    TemporaryFolder temporary;
    LinuxFileSystem files;
};

} // namespace corvane

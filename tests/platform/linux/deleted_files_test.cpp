#include "platform/linux/deleted_files.h"

#include <numeric>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/file_descriptor.h"
#include "support/temporary_folder.h"

namespace corvane {
namespace {

std::int64_t heldBy(const std::string &program, const std::string &home)
{
    std::int64_t size = 0;
    for (const HeldFiles &held : openDeletedFiles(home)) {
        if (held.program == program)
            size += held.size;
    }
    return size;
}

TEST(DeletedFiles, OnesThatAreStillOpenAreCountedOnceForTheirProgram)
{
    // The folder's own file system is part of the disk that is asked for.
    const TemporaryFolder folder;
    const std::string program = "linux_platform_"; // as many characters as the kernel keeps of a name
    const std::int64_t before = heldBy(program, folder.path());
    const std::string path = folder.writeFile("held", 3'000'000);
    const FileDescriptor first(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    const FileDescriptor second(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    EXPECT_EQ(heldBy(program, folder.path()), before) << "it has its name yet";
    struct stat facts {};
    ASSERT_EQ(::fstat(first.number(), &facts), 0);
    ASSERT_EQ(::unlink(path.c_str()), 0);
    EXPECT_EQ(heldBy(program, folder.path()) - before, std::int64_t{facts.st_blocks} * 512);
}

TEST(DeletedFiles, MemoryIsNoDisk)
{
    const TemporaryFolder folder;
    const std::string program = "linux_platform_";
    const std::int64_t before = heldBy(program, folder.path());
    const FileDescriptor memory(::memfd_create("corvane-test", MFD_CLOEXEC));
    ASSERT_TRUE(memory.isOpen());
    ASSERT_EQ(::ftruncate(memory.number(), 1'000'000), 0);
    const std::string bytes(1'000'000, 'x');
    ASSERT_EQ(::write(memory.number(), bytes.data(), bytes.size()), 1'000'000);
    EXPECT_EQ(heldBy(program, folder.path()), before);
}

} // namespace
} // namespace corvane

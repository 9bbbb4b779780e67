#include "platform/linux/deleted_files.h"

#include <cstdlib>
#include <functional>
#include <string>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/file_descriptor.h"
#include "support/temporary_folder.h"

namespace corvane {
namespace {

std::int64_t heldBy(const std::string &program, const std::string &home)
{
    std::int64_t size = 0;
    for (const OpenDeletedFiles &held : openDeletedFiles(home)) {
        if (held.program == program)
            size += held.size;
    }
    return size;
}

/// Gives this process a unique name, because tests of one program may run in parallel.
std::string ownProgram()
{
    const std::string name = "held-" + std::to_string(::getpid()); // within the kernel's limit of 15 characters
    EXPECT_EQ(::prctl(PR_SET_NAME, name.c_str()), 0);
    return name;
}

TEST(DeletedFiles, OnesThatAreStillOpenAreCountedOnceForTheirProgram)
{
    // The folder's file system is part of the queried disk.
    const TemporaryFolder folder;
    const std::string program = ownProgram();
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

/// Runs in a forked child and returns its exit status.
int statusOfChild(const std::function<int()> &run)
{
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(run());
    int status = -1;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(DeletedFiles, OneThatTwoProgramsHoldCountsOnce)
{
    const TemporaryFolder folder;
    const std::string program = ownProgram();
    const std::int64_t before = heldBy(program, folder.path());
    const std::string path = folder.writeFile("held", 3'000'000);
    const FileDescriptor file(::open(path.c_str(), O_RDONLY));
    ASSERT_EQ(::unlink(path.c_str()), 0);
    const std::int64_t alone = heldBy(program, folder.path());
    EXPECT_GE(alone - before, 3'000'000);
    // The child has the file open too, and has its parent's name.
    EXPECT_EQ(statusOfChild([&] { return heldBy(program, folder.path()) == alone ? 0 : 1; }), 0);
}

TEST(DeletedFiles, OneOnAnotherFileSystemIsLeftOut)
{
    struct stat shared {};
    struct stat root {};
    if (::stat("/dev/shm", &shared) != 0 || ::stat("/", &root) != 0 || shared.st_dev == root.st_dev)
        GTEST_SKIP() << "there is no other file system to write to";
    const TemporaryFolder folder;
    const std::string program = ownProgram();
    const std::int64_t before = heldBy(program, folder.path());
    std::string path = "/dev/shm/corvane-test-XXXXXX";
    const FileDescriptor file(::mkstemp(path.data()));
    ASSERT_TRUE(file.isOpen());
    ASSERT_EQ(::unlink(path.c_str()), 0);
    const std::string bytes(1'000'000, 'x');
    ASSERT_EQ(::write(file.number(), bytes.data(), bytes.size()), 1'000'000);
    EXPECT_EQ(heldBy(program, folder.path()), before);
    EXPECT_GE(heldBy(program, "/dev/shm"), before + 1'000'000) << "there it is the home folder's";
}

TEST(DeletedFiles, AnOrdinaryUserSeesOnlyTheirOwnFiles)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "only the administrator has programs that another user may not look into";
    const TemporaryFolder folder;
    const std::string program = ownProgram();
    const std::string path = folder.writeFile("held", 3'000'000);
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    ASSERT_EQ(::unlink(path.c_str()), 0);
    const std::int64_t seen = heldBy(program, "/");
    ASSERT_GE(seen, 3'000'000);
    EXPECT_EQ(statusOfChild([&] {
                  constexpr uid_t nobody = 65'534;
                  ::close(file.number()); // its own copy
                  if (::setuid(nobody) != 0)
                      return 2;
                  return heldBy(program, "/") == 0 ? 0 : 1;
              }),
              0);
}

TEST(DeletedFiles, OneThatHasAnotherNameIsNotDeleted)
{
    const TemporaryFolder folder;
    const std::string program = ownProgram();
    const std::int64_t before = heldBy(program, folder.path());
    const std::string path = folder.writeFile("held (deleted)", 3'000'000);
    folder.hardLink("other", "held (deleted)");
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    EXPECT_EQ(heldBy(program, folder.path()), before);
    ASSERT_EQ(::unlink(path.c_str()), 0);
    EXPECT_EQ(heldBy(program, folder.path()), before);
}

TEST(DeletedFiles, FilesInMemoryAreLeftOut)
{
    const TemporaryFolder folder;
    const std::string program = ownProgram();
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

#include "cli/output.h"

#include <filesystem>
#include <string>
#include <system_error>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "cli/output_file.h"
#include "support/temporary_folder.h"

namespace corvane {

namespace {

int newFile(const std::string &path)
{
    return open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
}

TEST(Output, ClosingWritesWhatIsBuffered)
{
    const TemporaryFolder folder;
    const int file = newFile(folder / "out");
    Output output(file);
    output.write("text");
    output.close();
    EXPECT_FALSE(output.error());
    EXPECT_EQ(fcntl(file, F_GETFD), -1) << "the descriptor is closed";
    EXPECT_EQ(std::filesystem::file_size(folder / "out"), 4u);
}

TEST(Output, AnErrorOfClosingIsKept)
{
    const TemporaryFolder folder;
    const int file = newFile(folder / "out");
    Output output(file);
    output.write("text");
    output.flush();
    ASSERT_EQ(close(file), 0); // so that closing it again fails
    output.close();
    EXPECT_EQ(output.error(), std::errc::bad_file_descriptor);
}

TEST(Output, ADescriptorThatIsNotWrittenToMayBeClosed)
{
    Output output(-1);
    output.close();
    EXPECT_FALSE(output.error());
}

TEST(Output, AWriteErrorIsKeptAndFurtherTextIsDropped)
{
    Output output(-1);
    output.write("text");
    output.flush();
    EXPECT_TRUE(output.isClosed());
    EXPECT_EQ(output.error(), std::errc::bad_file_descriptor);
    output.write("more");
    output.close();
    EXPECT_EQ(output.error(), std::errc::bad_file_descriptor);
}

} // namespace

} // namespace corvane

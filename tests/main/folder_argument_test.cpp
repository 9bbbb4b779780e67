#include "main/folder_argument.h"

#include <filesystem>

#include <gtest/gtest.h>

#include "platform/host.h"
#include "support/temporary_folder.h"

namespace corvane {
namespace {

class FolderArgumentTest : public testing::Test {
protected:
    static Judged<std::string> judge(const std::string &argument)
    {
        return folderArgument(argument, systemHost().files);
    }
    static std::string refusal(const std::string &argument)
    {
        const Judged<std::string> judged = judge(argument);
        return judged ? "not refused" : judged.error();
    }

    TemporaryFolder m_folder;
};

TEST_F(FolderArgumentTest, TakesAPathByteForByte)
{
    for (const char *name : {"with blanks", "100%41", "\xff\xfe", "umlaut \xc3\xbc"}) {
        const std::string path = m_folder.makeFolder(name);
        EXPECT_EQ(judge(path), path);
    }
}

TEST_F(FolderArgumentTest, TakesAFileAddressWithItsEscapesUndone)
{
    const std::string path = m_folder.makeFolder("My Photos, 100%");
    for (const char *const begins : {"file://", "file://localhost", "file:", "FILE://"})
        EXPECT_EQ(judge(begins + m_folder.path() + "/My%20Photos,%20100%25"), path) << begins;
    const std::string bytes = m_folder.makeFolder("\xff");
    EXPECT_EQ(judge("file://" + m_folder.path() + "/%FF/"), bytes);
}

TEST_F(FolderArgumentTest, RefusesAnAddressThatNoDiskOfThisComputerHolds)
{
    for (const char *const address :
         {"sftp://host/home/ann", "smb://host/share", "trash:///", "file://host/home", "file:///a%00b"})
        EXPECT_EQ(refusal(address),
                  std::string(address) +
                      " is not on a disk of this computer; mount it and give the folder where it is mounted");
}

TEST_F(FolderArgumentTest, RefusesWhatIsNoFolderAlsoInAnAddress)
{
    const std::string file = m_folder.writeText("note", "");
    const std::string sentence = file + " is a file, not a folder; its folder is " + m_folder.path();
    EXPECT_EQ(refusal(file), sentence);
    EXPECT_EQ(refusal("file://" + file), sentence);
    EXPECT_EQ(refusal("file:///nope%20a/b"), "/nope a/b does not exist; the nearest folder that does is /");
}

TEST_F(FolderArgumentTest, AFolderThatLooksLikeAnAddressIsTakenWhereItExists)
{
    const std::string folder = m_folder.makeFolder("sftp:/host");
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(m_folder.path());
    EXPECT_EQ(judge("sftp:/host"), folder);
    std::filesystem::current_path(before);
}

TEST_F(FolderArgumentTest, TakesAProtectedFolder)
{
    EXPECT_EQ(judge("/usr"), "/usr");
}

} // namespace
} // namespace corvane

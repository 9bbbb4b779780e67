#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cleanup/cleanup_places_fixture.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(CleanupPlacesTest, TheTrashOfOtherVolumesCountsInTheRowOfTheTrash)
{
    files.addFile("/home/me/.local/share/Trash/files/old", 1'000);
    files.addFile("/media/stick/.Trash-1000/files/film", 4'000);
    files.addFile("/media/disk/.Trash/1000/files/song", 2'000);
    files.setVolumeTrashes({"/media/stick/.Trash-1000/files", "/media/disk/.Trash/1000/files"});
    measure();
    EXPECT_THAT(paths("trash"), ElementsAre("/media/stick/.Trash-1000/files/film", "/media/disk/.Trash/1000/files/song",
                                            "/home/me/.local/share/Trash/files/old"));
    EXPECT_EQ(item("trash").path, "/home/me/.local/share/Trash/files");
    EXPECT_EQ(safeTotal(items), 7'000);
}

TEST_F(CleanupPlacesTest, WithTheTrashOfAnotherVolumeAloneTheRowExists)
{
    files.addFile("/media/stick/.Trash-1000/files/film", 4'000);
    files.setVolumeTrashes({"/media/stick/.Trash-1000/files"});
    measure();
    EXPECT_TRUE(item("trash").exists);
    EXPECT_EQ(item("trash").total(), 4'000);
}

TEST_F(CleanupPlacesTest, OnAMacRootTheTrashIsThatOfTheHomeAlone)
{
    files.setSystemKind(SystemKind::mac);
    files.addFile("/media/stick/.Trash-1000/files/film", 4'000);
    files.setVolumeTrashes({"/media/stick/.Trash-1000/files"});
    measure();
    EXPECT_THAT(paths("trash"), IsEmpty());
}

TEST_F(CleanupPlacesTest, ATrashOfAVolumeThatReallyIsAUsersFolderIsRefused)
{
    files.addFile("/home/me/Documents/thesis/chapter", 4'000);
    files.addFile("/home/me/.ssh/id", 4'000);
    files.addMount({"/", 1, "/"});
    files.addMount({"/media/mounted/.Trash-1000/files", 1, "/home/me/Documents"});
    files.addFile("/media/mounted/.Trash-1000/files/letter", 4'000);
    int number = 0;
    std::vector<std::string> trashes{"/media/mounted/.Trash-1000/files", "/home/me/Documents", "/etc"};
    for (const char *target : {"/", "/home/me", "/home/me/Documents", "/home/me/Documents/thesis", "/home/me/.ssh"}) {
        trashes.push_back("/media/" + std::to_string(number++) + "/.Trash-1000/files");
        files.addFolder(trashes.back());
        files.take(trashes.back());
        files.addLink(trashes.back(), target);
    }
    files.setVolumeTrashes(trashes);
    measure();
    EXPECT_THAT(paths("trash"), IsEmpty());
}

} // namespace
} // namespace corvane

#include "core/words/system_words.h"

#include <regex>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "core/systems/disk_table.h"

namespace corvane {
namespace {

std::vector<std::string_view> sentencesOf(const SystemWords &words)
{
    return {words.invitation,        words.reveal,
            words.revealFolder,      words.diskSubtitle,
            words.nudgeTitle,        words.nudgeText,
            words.needsAccess,       words.blockedFolder,
            words.orphansText,       words.uninstallAdvice,
            words.bannerTitle,       words.bannerText,
            words.snapshotsTitle,    words.snapshotsText,
            words.snapshotsNote,     words.listSnapshots,
            words.thinSnapshots,     words.welcomeLine,
            words.accessTitle,       words.accessMissing,
            words.accessGranted,     words.includeSystemInfo,
            words.crashReportContent};
}

std::vector<std::string_view> sentencesOf(const DiskTable &table)
{
    std::vector<std::string_view> sentences{table.revealTitle,
                                            table.wholeDiskDetail,
                                            table.unmeasuredTitle,
                                            table.unmeasuredDetail,
                                            table.unmeasuredDetailWithDenied,
                                            table.grantTitle,
                                            table.overcountNote,
                                            table.noLayoutNote,
                                            table.sizesNote,
                                            table.reservedNote};
    const auto add = [&](const DiskPlace &place) {
        sentences.push_back(place.title);
        sentences.push_back(place.detail);
    };
    for (const DiskPlace &place : table.places)
        add(place);
    for (const DiskPlace *place : {table.swap, table.deletedFiles}) {
        if (place != nullptr)
            add(*place);
    }
    return sentences;
}

TEST(SystemWords, ALinuxSystemIsDescribedWithoutAWordOfAMac)
{
    std::vector<std::string_view> sentences = sentencesOf(wordsOf(SystemKind::linuxSystem));
    const std::vector<std::string_view> disk = sentencesOf(diskTableOf(SystemKind::linuxSystem));
    sentences.insert(sentences.end(), disk.begin(), disk.end());
    const std::regex wordsOfAMac(
        R"(\b(Finder|macOS|Mac|Full Disk Access|APFS|Homebrew|Time Machine|Xcode|Spotlight|iCloud)\b)");
    for (const std::string_view sentence : sentences)
        EXPECT_FALSE(std::regex_search(std::string(sentence), wordsOfAMac)) << sentence;
}

TEST(SystemWords, EveryPlaceHasARowOfItsOwn)
{
    const DiskTable &table = diskTableOf(SystemKind::linuxSystem);
    for (const DiskPlace &place : table.places) {
        EXPECT_FALSE(place.title.empty()) << place.id;
        EXPECT_TRUE(place.detail.ends_with('.')) << place.id;
        EXPECT_FALSE(place.symbol.empty()) << place.id;
        int sameTitle = 0;
        int sameId = 0;
        for (const DiskPlace &other : table.places) {
            sameTitle += other.title == place.title ? 1 : 0;
            sameId += other.id == place.id ? 1 : 0;
        }
        EXPECT_EQ(sameTitle, 1) << place.title;
        EXPECT_EQ(sameId, 1) << place.id;
    }
}

TEST(SystemWords, AMacsSentencesStandAsTheyAre)
{
    const SystemWords &words = wordsOf(SystemKind::mac);
    EXPECT_EQ(words.invitation, "See what fills this Mac");
    EXPECT_EQ(words.reveal, "Reveal in Finder");
    EXPECT_EQ(words.revealFolder, "Reveal Folder in Finder");
    EXPECT_EQ(words.needsAccess, "Needs Full Disk Access");
    EXPECT_EQ(words.blockedFolder, "macOS blocked access. Granting Full Disk Access usually fixes this.");
    EXPECT_EQ(words.listSnapshots, "tmutil listlocalsnapshots /");
    EXPECT_EQ(words.thinSnapshots, "sudo tmutil thinlocalsnapshots / 999999999999 4");
    EXPECT_EQ(words.welcomeLine, "See what's filling your Mac and sweep it out safely.");
    EXPECT_EQ(words.includeSystemInfo, "Include app version, macOS version and Mac model");
}

} // namespace
} // namespace corvane

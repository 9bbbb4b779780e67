#include "core/words/system_words.h"

#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "core/systems/apps_table.h"
#include "core/systems/cleanup_table.h"
#include "core/systems/disk_table.h"
#include "core/words/shared_texts.h"
#include "support/mac_words.h"

namespace corvane {
namespace {

std::vector<std::string_view> sentencesOf(const SystemWords &words)
{
    return {words.invitation,     words.reveal,         words.revealFolder,      words.diskSubtitle,
            words.nudgeTitle,     words.nudgeText,      words.needsAccess,       words.blockedFolder,
            words.blockedByOwner, words.orphansText,    words.uninstallAdvice,   words.bannerTitle,
            words.bannerText,     words.snapshotsTitle, words.snapshotsText,     words.snapshotsNote,
            words.listSnapshots,  words.thinSnapshots,  words.welcomeLine,       words.accessTitle,
            words.accessMissing,  words.accessGranted,  words.includeSystemInfo, words.crashReportContent,
            words.belongsTo,      words.deniedTo,       words.accessSteps[0],    words.accessSteps[1],
            words.accessSteps[2], words.dragHelp,       words.settingsFailure};
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
                                            table.snapshotNoun,
                                            table.snapshotsNoun,
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

std::vector<std::string_view> sentencesOf(const AppsTable &table)
{
    return {table.dataTitle, table.invitation, table.noApps};
}

std::vector<std::string_view> sentencesOf(const CleanupTable &table)
{
    std::vector<std::string_view> sentences;
    for (const CleanupDefinition &row : table.rows)
        sentences.insert(sentences.end(), {row.title, row.detail});
    for (const CommandDefinition &command : table.commands)
        sentences.insert(sentences.end(), {command.title, command.detail, command.command, command.deniedCommand});
    return sentences;
}

TEST(SystemWords, ALinuxSystemIsDescribedWithoutAWordOfAMac)
{
    std::vector<std::string_view> sentences = sentencesOf(wordsOf(SystemKind::linuxSystem));
    const auto add = [&](const std::vector<std::string_view> &more) {
        sentences.insert(sentences.end(), more.begin(), more.end());
    };
    add(sentencesOf(diskTableOf(SystemKind::linuxSystem)));
    add(sentencesOf(appsTableOf(SystemKind::linuxSystem)));
    add(sentencesOf(cleanupTableOf(SystemKind::linuxSystem)));
    for (const std::string_view sentence : sentences)
        EXPECT_EQ(macWordIn(std::string(sentence)), "") << sentence;
}

TEST(SystemWords, TheInvitationOfTheUninstallerNamesTheRowOfTheDeletedApps)
{
    const std::string row = "“" + std::string(orphansTitle) + "”";
    for (const SystemKind kind : {SystemKind::mac, SystemKind::linuxSystem})
        EXPECT_NE(appsTableOf(kind).invitation.find(row), std::string_view::npos) << appsTableOf(kind).invitation;
}

TEST(SystemWords, AWordOfAMacIsFoundWholeAndInItsOwnCase)
{
    for (const char *text : {"Reveal in Finder", "your Mac's disk", "the Macs", "asked by macOS.", "Full Disk Access",
                             "local Time Machine snapshots", "(APFS)", "Homebrew", "Xcode Archives", "⌘R"})
        EXPECT_NE(macWordIn(text), "") << text;
    for (const char *text : {"Virtual Machines", "a Machine", "Duplicate finder", "mac", "MACHINE", "full disk access"})
        EXPECT_EQ(macWordIn(text), "") << text;
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

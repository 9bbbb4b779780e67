// Compares the program's figures for a disk with those of df and du. Each test creates its own disk in its own mount
// namespace: no other process sees it, and it disappears with the namespace, however the test ends.

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <ostream>
#include <string>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <unistd.h>

#include "cli/program.h"
#include "support/temporary_folder.h"

namespace corvane {
namespace {

using nlohmann::json;

constexpr std::int64_t mb = 1'000'000;

/// How to create a disk at "$disk"; the shell command fails if that is not possible here.
struct DiskKind {
    const char *name;
    const char *script;
    bool needsRoot;
    bool keepsBack; ///< reserves a twentieth for the administrator

    friend std::ostream &operator<<(std::ostream &out, const DiskKind &kind) { return out << kind.name; }
};

constexpr std::array<DiskKind, 4> diskKinds{{
    {"tmpfs", "mount -t tmpfs -o size=900m none \"$disk\"", false, false},
    {"ext4", "truncate -s 900M image && mkfs.ext4 -q -m 5 image && mount -o loop image \"$disk\"", true, true},
    {"btrfs", "truncate -s 900M image && mkfs.btrfs -q image > /dev/null && mount -o loop image \"$disk\"", true,
     false},
    {"xfs", "truncate -s 900M image && mkfs.xfs -q image && mount -o loop image \"$disk\"", true, false},
}};

/// Runs the program in a root on a new disk, with "/usr" from this machine.
class DiskAgreement : public testing::TestWithParam<DiskKind> {
protected:
    /// The output of df, du and the program.
    struct Answers {
        std::int64_t used = 0; ///< from df
        std::int64_t available = 0;
        std::int64_t usedAtHome = 0; ///< of the file system of "/home", which may be the same one
        std::int64_t availableAtHome = 0;
        std::int64_t onDisk = 0; ///< from du
        json breakdown;
        std::string table;
        json scan;
        json breakdownOfUser; ///< as an ordinary user who owns the home; only if the tests run as root
    };

    /// Runs `fill` on the new disk, and the programs in its root. nullopt if no such disk can be created here. Their
    /// temporary files lie on another disk: a program that is built with ThreadSanitizer keeps 512 KB there while it
    /// runs, which df does not see.
    std::optional<Answers> ask(const std::string &fill)
    {
        const std::string make = R"sh(
set -eu
export PATH="$PATH:/usr/sbin:/sbin" LC_ALL=C
cd "$folder"
disk="$folder/disk"
mkdir -p disk answer
( )sh" + std::string(GetParam().script) +
                                 R"sh( ) || exit 77
cd disk
mkdir -p proc dev usr run/tools run/answer tmp var/log opt srv home/me root
)sh" + fill + R"sh(
sync -f .
cd /
exec bwrap --bind "$disk" / --ro-bind /usr /usr --symlink usr/lib /lib --symlink usr/lib64 /lib64 \
    --symlink usr/bin /bin --proc /proc --dev /dev --ro-bind "$tools" /run/tools --bind "$folder/answer" /run/answer \
    $binds --setenv HOME /home/me --setenv TMPDIR /run/answer bash -euc '
df -B1 --output=used,avail / /home | tail -n 2 > /run/answer/df
du -x -s --block-size=1 / > /run/answer/du || true
/run/tools/corvane-cli breakdown --json > /run/answer/breakdown
/run/tools/corvane-cli breakdown > /run/answer/table
/run/tools/corvane-cli scan / --json > /run/answer/scan || true
if [ -n "$user" ]; then
    setpriv --reuid=$user --regid=$user --clear-groups /run/tools/corvane-cli breakdown --json > /run/answer/user
fi'
)sh";
        const ProgramResult result = inNamespace({"bash", "-c", make, "bash"})
                                         .with("folder", folder.path())
                                         .with("tools", std::filesystem::path(Program::path()).parent_path())
                                         .with("binds", binds)
                                         .with("user", geteuid() == 0 ? std::to_string(nobody) : "")
                                         // Leak checking uses ptrace, which a sandbox forbids.
                                         .with("ASAN_OPTIONS", "detect_leaks=0")
                                         // The file of suppressions is not on the disk, and only Qt's code needs it.
                                         .with("TSAN_OPTIONS", "halt_on_error=1")
                                         .run();
        if (result.exitStatus == 77)
            return std::nullopt;
        EXPECT_EQ(result.exitStatus, 0) << result.out << result.errors;
        Answers answers;
        answer("df") >> answers.used >> answers.available >> answers.usedAtHome >> answers.availableAtHome;
        answer("du") >> answers.onDisk;
        answers.breakdown = json::parse(answer("breakdown"), nullptr, false);
        std::getline(answer("table"), answers.table, '\0');
        answers.scan = json::parse(answer("scan"), nullptr, false);
        if (geteuid() == 0)
            answers.breakdownOfUser = json::parse(answer("user"), nullptr, false);
        return answers;
    }

    void SetUp() override
    {
        if (GetParam().needsRoot && geteuid() != 0)
            GTEST_SKIP() << "only the administrator can mount an image";
        if (inNamespace({"bwrap", "--bind", "/", "/", "true"}).run().exitStatus != 0)
            GTEST_SKIP() << "no namespace or no sandbox can be made here";
    }

    [[nodiscard]] static std::int64_t sizeOf(const json &breakdown, const std::string &id)
    {
        for (const json &segment : breakdown["segments"]) {
            if (segment["id"] == id)
                return segment["size"];
        }
        return 0;
    }

    static void expectWithinOnePercent(std::int64_t told, std::int64_t expected)
    {
        EXPECT_NEAR(static_cast<double>(told), static_cast<double>(expected), static_cast<double>(expected) / 100);
    }

    TemporaryFolder folder;
    std::string binds; ///< additional sandbox arguments

private:
    /// Runs the program through a launcher with its own mount namespace.
    static Program inNamespace(std::vector<std::string> command)
    {
        std::vector<std::string> launcher{"unshare", "--mount", "--propagation", "private"};
        if (geteuid() != 0)
            launcher.insert(launcher.end(), {"--user", "--map-root-user"});
        std::ranges::move(command, std::back_inserter(launcher));
        return Program({}).through(std::move(launcher));
    }

    [[nodiscard]] std::ifstream answer(const std::string &name) const
    {
        return std::ifstream(folder / ("answer/" + name));
    }
};

#define ASK_OR_SKIP(answers, fill)                                                                                     \
    const auto answers = ask(fill);                                                                                    \
    if (!answers)                                                                                                      \
    GTEST_SKIP() << "no disk of this kind can be made here (its tools or loop devices are missing)"

const std::string manyKindsOfFiles = R"sh(
head -c 70000000 /dev/urandom > var/log/syslog
head -c 80000000 /dev/urandom > home/me/film
head -c 60000000 /dev/urandom > opt/app
truncate -s 5G home/me/sparse
head -c 100000 /dev/urandom > home/me/holes
dd if=/dev/urandom of=home/me/holes bs=4096 count=1 seek=100000 conv=notrunc status=none
head -c 300000 /dev/urandom > srv/a
for i in 1 2 3; do ln srv/a srv/name$i; done
ln -s "$(printf 'x%.0s' $(seq 1000))" srv/link
setfattr -n user.note -v "$(printf 'x%.0s' $(seq 200))" srv/a 2> /dev/null || true
deep=srv
for i in $(seq 60); do deep="$deep/d$i"; done
mkdir -p "$deep" srv/many srv/closed
echo x > "$deep/file"
for i in $(seq 3000); do echo "$i" > "srv/many/$i"; done
head -c 100000 /dev/urandom > srv/closed/x
chmod 0 srv/closed
)sh";

TEST_P(DiskAgreement, UsedAndAvailableAreDfsToTheByteAndFilesAndSegmentsAreDus)
{
    ASK_OR_SKIP(answers, manyKindsOfFiles);
    const json &breakdown = answers->breakdown;
    ASSERT_TRUE(breakdown.is_object());
    const auto total = breakdown["total"].get<std::int64_t>();
    const auto free = breakdown["free"].get<std::int64_t>();
    EXPECT_EQ(total - free, answers->used);
    EXPECT_EQ(free, answers->available);
    expectWithinOnePercent(answers->scan["bytes"], answers->onDisk);
    std::int64_t explained = 0;
    for (const json &segment : breakdown["segments"]) {
        if (segment["id"] != "hidden")
            explained += segment["size"].get<std::int64_t>();
    }
    EXPECT_LE(explained, total - free);
    EXPECT_GE(sizeOf(breakdown, "home"), 80 * mb);
    EXPECT_GE(sizeOf(breakdown, "/var/log"), 70 * mb);
    EXPECT_GE(sizeOf(breakdown, "/opt"), 60 * mb);
    EXPECT_LT(sizeOf(breakdown, "home"), 82 * mb) << "holes take nothing";
    EXPECT_EQ(breakdown["overcount"], 0);
    EXPECT_EQ(answers->table.find("back for the administrator") != std::string::npos, GetParam().keepsBack)
        << answers->table;
}

TEST_P(DiskAgreement, WhatIsMountedASecondTimeCountsOnceAndAnotherDiskNotAtAll)
{
    const std::string other = folder.makeFolder("other");
    folder.writeFile("other/film", 90'000'000);
    binds = "--bind " + folder / "disk" + "/var/log /srv/again --bind " + other + " /srv/other";
    ASK_OR_SKIP(answers, "head -c 70000000 /dev/urandom > var/log/syslog\nmkdir srv/again srv/other");
    ASSERT_TRUE(answers->breakdown.is_object());
    EXPECT_GE(sizeOf(answers->breakdown, "/var/log"), 70 * mb);
    EXPECT_EQ(sizeOf(answers->breakdown, "/srv"), 0);
    EXPECT_EQ(answers->breakdown["overcount"], 0);
    expectWithinOnePercent(answers->scan["bytes"], 70 * mb);
    EXPECT_EQ(answers->breakdown["free"], answers->available);
}

TEST_P(DiskAgreement, AHomeOnADiskOfItsOwnBelongsToTheDisk)
{
    binds = "--bind " + folder.makeFolder("second") + " /home";
    ASK_OR_SKIP(answers, R"sh(
mount -t tmpfs -o size=300m none "$folder/second"
mkdir "$folder/second/me"
head -c 80000000 /dev/urandom > "$folder/second/me/film"
head -c 70000000 /dev/urandom > var/log/syslog
)sh");
    const json &breakdown = answers->breakdown;
    ASSERT_TRUE(breakdown.is_object());
    EXPECT_GE(answers->usedAtHome, 80 * mb);
    EXPECT_EQ(breakdown["total"].get<std::int64_t>() - breakdown["free"].get<std::int64_t>(),
              answers->used + answers->usedAtHome);
    EXPECT_EQ(breakdown["free"], answers->available + answers->availableAtHome);
    EXPECT_GE(sizeOf(breakdown, "home"), 80 * mb);
    expectWithinOnePercent(answers->scan["bytes"], 150 * mb);
}

/// The percentage of the used space that the breakdown explains.
double explainedBy(const json &breakdown)
{
    const auto used = breakdown["total"].get<double>() - breakdown["free"].get<double>();
    return used > 0 ? 100 * (used - breakdown["hidden"].get<double>()) / used : 0;
}

INSTANTIATE_TEST_SUITE_P(OfDisks, DiskAgreement, testing::ValuesIn(diskKinds),
                         [](const auto &kind) { return std::string(kind.param.name); });

/// Disks large enough for a desktop, almost all of it sparse.
class DesktopAgreement : public DiskAgreement {};

// The proportions are those of a Debian desktop after some time of use, at a tenth of its size, with the same folders
// unreadable.
TEST_P(DesktopAgreement, TheAdministratorSeesNearlyAllAndAnOrdinaryUserMostOfADesktop)
{
    ASK_OR_SKIP(answers, R"sh(
file() { mkdir -p "$(dirname "$1")"; fallocate -l "$2" "$1"; }
mkdir -p var/lib/private var/log/private var/lib/docker home/other boot
file opt/browser/program 600000000
file var/lib/flatpak/repo/objects/0a 700000000
file var/cache/apt/archives/a.deb 550000000
file var/log/journal/machine/system.journal 150000000
file var/lib/dpkg/info/all 200000000
file boot/initrd.img 250000000
file home/me/Documents/letters 1200000000
file home/me/.cache/thumbnails 600000000
file home/other/Pictures/photos 80000000
file root/.bash_history 10000000
file var/lib/private/state 30000000
file var/log/private/log 10000000
file var/lib/docker/overlay2/layer 100000000
file etc/ssl/private/key 4000
chmod 700 root home/other home/me var/lib/private var/log/private etc/ssl/private
chmod 710 var/lib/docker
[ "$(id -u)" != 0 ] || chown -R "${user:-0}" home/me
)sh");
    ASSERT_TRUE(answers->breakdown.is_object());
    EXPECT_GE(explainedBy(answers->breakdown), 95) << answers->table;
    const json &user = answers->breakdownOfUser;
    ASSERT_TRUE(user.is_object());
    EXPECT_GE(explainedBy(user), 85);
    EXPECT_LT(explainedBy(user), explainedBy(answers->breakdown)) << "some folders are closed";
    EXPECT_EQ(user["total"], answers->breakdown["total"]);
}

constexpr std::array<DiskKind, 2> desktopDisks{{
    {"ext4", "truncate -s 8G image && mkfs.ext4 -q image && mount -o loop image \"$disk\"", true, true},
    {"btrfs", "truncate -s 8G image && mkfs.btrfs -q image > /dev/null && mount -o loop image \"$disk\"", true, false},
}};

INSTANTIATE_TEST_SUITE_P(OfDisks, DesktopAgreement, testing::ValuesIn(desktopDisks),
                         [](const auto &kind) { return std::string(kind.param.name); });

/// btrfs, with several volumes in one file system.
class VolumeAgreement : public DiskAgreement {};

TEST_P(VolumeAgreement, VolumesCountOnceAndTheirSnapshotsNotAtAll)
{
    binds = "--bind " + folder / "disk" + "/@home /home";
    ASK_OR_SKIP(answers, R"sh(
btrfs subvolume create @home > /dev/null
mkdir @home/me
head -c 80000000 /dev/urandom > @home/me/film
head -c 70000000 /dev/urandom > var/log/syslog
btrfs subvolume create .snapshots > /dev/null
for i in 1 2 3; do
    mkdir .snapshots/$i
    btrfs subvolume snapshot -r . .snapshots/$i/snapshot > /dev/null
done
)sh");
    const json &breakdown = answers->breakdown;
    ASSERT_TRUE(breakdown.is_object());
    EXPECT_EQ(breakdown["overcount"], 0) << breakdown.dump(1);
    EXPECT_GE(sizeOf(breakdown, "home"), 80 * mb);
    EXPECT_LT(sizeOf(breakdown, "/"), 50 * mb);
    expectWithinOnePercent(answers->scan["bytes"], 150 * mb);
    EXPECT_EQ(breakdown["total"].get<std::int64_t>() - breakdown["free"].get<std::int64_t>(), answers->used);
}

INSTANTIATE_TEST_SUITE_P(OfDisks, VolumeAgreement, testing::Values(diskKinds[2]),
                         [](const auto &kind) { return std::string(kind.param.name); });

} // namespace
} // namespace corvane

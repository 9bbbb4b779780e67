// Nothing is lost while another process swaps the items on the removal's paths. CORVANE_SWAPPED_REMOVALS sets the
// number of items per case; the default keeps the run short.

#include "platform/linux/probe_home.h"

#include <cstdlib>

#include <gmock/gmock.h>

namespace corvane {
namespace {

using ::testing::EndsWith;
using ::testing::StartsWith;

std::string removalsOfACase()
{
    const char *const wanted = std::getenv("CORVANE_SWAPPED_REMOVALS");
    return wanted != nullptr ? wanted : "250";
}

const std::vector<std::string> &ways()
{
    static const std::vector<std::string> all{"permanent", "trash", "within"};
    return all;
}

class SwappedRemovals : public ::testing::TestWithParam<std::tuple<std::string, std::string, std::string>> {
protected:
    [[nodiscard]] std::string way() const { return std::get<0>(GetParam()); }

    [[nodiscard]] std::string whichCase() const
    {
        return way() + "-" + std::get<1>(GetParam()) + "-" + std::get<2>(GetParam());
    }

    static void expectNoLoss(const std::string &report)
    {
        EXPECT_THAT(report, StartsWith(removalsOfACase() + " removals: "));
        EXPECT_THAT(report, EndsWith(" 0 lost"));
        ::testing::Test::RecordProperty("report", report);
    }

    const ProbeHome m_home;
};

TEST_P(SwappedRemovals, InTheHomeLoseNothing)
{
    const std::string folder = way() == "within" ? "home/data/Trash/files/old" : "home/work";
    expectNoLoss(
        m_home.runOther({CORVANE_SWAPPED_REMOVALS_PROGRAM, whichCase(), removalsOfACase(), m_home.folder / folder}));
}

TEST_P(SwappedRemovals, OnAnotherVolumeLoseNothing)
{
    if (!m_home.canMountDisks())
        GTEST_SKIP() << "this user or machine cannot mount a disk image";
    const std::string folder = way() == "within" ? "\"$PWD/.Trash-$user/files/old\"" : "\"$PWD/work\"";
    expectNoLoss(m_home.runOnDisk("DISK=$PWD " + std::string(CORVANE_SWAPPED_REMOVALS_PROGRAM) + " " + whichCase() +
                                  " " + removalsOfACase() + " " + folder));
}

INSTANTIATE_TEST_SUITE_P(Under, SwappedRemovals,
                         ::testing::Combine(::testing::ValuesIn(ways()), ::testing::Values("files", "folders"),
                                            ::testing::Values("exchange", "rename", "item")),
                         [](const auto &each) {
                             return std::get<0>(each.param) + "_" + std::get<1>(each.param) + "_" +
                                    std::get<2>(each.param);
                         });

} // namespace
} // namespace corvane

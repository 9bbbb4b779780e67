#include "disk/apfs_container_info.h"

#include <limits>

#include <gtest/gtest.h>

#include <fmt/format.h>

namespace corvane {
namespace {

APFSContainerInfo container(std::int64_t ceiling, std::vector<std::string> roles)
{
    return {ceiling, 0, {{"V", std::move(roles), 0}}};
}

std::string listing(const std::string &containers)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?><plist version=\"1.0\"><dict><key>Containers</key><array>" +
           containers + "</array></dict></plist>";
}

std::string integers(std::int64_t ceiling, std::int64_t free)
{
    return fmt::format("<key>CapacityCeiling</key><integer>{}</integer><key>CapacityFree</key><integer>{}</integer>",
                       ceiling, free);
}

constexpr std::int64_t total = 494'384'795'648;

TEST(APFSContainerChoice, ASystemContainerWithAFittingCeilingComesBeforeAnEarlierOneThatOnlyFits)
{
    const std::vector containers{container(total, {"Data"}), container(total + 999'999, {"System"})};
    EXPECT_EQ(APFSContainerInfo::choose(containers, total), containers[1]);
}

TEST(APFSContainerChoice, AnEarlierFittingContainerComesBeforeASystemContainerThatDoesNotFit)
{
    const std::vector containers{container(total, {"Data"}), container(total + 1'000'000, {"System"})};
    EXPECT_EQ(APFSContainerInfo::choose(containers, total), containers[0]);
}

TEST(APFSContainerChoice, ADifferenceOfExactlyOneMillionBytesDoesNotFit)
{
    EXPECT_EQ(APFSContainerInfo::choose({container(total - 1'000'000, {"Data"})}, total), std::nullopt);
    EXPECT_TRUE(APFSContainerInfo::choose({container(total - 999'999, {"Data"})}, total));
    EXPECT_TRUE(APFSContainerInfo::choose({container(total + 999'999, {"Data"})}, total));
}

TEST(APFSContainerChoice, AnUnknownTotalFallsToTheFirstSystemContainer)
{
    const std::vector containers{container(total, {"Data"}), container(2 * total, {"System"}),
                                 container(3 * total, {"System"})};
    EXPECT_EQ(APFSContainerInfo::choose(containers, 0), containers[1]);
}

TEST(APFSContainerChoice, OfSeveralThatFitEquallyTheFirstIsTaken)
{
    const std::vector system{container(total, {"Data"}), container(total, {"VM", "System"}),
                             container(total, {"System"})};
    EXPECT_EQ(APFSContainerInfo::choose(system, total), system[1]);
    const std::vector data{container(total + 5, {"Data"}), container(total, {"Data"})};
    EXPECT_EQ(APFSContainerInfo::choose(data, total), data[0]);
}

TEST(APFSContainerChoice, WhereNoneFitsTheFirstSystemContainerIsTaken)
{
    const std::vector containers{container(5, {"Data"}), container(9 * total, {"System"}), container(7, {"System"})};
    EXPECT_EQ(APFSContainerInfo::choose(containers, total), containers[1]);
}

TEST(APFSContainerChoice, FiguresAtTheEndsOfTheRangeDoNotOverflow)
{
    constexpr auto largest = std::numeric_limits<std::int64_t>::max();
    constexpr auto smallest = std::numeric_limits<std::int64_t>::min();
    EXPECT_EQ(APFSContainerInfo::choose({container(smallest, {"Data"})}, largest), std::nullopt);
    EXPECT_EQ(APFSContainerInfo::choose({container(largest, {"Data"})}, smallest), std::nullopt);
    EXPECT_TRUE(APFSContainerInfo::choose({container(largest, {"Data"})}, largest - 999'999));
    EXPECT_TRUE(APFSContainerInfo::choose({container(smallest, {"Data"})}, smallest + 999'999));
}

TEST(APFSContainerChoice, RolesAreComparedExactly)
{
    EXPECT_EQ(APFSContainerInfo::choose({container(5, {"system"})}, total), std::nullopt);
}

TEST(APFSContainerChoice, NoContainerFitsGivesNothing)
{
    EXPECT_EQ(APFSContainerInfo::choose({}, total), std::nullopt);
    EXPECT_EQ(APFSContainerInfo::choose({container(5, {"Data"})}, total), std::nullopt);
}

TEST(APFSContainerParsing, AContainerWithoutAFreeFigureIsSkippedAndTheOthersStay)
{
    const auto parsed = APFSContainerInfo::parse(
        listing("<dict><key>CapacityCeiling</key><integer>5</integer></dict><dict>" + integers(7, 3) + "</dict>"));
    ASSERT_TRUE(parsed);
    ASSERT_EQ(parsed->size(), 1u);
    EXPECT_EQ(parsed->front(), (APFSContainerInfo{7, 3, {}}));
}

TEST(APFSContainerParsing, AContainerWithoutACeilingIsSkipped)
{
    const auto parsed = APFSContainerInfo::parse(listing("<dict><key>CapacityFree</key><integer>5</integer></dict>"));
    ASSERT_TRUE(parsed);
    EXPECT_TRUE(parsed->empty());
}

TEST(APFSContainerParsing, AVolumesFieldsOfAnotherTypeHaveDefaults)
{
    const auto parsed = APFSContainerInfo::parse(
        listing("<dict>" + integers(7, 3) +
                "<key>Volumes</key><array><dict><key>Name</key><integer>1</integer><key>Roles</key><array><string>"
                "System</string><integer>1</integer></array><key>CapacityInUse</key><string>4</string></dict></array>"
                "</dict>"));
    ASSERT_TRUE(parsed);
    EXPECT_EQ(parsed->front().volumes, (std::vector<APFSVolumeInfo>{{"Volume", {}, 0}}));
}

TEST(APFSContainerParsing, VolumesWithSomethingElseAmongThemCountAsNone)
{
    const auto parsed = APFSContainerInfo::parse(
        listing("<dict>" + integers(7, 3) + "<key>Volumes</key><array><dict/><string>x</string></array></dict>"));
    ASSERT_TRUE(parsed);
    EXPECT_TRUE(parsed->front().volumes.empty());
}

TEST(APFSContainerParsing, ContainersAndVolumesKeepTheirOrder)
{
    const auto volume = [](const char *name) {
        return fmt::format("<dict><key>Name</key><string>{}</string></dict>", name);
    };
    const auto parsed =
        APFSContainerInfo::parse(listing("<dict>" + integers(9, 1) + "</dict><dict>" + integers(7, 3) +
                                         "<key>Volumes</key><array>" + volume("b") + volume("a") + "</array></dict>"));
    ASSERT_TRUE(parsed);
    EXPECT_EQ(*parsed, (std::vector<APFSContainerInfo>{{9, 1, {}}, {7, 3, {{"b", {}, 0}, {"a", {}, 0}}}}));
}

TEST(APFSContainerParsing, AListingThatIsCutOffIsAbsent)
{
    const std::string whole = listing("<dict>" + integers(7, 3) + "</dict>");
    for (std::size_t length = 0; length < whole.find("</dict></plist>"); ++length)
        EXPECT_EQ(APFSContainerInfo::parse(std::string_view(whole).substr(0, length)), std::nullopt) << length;
}

TEST(APFSContainerParsing, AVolumesMissingFieldsHaveDefaults)
{
    const auto parsed = APFSContainerInfo::parse(
        listing("<dict>" + integers(7, 3) + "<key>Volumes</key><array><dict/></array></dict>"));
    ASSERT_TRUE(parsed);
    ASSERT_EQ(parsed->front().volumes.size(), 1u);
    EXPECT_EQ(parsed->front().volumes.front(), (APFSVolumeInfo{"Volume", {}, 0}));
}

TEST(APFSContainerParsing, AVolumeCarriesNameRolesAndUse)
{
    const auto parsed = APFSContainerInfo::parse(listing(
        "<dict>" + integers(7, 3) +
        "<key>Volumes</key><array><dict><key>Name</key><string>Data</string><key>Roles</key><array><string>Data"
        "</string><string>Extra</string></array><key>CapacityInUse</key><integer>4</integer></dict></array></dict>"));
    ASSERT_TRUE(parsed);
    EXPECT_EQ(parsed->front().volumes.front(), (APFSVolumeInfo{"Data", {"Data", "Extra"}, 4}));
}

TEST(APFSContainerParsing, VolumesOfAnotherTypeCountAsNone)
{
    const auto parsed =
        APFSContainerInfo::parse(listing("<dict>" + integers(7, 3) + "<key>Volumes</key><string>x</string></dict>"));
    ASSERT_TRUE(parsed);
    EXPECT_TRUE(parsed->front().volumes.empty());
}

TEST(APFSContainerParsing, AFigureThatIsNoNumberDropsTheContainer)
{
    const auto parsed = APFSContainerInfo::parse(listing(
        "<dict><key>CapacityCeiling</key><string>7</string><key>CapacityFree</key><integer>3</integer></dict>"));
    ASSERT_TRUE(parsed);
    EXPECT_TRUE(parsed->empty());
}

TEST(APFSContainerParsing, AMalformedListingIsRejected)
{
    EXPECT_EQ(APFSContainerInfo::parse(""), std::nullopt);
    EXPECT_EQ(APFSContainerInfo::parse("garbage"), std::nullopt);
    EXPECT_EQ(APFSContainerInfo::parse("bplist00"), std::nullopt);
    EXPECT_EQ(APFSContainerInfo::parse("<plist version=\"1.0\"><array/></plist>"), std::nullopt);
    EXPECT_EQ(APFSContainerInfo::parse("<plist version=\"1.0\"><dict/></plist>"), std::nullopt);
    EXPECT_EQ(APFSContainerInfo::parse(listing("<string>x</string>")), std::nullopt);
}

} // namespace
} // namespace corvane

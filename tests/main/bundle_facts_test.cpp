#include <fstream>
#include <iterator>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "platform/property_list.h"

namespace corvane {
namespace {

TEST(BundleFacts, PropertyListNamesTheProgramAndWhereItsUpdatesComeFrom)
{
    std::ifstream file(CORVANE_INFO_PLIST, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    const std::optional<PropertyList> list = PropertyList::parse(bytes);
    ASSERT_TRUE(list) << bytes;
    const auto value = [&](const char *key) -> std::string {
        const PropertyList *const found = list->find(key);
        return found != nullptr && found->string() != nullptr ? *found->string() : "no text";
    };
    EXPECT_EQ(value("CFBundleExecutable"), "corvane");
    EXPECT_EQ(value("CFBundleIdentifier"), CORVANE_APP_ID);
    EXPECT_EQ(value("CFBundlePackageType"), "APPL");
    EXPECT_EQ(value("CFBundleShortVersionString"), "1.2.0");
    EXPECT_EQ(value("CFBundleVersion"), "10200");
    EXPECT_EQ(value("SUFeedURL"), "https://updates.example/feed.xml?a=1&b=2");
    EXPECT_EQ(value("SUPublicEDKey"), "a2V5");
}

} // namespace
} // namespace corvane

#include "apps/app_description.h"

#include <random>
#include <string>

#include <gtest/gtest.h>

#include "apps/name_pieces.h"

namespace corvane {
namespace {

TEST(AppDescriptionTest, HasTheNameAndTheNewestRelease)
{
    const std::string text = "<?xml version=\"1.0\"?><!-- <name>Wrong</name> --><component type=\"desktop\">\n"
                             "<name xml:lang=\"de\">Karte</name><name> Sea &amp; Chart </name>"
                             "<description><p>x</p></description><releases>\n"
                             "<release_note/><release date='2025-01-01'\n version='5.4.1'/><release version=\"5.3\"/>"
                             "</releases></component>";
    EXPECT_EQ(AppDescription::parse(text), (AppDescription{.name = "Sea & Chart", .version = "5.4.1"}));
}

TEST(AppDescriptionTest, TheDevelopersNameIsNotTheApplications)
{
    const std::string name = "<name>Sea Chart</name>";
    EXPECT_EQ(AppDescription::parse("<developer id=\"org.sea\"><name>Sea</name></developer>" + name).name, "Sea Chart");
    EXPECT_EQ(AppDescription::parse("<developer>\n<name>Sea</name>\n</developer >" + name).name, "Sea Chart");
    EXPECT_EQ(AppDescription::parse(name + "<developer><name>Sea</name></developer>").name, "Sea Chart");
    EXPECT_EQ(AppDescription::parse("<developer id=\"org.sea\"/>" + name).name, "Sea Chart");
    EXPECT_EQ(AppDescription::parse("<developer/>" + name).name, "Sea Chart");
    EXPECT_EQ(AppDescription::parse("<developer_name>Sea</developer_name>" + name).name, "Sea Chart");
    EXPECT_EQ(AppDescription::parse("<developer><name>Sea</name>").name, "");
    EXPECT_EQ(AppDescription::parse("<developer><name>Sea</name></developer><release version=\"1.2\"/>").version,
              "1.2");
}

TEST(AppDescriptionTest, InvalidVersionsAndNamesAreOmitted)
{
    EXPECT_EQ(AppDescription::parse("<release version=\"$(rm)\"/>").version, "");
    EXPECT_EQ(AppDescription::parse("<release version=\"" + std::string(100, '1') + "\"/>").version, "");
    EXPECT_EQ(AppDescription::parse("<release version=\"1").version, "");
    EXPECT_EQ(AppDescription::parse("<release apiversion=\"1\"/>").version, "");
    EXPECT_EQ(AppDescription::parse("<name>" + std::string(1'000, 'x') + "</name>").name, "");
    EXPECT_EQ(AppDescription::parse("<name>\xff</name>").name, "");
    EXPECT_EQ(AppDescription::parse("<name>a\nb</name>").name, "a b");
    EXPECT_EQ(AppDescription::parse("<name>").name, "");
    EXPECT_EQ(AppDescription::parse("<!-- <name>x</name>").name, "");
    EXPECT_EQ(AppDescription::parse("<!DOCTYPE a [<!ENTITY b \"c\">]><name>&b;</name>").name, "&b;");
}

TEST(AppDescriptionTest, InvalidInputDoesNotCrash)
{
    std::mt19937 random(3);
    const std::string alphabet = "<>/=\"' &;!-namerelsvion\n\xff";
    for (int round = 0; round < 3'000; ++round) {
        std::string text = "<release version=";
        for (int i = 0; i < 100; ++i)
            text += alphabet[random() % alphabet.size()];
        const std::string version = AppDescription::parse(text).version;
        EXPECT_TRUE(version.empty() || isPlainName(version));
    }
}

} // namespace
} // namespace corvane

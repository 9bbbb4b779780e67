#include "shell/updates/newest_update.h"

#include <gtest/gtest.h>

#include "shell/updates/feed_text.h"

namespace corvane {
namespace {

using Kind = UpdateFailure::Kind;

const QByteArray signature = QByteArray(64, 's').toBase64();

FeedItem item(const char *build)
{
    return {.build = build, .version = QByteArray("v") + build, .signature = signature};
}

tl::expected<std::optional<AppcastItem>, UpdateFailure> newestOf(const std::vector<FeedItem> &items,
                                                                 const char *running = "100")
{
    return newestUpdate(Appcast::parse(feedText(items)).value(), *DottedVersion::parse(QString::fromLatin1(running)),
                        {QStringLiteral("linux"), QStringLiteral("x86_64"), DottedVersion::parse(u"6.1")});
}

/// The build number of the offered update; empty if there is none.
QString offered(const std::vector<FeedItem> &items, const char *running = "100")
{
    const auto newest = newestOf(items, running);
    return newest && *newest ? (*newest)->version : QString();
}

std::optional<UpdateFailure> refusal(const std::vector<FeedItem> &items)
{
    const auto newest = newestOf(items);
    return newest ? std::nullopt : std::optional(newest.error());
}

TEST(NewestUpdate, IsThatOfTheHighestBuildNumberWhateverTheOrder)
{
    EXPECT_EQ(offered({item("101"), item("1000"), item("999")}), QStringLiteral("v1000"));
    EXPECT_EQ(offered({item("100.2"), item("100.10"), item("100.9")}), QStringLiteral("v100.10"));
}

TEST(NewestUpdate, AbsurdNumbersDoNotOverflow)
{
    EXPECT_EQ(offered({item("99999999999999999999999999999999"), item("18446744073709551616")}),
              QStringLiteral("v99999999999999999999999999999999"));
}

TEST(NewestUpdate, IsNoneWhenTheRunningVersionIsTheNewest)
{
    const auto newest = newestOf({item("99"), item("100")});
    ASSERT_TRUE(newest);
    EXPECT_FALSE(*newest);
}

TEST(NewestUpdate, OlderVersionIsRefused)
{
    EXPECT_EQ(refusal({item("98"), item("99")}), (UpdateFailure{Kind::onlyOlder, QStringLiteral("v99")}));
}

TEST(NewestUpdate, ItemsForOtherSystemsAreSkipped)
{
    const auto of = [](const char *build, const char *os) {
        FeedItem made = item(build);
        made.os = os;
        return made;
    };
    EXPECT_EQ(offered({of("101", "linux"), of("200", "macos"), of("300", "windows"), of("400", "linux-arm64")}),
              QStringLiteral("v101"));
    EXPECT_EQ(offered({of("101", "linux"), of("102", "linux-x86_64")}), QStringLiteral("v102"));
    EXPECT_EQ(offered({of("101", "linux"), of("103", "")}), QStringLiteral("v103"));
    EXPECT_EQ(refusal({of("200", "macos")}), UpdateFailure{Kind::nothingForSystem});
    EXPECT_EQ(refusal({}), UpdateFailure{Kind::nothingForSystem});
}

TEST(NewestUpdate, MinimumSystemVersionIsHonoured)
{
    const auto with = [](const char *build, const char *minimum) {
        FeedItem made = item(build);
        made.minimumSystem = minimum;
        return made;
    };
    EXPECT_EQ(offered({with("101", "6.1"), with("200", "6.2")}), QStringLiteral("v101"));
    EXPECT_EQ(refusal({with("200", "6.2")}), (UpdateFailure{Kind::newerSystemNeeded, QStringLiteral("6.2")}));
    EXPECT_EQ(refusal({item("100"), with("200", "6.10")}),
              (UpdateFailure{Kind::newerSystemNeeded, QStringLiteral("6.10")}));
}

TEST(NewestUpdate, UnsignedOneIsRefusedThoughAnOlderOneIsSigned)
{
    FeedItem newest = item("102");
    newest.signature = "";
    EXPECT_EQ(refusal({item("101"), newest}), UpdateFailure{Kind::notSigned});
}

TEST(NewestUpdate, DownloadThatIsNotOverHttpsIsRefused)
{
    for (const char *address : {"http://updates.example/a.deb", "file:///tmp/a.deb", "ftp://updates.example/a.deb"}) {
        FeedItem newest = item("102");
        newest.url = address;
        EXPECT_EQ(refusal({newest}), UpdateFailure{Kind::insecureDownload}) << address;
    }
}

TEST(NewestUpdate, ThisMachineHasAVersion)
{
    const UpdateSystem system = UpdateSystem::ofThisMachine();
    EXPECT_FALSE(system.name.isEmpty());
    EXPECT_FALSE(system.architecture.isEmpty());
    ASSERT_TRUE(system.version);
    EXPECT_GT(*system.version, *DottedVersion::parse(u"1"));
}

} // namespace
} // namespace corvane

#include "shell/updates/appcast.h"

#include <gtest/gtest.h>

#include "shell/updates/feed_text.h"

namespace corvane {
namespace {

std::vector<AppcastItem> itemsOf(const QByteArray &feed)
{
    const auto items = Appcast::parse(feed);
    EXPECT_TRUE(items) << feed.left(400).constData();
    return items.value_or(std::vector<AppcastItem>());
}

std::vector<AppcastItem> itemsOf(const FeedItem &item)
{
    return itemsOf(feedText({item}));
}

bool isMalformed(const QByteArray &feed)
{
    const auto items = Appcast::parse(feed);
    return !items && items.error() == Appcast::Failure::malformed;
}

const QByteArray signature = QByteArray(64, 's').toBase64();

TEST(Appcast, WholeItemIsRead)
{
    const auto items = itemsOf({.length = "34500000",
                                .signature = signature,
                                .os = "Linux",
                                .minimumSystem = "5.10",
                                .extra = "<sparkle:releaseNotesLink> https://corvane.example/1.2.0.html\n"
                                         "</sparkle:releaseNotesLink>"});
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(items[0].build, *DottedVersion::parse(u"10200"));
    EXPECT_EQ(items[0].version, QStringLiteral("1.2.0"));
    EXPECT_EQ(items[0].system, QStringLiteral("linux"));
    EXPECT_EQ(items[0].minimumSystem, DottedVersion::parse(u"5.10"));
    EXPECT_EQ(items[0].minimumSystemText, QStringLiteral("5.10"));
    EXPECT_EQ(items[0].download, QUrl(QStringLiteral("https://updates.example/corvane.deb")));
    EXPECT_EQ(items[0].length, 34'500'000);
    EXPECT_EQ(items[0].signature, QByteArray(64, 's'));
    EXPECT_EQ(items[0].releaseNotes, QUrl(QStringLiteral("https://corvane.example/1.2.0.html")));
}

TEST(Appcast, VersionsMayBeAttributesOfTheEnclosure)
{
    const auto items = itemsOf(R"(<rss xmlns:s="http://www.andymatuschak.org/xml-namespaces/sparkle"><channel><item>
        <enclosure url="https://u.example/a" s:version="7" s:shortVersionString="0.7"/>
        </item></channel></rss>)");
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(items[0].build, *DottedVersion::parse(u"7"));
    EXPECT_EQ(items[0].version, QStringLiteral("0.7"));
}

TEST(Appcast, BuildNumberServesWhereThereIsNoOtherVersion)
{
    const auto items = itemsOf({.version = ""});
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(items[0].version, QStringLiteral("10200"));
}

TEST(Appcast, ElementsOfAnotherNamespaceAreNotTheFrameworks)
{
    EXPECT_TRUE(
        itemsOf(R"(<rss xmlns:sparkle="https://other.example/"><channel><item><sparkle:version>7</sparkle:version>
        <enclosure url="https://u.example/a"/></item></channel></rss>)")
            .empty());
}

TEST(Appcast, ItemsThatCannotBeComparedOrFetchedAreLeftOut)
{
    EXPECT_TRUE(itemsOf({.build = ""}).empty());
    EXPECT_TRUE(itemsOf({.build = "two"}).empty());
    EXPECT_TRUE(itemsOf({.build = "<b>1</b>"}).empty());
    EXPECT_TRUE(itemsOf({.url = ""}).empty());
    EXPECT_TRUE(itemsOf({.url = "corvane.deb"}).empty());
    EXPECT_TRUE(itemsOf({.url = "https://[broken"}).empty());
    EXPECT_TRUE(itemsOf({.minimumSystem = "the newest"}).empty());
}

TEST(Appcast, ItemsOfAChannelThatMustBeChosenAreLeftOut)
{
    EXPECT_TRUE(itemsOf({.extra = "<sparkle:channel>beta</sparkle:channel>"}).empty());
}

TEST(Appcast, DifferencesToEarlierVersionsAreNotTheDownload)
{
    const auto items =
        itemsOf({.extra = R"(<sparkle:deltas><enclosure url="https://u.example/delta"/></sparkle:deltas>)"});
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(items[0].download.path(), QStringLiteral("/corvane.deb"));
}

TEST(Appcast, FirstEnclosureIsTheDownload)
{
    const auto items = itemsOf({.extra = R"(<enclosure url="https://u.example/first.rpm"/>)"});
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(items[0].download.path(), QStringLiteral("/first.rpm"));
}

TEST(Appcast, InvalidLengthIsIgnored)
{
    for (const char *length : {"", "0", "-5", "12x", "99999999999999999999"}) {
        const auto items = itemsOf({.length = length});
        ASSERT_EQ(items.size(), 1U);
        EXPECT_FALSE(items[0].length) << length;
    }
}

TEST(Appcast, MalformedSignatureIsIgnored)
{
    for (const QByteArray &text : {QByteArray("x"), QByteArray(64, '!'), QByteArray(63, 's').toBase64(),
                                   QByteArray(65, 's').toBase64(), signature + "!"}) {
        const auto items = itemsOf({.signature = text});
        ASSERT_EQ(items.size(), 1U);
        EXPECT_TRUE(items[0].signature.isEmpty()) << text.constData();
    }
}

TEST(Appcast, ReleaseNotesWithoutHttpsAreIgnored)
{
    for (const char *address : {"http://corvane.example/", "javascript:alert(1)", "file:///etc/passwd", "notes.html"}) {
        const auto items =
            itemsOf({.extra = "<sparkle:releaseNotesLink>" + QByteArray(address) + "</sparkle:releaseNotesLink>"});
        ASSERT_EQ(items.size(), 1U);
        EXPECT_TRUE(items[0].releaseNotes.isEmpty()) << address;
    }
}

TEST(Appcast, VersionIsSafeToShow)
{
    const auto items = itemsOf({.version = "1.0&#x202E;0.1\n 2" + QByteArray(100, '3')});
    ASSERT_EQ(items.size(), 1U);
    EXPECT_FALSE(items[0].version.contains(QChar(0x202E)));
    EXPECT_FALSE(items[0].version.contains(QLatin1Char('\n')));
    EXPECT_LE(items[0].version.size(), 40);
}

TEST(Appcast, ItemWithATooLongValueIsSkipped)
{
    const QByteArray longest(Appcast::maximumText, '3');
    EXPECT_EQ(itemsOf({.version = longest}).size(), 1U);
    EXPECT_TRUE(itemsOf({.version = longest + "3"}).empty());
    EXPECT_TRUE(itemsOf({.url = "https://u.example/" + longest}).empty());
}

TEST(Appcast, DocumentTypesAndEntitiesAreRefused)
{
    const QByteArray feed = feedText({{}});
    const qsizetype start = feed.indexOf("<rss");
    EXPECT_TRUE(isMalformed(QByteArray(feed).insert(start, "<!DOCTYPE rss>")));
    EXPECT_TRUE(
        isMalformed(QByteArray(feed).insert(start, "<!DOCTYPE rss [<!ENTITY a \"x\"><!ENTITY b \"&a;&a;&a;\">]>")));
    EXPECT_TRUE(isMalformed(QByteArray(feed).replace("1.2.0", "&version;")));
    EXPECT_EQ(itemsOf(QByteArray(feed).replace("1.2.0", "1 &amp; 2")).at(0).version, QStringLiteral("1 & 2"));
}

TEST(Appcast, MalformedXmlIsRefused)
{
    const QByteArray feed = feedText({{}, {}});
    EXPECT_TRUE(isMalformed({}));
    EXPECT_TRUE(isMalformed("not a feed"));
    EXPECT_TRUE(isMalformed("<html><body>404</body></html>"));
    EXPECT_TRUE(isMalformed(feed + "<rss/>"));
    EXPECT_TRUE(isMalformed(QByteArray(feed).replace("</channel>", "")));
    EXPECT_TRUE(isMalformed(QByteArray(feed).replace("1.2.0", "\xff\xfe")));
    for (qsizetype length = 0; length < feed.trimmed().size(); length += 7)
        EXPECT_TRUE(isMalformed(feed.left(length))) << length;
}

TEST(Appcast, DepthIsBounded)
{
    const auto nested = [](int depth) {
        return feedText({{.extra = QByteArray("<d>").repeated(depth) + QByteArray("</d>").repeated(depth)}});
    };
    constexpr int around = 3; // rss, channel, item
    EXPECT_EQ(itemsOf(nested(Appcast::maximumDepth - around)).size(), 1U);
    EXPECT_TRUE(isMalformed(nested(Appcast::maximumDepth - around + 1)));
    EXPECT_TRUE(isMalformed(nested(100'000)));
}

TEST(Appcast, NumberOfItemsIsBounded)
{
    std::vector<FeedItem> items(Appcast::maximumItems);
    EXPECT_EQ(itemsOf(feedText(items)).size(), items.size());
    items.emplace_back();
    EXPECT_TRUE(isMalformed(feedText(items)));
}

TEST(Appcast, SizeIsBounded)
{
    QByteArray feed = feedText({{}});
    feed += QByteArray(Appcast::maximumBytes - feed.size(), ' ');
    EXPECT_EQ(itemsOf(feed).size(), 1U);
    const auto items = Appcast::parse(feed + ' ');
    ASSERT_FALSE(items);
    EXPECT_EQ(items.error(), Appcast::Failure::tooLarge);
}

TEST(Appcast, FeedWithoutItemsIsAnEmptyList)
{
    EXPECT_TRUE(itemsOf(feedText({})).empty());
    EXPECT_TRUE(itemsOf("<rss/>").empty());
}

} // namespace
} // namespace corvane

#include "platform/bulk_attributes.h"

#include <random>
#include <string>
#include <vector>

#include <gmock/gmock.h>

namespace corvane {
namespace {

using ::testing::ElementsAre;

// The attribute groups as numbered in the system's headers, declared independently of the code under test.
constexpr std::uint32_t cmnName = 1U << 0, cmnType = 1U << 3, cmnModified = 1U << 10, cmnFinder = 1U << 14,
                        cmnNumber = 1U << 25, cmnError = 1U << 29, cmnReturned = 1U << 31;
constexpr std::uint32_t fileLinks = 1U << 0, fileTotal = 1U << 2, fileLength = 1U << 9, fileData = 1U << 10;
constexpr std::uint32_t regular = 1, directory = 2, link = 5, fifo = 7;

/// Packs one entry as the kernel does: fields in a fixed order aligned to four bytes, then the name, then zero padding
/// to a multiple of eight.
class Packed {
public:
    explicit Packed(std::string name) : m_name(std::move(name)) {}

    Packed &error(std::uint32_t code) { return common(cmnError, code); }
    Packed &type(std::uint32_t value) { return common(cmnType, value); }
    Packed &modified(std::int64_t seconds)
    {
        common(cmnModified, seconds);
        add(m_fields, std::int64_t{999'999'999});
        return *this;
    }
    Packed &finderFlags(std::uint16_t flags)
    {
        std::array<unsigned char, 32> info{};
        info.fill(0xFF);
        info[8] = static_cast<unsigned char>(flags >> 8);
        info[9] = static_cast<unsigned char>(flags & 0xFF);
        return common(cmnFinder, info);
    }
    Packed &number(std::uint64_t value) { return common(cmnNumber, value); }
    Packed &links(std::uint32_t count) { return file(fileLinks, count); }
    Packed &total(std::int64_t bytes) { return file(fileTotal, bytes); }
    Packed &length(std::int64_t bytes) { return file(fileLength, bytes); }
    Packed &data(std::int64_t bytes) { return file(fileData, bytes); }

    [[nodiscard]] std::string bytes() const
    {
        const std::uint32_t common = m_common | cmnReturned | cmnName;
        const std::size_t head = 4 + 20 + (m_common & cmnError ? 4U : 0U);
        const std::size_t nameStart = head + 8 + m_fields.size();
        const std::size_t whole = (nameStart + m_name.size() + 1 + 7) / 8 * 8;
        std::string result;
        add(result, static_cast<std::uint32_t>(whole));
        for (const std::uint32_t group : {common, 0U, 0U, m_file, 0U})
            add(result, group);
        if (m_common & cmnError)
            add(result, m_error);
        add(result, static_cast<std::int32_t>(nameStart - head));
        add(result, static_cast<std::uint32_t>(m_name.size() + 1));
        result += m_fields;
        result += m_name;
        result.resize(whole, '\0');
        return result;
    }

private:
    template <typename Value>
    static void add(std::string &to, const Value &value)
    {
        to.append(reinterpret_cast<const char *>(&value), sizeof value);
    }

    template <typename Value>
    Packed &common(std::uint32_t bit, const Value &value)
    {
        m_common |= bit;
        if constexpr (std::is_same_v<Value, std::uint32_t>) {
            if (bit == cmnError) {
                m_error = value;
                return *this;
            }
        }
        add(m_fields, value);
        return *this;
    }

    template <typename Value>
    Packed &file(std::uint32_t bit, Value value)
    {
        m_file |= bit;
        add(m_fields, value);
        return *this;
    }

    std::string m_name;
    std::string m_fields;
    std::uint32_t m_common = 0;
    std::uint32_t m_file = 0;
    std::uint32_t m_error = 0;
};

/// Holds the bytes at an offset of four from eight-byte alignment, as the second entry of a buffer may be, with no byte
/// to spare.
class Buffer {
public:
    explicit Buffer(const std::string &bytes) : m_storage(new std::byte[bytes.size() + 4]), m_size(bytes.size())
    {
        std::memcpy(m_storage.get() + 4, bytes.data(), bytes.size());
    }
    [[nodiscard]] std::span<const std::byte> span() const { return {m_storage.get() + 4, m_size}; }

private:
    std::unique_ptr<std::byte[]> m_storage;
    std::size_t m_size;
};

std::optional<BulkEntry> only(const Buffer &buffer)
{
    std::span<const std::byte> bytes = buffer.span();
    return takeBulkEntry(bytes);
}

TEST(BulkAttributes, FileHasItsAllocatedSizeAndItsDate)
{
    const Buffer buffer(
        Packed("movie.mov").type(regular).modified(1'700'000'000).finderFlags(0).total(8192).data(4096).bytes());
    const auto entry = only(buffer);
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->name, "movie.mov");
    EXPECT_EQ(entry->type, EntryType::file);
    EXPECT_EQ(entry->error, 0);
    EXPECT_EQ(entry->modified, Time(std::chrono::seconds(1'700'000'000)));
    EXPECT_EQ(entry->allocated, 8192);
}

TEST(BulkAttributes, SizeOfTheDataStandsInWhereTheTotalIsMissing)
{
    EXPECT_EQ(only(Buffer(Packed("f").type(regular).data(4096).bytes()))->allocated, 4096);
}

TEST(BulkAttributes, LengthOfTheDataStandsBeforeItsSpace)
{
    const auto entry = only(Buffer(Packed("a").type(regular).total(8192).length(5000).data(4096).bytes()));
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->length, 5000);
    EXPECT_EQ(entry->allocated, 8192);
}

TEST(BulkAttributes, SizeIsAbsentWhereTheSystemReportsNone)
{
    const Buffer buffer(Packed("f").type(regular).modified(5).bytes());
    EXPECT_EQ(only(buffer)->allocated, std::nullopt);
    EXPECT_EQ(only(buffer)->modified, Time(std::chrono::seconds(5)));
}

TEST(BulkAttributes, LinksAndFoldersAreDistinguishedFromEverythingElse)
{
    EXPECT_EQ(only(Buffer(Packed("l").type(link).total(0).bytes()))->type, EntryType::symbolicLink);
    EXPECT_EQ(only(Buffer(Packed("d").type(directory).bytes()))->type, EntryType::directory);
    EXPECT_EQ(only(Buffer(Packed("p").type(fifo).total(0).bytes()))->type, EntryType::file);
}

TEST(BulkAttributes, FinderFlagOfABundleIsReadAsBigEndian)
{
    EXPECT_TRUE(only(Buffer(Packed("d").type(directory).finderFlags(0x2000).bytes()))->hasBundleBit);
    EXPECT_FALSE(only(Buffer(Packed("d").type(directory).finderFlags(0xDFFF).bytes()))->hasBundleBit);
    EXPECT_FALSE(only(Buffer(Packed("d").type(directory).finderFlags(0x0020).bytes()))->hasBundleBit);
    EXPECT_FALSE(only(Buffer(Packed("d").type(directory).bytes()))->hasBundleBit);
}

TEST(BulkAttributes, EntryThatFailedHasItsNameAndItsError)
{
    const Buffer buffer(Packed("odd").error(13).bytes());
    const auto entry = only(buffer);
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->name, "odd");
    EXPECT_EQ(entry->error, 13);
    EXPECT_EQ(entry->type, std::nullopt);
    EXPECT_EQ(entry->allocated, std::nullopt);
    EXPECT_FALSE(entry->isComplete());
}

TEST(BulkAttributes, FileHasItsInodeAndItsNumberOfLinks)
{
    // The count of names takes four bytes, so the following field is at an odd multiple of four.
    const Buffer buffer(
        Packed("hard").type(regular).modified(7).number(0xFEDC'BA98'7654'3210).links(3).total(4096).data(2048).bytes());
    const auto entry = only(buffer);
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->fileNumber, 0xFEDC'BA98'7654'3210U);
    EXPECT_EQ(entry->links, 3U);
    EXPECT_EQ(entry->allocated, 4096);
    EXPECT_TRUE(entry->isComplete());
}

TEST(BulkAttributes, EachAttributeMayBeMissing)
{
    const auto pack = [](unsigned fields) {
        Packed entry("any");
        if (fields & 1U)
            entry.type(regular);
        if (fields & 2U)
            entry.modified(11);
        if (fields & 4U)
            entry.finderFlags(0);
        if (fields & 8U)
            entry.number(12);
        if (fields & 16U)
            entry.links(13);
        if (fields & 32U)
            entry.total(14);
        if (fields & 64U)
            entry.data(15);
        return entry.bytes();
    };
    for (unsigned fields = 0; fields < 128; ++fields) {
        const Buffer buffer(pack(fields));
        const auto entry = only(buffer);
        ASSERT_TRUE(entry) << fields;
        EXPECT_EQ(entry->name, "any");
        EXPECT_EQ(entry->type.has_value(), (fields & 1U) != 0) << fields;
        EXPECT_EQ(entry->modified.has_value(), (fields & 2U) != 0) << fields;
        EXPECT_EQ(entry->fileNumber, fields & 8U ? 12U : 0U) << fields;
        EXPECT_EQ(entry->links, fields & 16U ? 13U : 1U) << fields;
        EXPECT_EQ(entry->allocated.value_or(0), fields & 32U ? 14 : fields & 64U ? 15 : 0) << fields;
        EXPECT_EQ(entry->isComplete(), (fields & 1U) != 0 && (fields & 96U) != 0) << fields;
    }
}

TEST(BulkAttributes, FolderIsCompleteWithoutASize)
{
    EXPECT_TRUE(only(Buffer(Packed("d").type(directory).bytes()))->isComplete());
    EXPECT_FALSE(only(Buffer(Packed("d").error(13).type(directory).bytes()))->isComplete());
}

TEST(BulkAttributes, EntryWithFieldsThatWereNotAskedForIsNone)
{
    const std::string whole = Packed("name").type(regular).total(1).bytes();
    constexpr std::size_t groups = 4; // offset of the five words of attribute groups
    for (const auto &[group, bit] : {std::pair{0U, 1U << 18}, {1U, 1U}, {2U, 4U}, {3U, 2U}, {4U, 1U}}) {
        std::string bytes = whole;
        std::uint32_t returned = 0;
        std::memcpy(&returned, bytes.data() + groups + group * 4, sizeof returned);
        returned |= bit;
        std::memcpy(bytes.data() + groups + group * 4, &returned, sizeof returned);
        EXPECT_FALSE(only(Buffer(bytes))) << group;
    }
    EXPECT_TRUE(only(Buffer(whole)));
}

TEST(BulkAttributes, NameMayEndWhereTheBufferEnds)
{
    // Three letters and a null byte fill the last eight bytes: the entry has no padding.
    const std::string bytes = Packed("123").type(regular).total(1).bytes();
    ASSERT_EQ(bytes.back(), '\0');
    ASSERT_EQ(bytes[bytes.size() - 2], '3');
    EXPECT_EQ(only(Buffer(bytes))->name, "123");
}

TEST(BulkAttributes, EntryWithAnImpossibleLengthIsRejected)
{
    const std::string whole = Packed("name").type(regular).total(1).bytes();
    for (const std::uint32_t length :
         {0U, 1U, 4U, 23U, static_cast<std::uint32_t>(whole.size()) + 1, 0x8000'0000U, 0xFFFF'FFFFU}) {
        std::string bytes = whole;
        std::memcpy(bytes.data(), &length, sizeof length);
        EXPECT_FALSE(only(Buffer(bytes))) << length;
    }
}

TEST(BulkAttributes, DateBefore1970IsKept)
{
    EXPECT_EQ(only(Buffer(Packed("f").type(regular).modified(-86400).bytes()))->modified,
              Time(std::chrono::seconds(-86400)));
}

TEST(BulkAttributes, EntriesFollowEachOtherWhateverTheyHold)
{
    const Buffer buffer(Packed("a").type(regular).total(1).bytes() + Packed("gone").error(2).bytes() +
                        Packed("folder.app").type(directory).finderFlags(0x2000).bytes() +
                        Packed(std::string(255, 'n')).type(regular).modified(1).total(3).data(2).bytes() +
                        std::string(64, '\x7f'));
    std::span<const std::byte> bytes = buffer.span();
    std::vector<std::string> names;
    for (int count = 4; count > 0; --count) {
        const auto entry = takeBulkEntry(bytes);
        ASSERT_TRUE(entry);
        names.emplace_back(entry->name);
    }
    EXPECT_THAT(names, ElementsAre("a", "gone", "folder.app", std::string(255, 'n')));
    EXPECT_EQ(bytes.size(), 64U);
}

TEST(BulkAttributes, NameOfAnyBytesIsKept)
{
    const Buffer buffer(Packed("\xff\n\"\\").type(regular).total(0).bytes());
    EXPECT_EQ(only(buffer)->name, "\xff\n\"\\");
}

TEST(BulkAttributes, TruncatedEntryIsRejected)
{
    const std::string whole = Packed("name").type(regular).modified(1).finderFlags(0).total(1).data(1).bytes();
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_FALSE(only(Buffer(whole.substr(0, size)))) << size;
}

TEST(BulkAttributes, NameOutsideItsEntryIsNone)
{
    const std::string next = Packed("neighbour").type(regular).bytes();
    for (const std::int32_t offset : {-1000, 200, 2'000'000'000}) {
        std::string bytes = Packed("name").type(regular).bytes();
        std::memcpy(bytes.data() + 24, &offset, sizeof offset);
        EXPECT_FALSE(only(Buffer(bytes + next))) << offset;
    }
    for (const std::uint32_t length : {0U, 1U, 60U, 0xFFFF'FFFFU}) { // 1 is the null byte alone: an empty name
        std::string bytes = Packed("name").type(regular).bytes();
        std::memcpy(bytes.data() + 28, &length, sizeof length);
        EXPECT_FALSE(only(Buffer(bytes + next))) << length;
    }
}

TEST(BulkAttributes, DamagedBytesAreNeverReadBeyondTheirEnd)
{
    const std::string whole = Packed("name").type(regular).modified(1).finderFlags(0).total(1).data(1).bytes() +
                              Packed("other").error(1).bytes();
    std::mt19937 random(20'240'613);
    std::uniform_int_distribution<std::size_t> anyPlace(0, whole.size() - 1);
    std::uniform_int_distribution<int> anyByte(0, 255);
    std::size_t taken = 0;
    for (int round = 0; round < 20'000; ++round) {
        std::string bytes = whole;
        for (int change = 0; change < 4; ++change)
            bytes[anyPlace(random)] = static_cast<char>(anyByte(random));
        const Buffer buffer(bytes);
        std::span<const std::byte> rest = buffer.span();
        while (const auto entry = takeBulkEntry(rest))
            taken += entry->name.size();
        ASSERT_LE(rest.size(), bytes.size());
    }
    EXPECT_GT(taken, 0U);
}

} // namespace
} // namespace corvane

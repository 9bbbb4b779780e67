#include "platform/posix/property_list_guard.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <vector>

namespace corvane {

namespace {

// No tool creates lists deeper than this.
constexpr std::size_t depthLimit = 64;
// Far beyond any listing of disks or any application's metadata.
constexpr std::size_t valueLimit = 1'000'000;
constexpr std::size_t copiedBytesLimit = 64'000'000;
// The library moves the rest of a text for each "&" in it: this many bytes take a tenth of a second.
constexpr std::size_t movedBytesLimit = 2'000'000'000;

// --- XML

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

/// Reads only what determines the nesting depth.
class XmlReader {
public:
    explicit XmlReader(std::string_view text) : m_text(text) {}

    bool isHarmless()
    {
        if (m_text.find('\0') != std::string_view::npos || namesZero())
            return false;
        for (std::size_t tags = 0; readText(); ++tags) {
            if (m_position == m_text.size())
                return true;
            if (tags > 2 * valueLimit || !readMarkup() || m_depth > depthLimit)
                return false;
        }
        return false;
    }

private:
    /// Advances to the next "<" or the end; false if replacing its entities would take too long.
    bool readText()
    {
        const std::string_view text =
            m_text.substr(m_position, std::min(m_text.find('<', m_position), m_text.size()) - m_position);
        m_position += text.size();
        const auto entities = static_cast<std::size_t>(std::ranges::count(text, '&'));
        if (entities > 0 && text.size() > (movedBytesLimit - m_movedBytes) / entities)
            return false;
        m_movedBytes += entities * text.size();
        return true;
    }

    /// Whether the text contains a numeric reference to NUL.
    [[nodiscard]] bool namesZero() const
    {
        for (std::size_t at = m_text.find("&#"); at != std::string_view::npos; at = m_text.find("&#", at + 1)) {
            const std::size_t other = m_text.find_first_not_of('0', m_text.find_first_not_of("xX", at + 2));
            if (other == std::string_view::npos || m_text[other] == ';')
                return true;
        }
        return false;
    }

    /// Reads the markup that starts with "<" at the position; false if it is not allowed there.
    bool readMarkup()
    {
        if (isNext("<!--"))
            return skipBehind("-->", 4);
        if (isNext("<![CDATA["))
            return skipBehind("]]>", 9);
        if (isNext("<?"))
            return skipBehind("?>", 2);
        if (isNext("<!")) {
            // A document type with entity definitions of its own does not occur in property lists.
            const std::size_t start = m_position;
            return isNext("<!DOCTYPE") && skipBehind(">", 9) &&
                   m_text.substr(start, m_position - start).find('[') == std::string_view::npos;
        }
        return readTag();
    }

    bool readTag()
    {
        ++m_position;
        const bool isEnd = isNext("/");
        if (isEnd)
            ++m_position;
        const std::string_view name =
            m_text.substr(m_position, m_text.find_first_of(" \t\r\n/<>", m_position) - m_position);
        m_position += name.size();
        if (name != "array" && name != "dict")
            return true;
        while (m_position < m_text.size() && isBlank(m_text[m_position]))
            ++m_position;
        if (isEnd) {
            m_depth -= m_depth > 0 ? 1 : 0;
            return isNext(">");
        }
        if (isNext("/>"))
            return true;
        ++m_depth;
        return isNext(">"); // neither may have attributes
    }

    [[nodiscard]] bool isNext(std::string_view text) const { return m_text.substr(m_position).starts_with(text); }

    bool skipBehind(std::string_view end, std::size_t beginning)
    {
        const std::size_t found = m_text.find(end, m_position + beginning);
        if (found == std::string_view::npos)
            return false;
        m_position = found + end.size();
        return true;
    }

    std::string_view m_text;
    std::size_t m_position = 0;
    std::size_t m_depth = 0;
    std::size_t m_movedBytes = 0;
};

// --- Binary

/// Visits the top value and all values it references, once per reference.
class BinaryReader {
public:
    explicit BinaryReader(std::string_view bytes) : m_bytes(bytes) {}

    bool isHarmless()
    {
        if (!readTrailer() || !enter(m_top))
            return false;
        while (!m_open.empty()) {
            List &list = m_open.back();
            if (list.next == list.end) {
                m_open.pop_back();
                continue;
            }
            const auto value = number(list.next, m_referenceSize);
            list.next += m_referenceSize;
            if (!value || !enter(*value))
                return false;
        }
        return true;
    }

private:
    /// References still to be followed, from `next` to `end` in the bytes.
    struct List {
        std::size_t next;
        std::size_t end;
    };

    bool readTrailer()
    {
        constexpr std::size_t length = 32;
        if (m_bytes.size() < binaryPropertyListMark.size() + length)
            return false;
        const std::size_t start = m_bytes.size() - length;
        m_offsetSize = static_cast<unsigned char>(m_bytes[start + 6]);
        m_referenceSize = static_cast<unsigned char>(m_bytes[start + 7]);
        m_count = *number(start + 8, 8);
        m_top = *number(start + 16, 8);
        m_table = *number(start + 24, 8);
        return m_offsetSize >= 1 && m_offsetSize <= 8 && m_referenceSize >= 1 && m_referenceSize <= 8 &&
               m_table <= start && m_count <= (start - m_table) / m_offsetSize;
    }

    /// An integer of that many bytes, if it is in range.
    [[nodiscard]] std::optional<std::uint64_t> number(std::uint64_t position, std::uint64_t length) const
    {
        if (position > m_bytes.size() || length > m_bytes.size() - position || length > 8)
            return std::nullopt;
        std::uint64_t value = 0;
        for (std::uint64_t i = 0; i < length; ++i)
            value = value << 8U | static_cast<unsigned char>(m_bytes[position + i]);
        return value;
    }

    /// Counts a value and schedules its references.
    bool enter(std::uint64_t value)
    {
        if (value >= m_count || ++m_values > valueLimit)
            return false;
        const auto position = number(m_table + value * m_offsetSize, m_offsetSize);
        if (!position)
            return false;
        const auto mark = number(*position, 1);
        if (!mark)
            return false;
        std::uint64_t start = *position + 1;
        const std::uint64_t kind = *mark >> 4U;
        std::uint64_t size = *mark & 0xfU;
        if (size == 0xf && kind >= 0x4 && !readLongSize(start, size))
            return false;
        switch (kind) {
        case 0x0: // booleans
            return true;
        case 0x1: // for numbers and dates, the size field is a power of two
        case 0x2:
        case 0x3:
            return size <= 4 && copy(start, std::uint64_t{1} << size, 1);
        case 0x8:
            return copy(start, size + 1, 1);
        case 0x4:
            return copy(start, size, 1);
        case 0x5:
            return copy(start, size, 1) && !holdsZero(start, size, 1);
        case 0x6:
            return copy(start, size, 2) && !holdsZero(start, size, 2);
        case 0xa:
        case 0xc:
            return open(start, size, 1);
        case 0xd:
            return open(start, size, 2);
        default:
            return false;
        }
    }

    /// The size stored as a separate number after the marker.
    bool readLongSize(std::uint64_t &start, std::uint64_t &size) const
    {
        const auto mark = number(start, 1);
        if (!mark || *mark >> 4U != 0x1 || (*mark & 0xfU) > 3)
            return false;
        const std::uint64_t length = std::uint64_t{1} << (*mark & 0xfU);
        const auto value = number(start + 1, length);
        if (!value)
            return false;
        start += 1 + length;
        size = *value;
        return true;
    }

    [[nodiscard]] bool lieInside(std::uint64_t start, std::uint64_t count, std::uint64_t each) const
    {
        return start <= m_bytes.size() && count <= (m_bytes.size() - start) / each;
    }

    bool copy(std::uint64_t start, std::uint64_t count, std::uint64_t each)
    {
        if (!lieInside(start, count, each))
            return false;
        m_copiedBytes += count * each;
        return m_copiedBytes <= copiedBytesLimit;
    }

    /// Whether a text contains NUL, given its number of characters and the bytes of each.
    [[nodiscard]] bool holdsZero(std::uint64_t start, std::uint64_t count, std::uint64_t each) const
    {
        for (std::uint64_t i = 0; i < count; ++i) {
            if (number(start + i * each, each) == 0)
                return true;
        }
        return false;
    }

    bool open(std::uint64_t start, std::uint64_t count, std::uint64_t referencesEach)
    {
        const std::uint64_t each = referencesEach * m_referenceSize;
        if (m_open.size() == depthLimit || !lieInside(start, count, each))
            return false;
        m_open.push_back({start, start + count * each});
        return true;
    }

    std::string_view m_bytes;
    std::uint64_t m_offsetSize = 0;
    std::uint64_t m_referenceSize = 0;
    std::uint64_t m_count = 0;
    std::uint64_t m_top = 0;
    std::uint64_t m_table = 0;

    std::size_t m_values = 0;
    std::uint64_t m_copiedBytes = 0;
    std::vector<List> m_open; // from the outermost to the innermost
};

} // namespace

bool isHarmlessPropertyList(std::string_view bytes)
{
    return bytes.starts_with(binaryPropertyListMark) ? BinaryReader(bytes).isHarmless() : XmlReader(bytes).isHarmless();
}

} // namespace corvane

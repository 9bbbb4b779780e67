#include "platform/linux/crash_report_text.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace corvane {

namespace {

// Indices in ModuleFinder::m_numbers.
constexpr std::size_t startNumber = 0;
constexpr std::size_t endNumber = 1;
constexpr std::size_t offsetNumber = 2;
constexpr std::size_t inodeNumber = 3;

unsigned digitOf(char c)
{
    return static_cast<unsigned>(c >= 'a' ? c - 'a' + 10 : c - '0');
}

} // namespace

ReportText &ReportText::add(std::string_view text)
{
    text = text.substr(0, m_buffer.size() - m_size);
    std::ranges::copy(text, m_buffer.subspan(m_size).begin());
    m_size += text.size();
    return *this;
}

ReportText &ReportText::addHarmless(std::string_view text)
{
    for (const char c : text) {
        const char shown = harmlessCharacter(c);
        add({&shown, 1});
    }
    return *this;
}

ReportText &ReportText::addDecimal(std::int64_t number)
{
    std::array<char, 20> digits{};
    std::size_t first = digits.size();
    std::uint64_t rest = number < 0 ? 0 - static_cast<std::uint64_t>(number) : static_cast<std::uint64_t>(number);
    do {
        digits[--first] = static_cast<char>('0' + rest % 10);
        rest /= 10;
    } while (rest != 0);
    return add(number < 0 ? "-" : "").add({digits.data() + first, digits.size() - first});
}

ReportText &ReportText::addHexadecimal(std::uint64_t number)
{
    std::array<char, 16> digits{};
    std::size_t first = digits.size();
    do {
        digits[--first] = "0123456789abcdef"[number % 16];
        number /= 16;
    } while (number != 0);
    return add("0x").add({digits.data() + first, digits.size() - first});
}

void ReportText::addTwoDigits(unsigned number)
{
    add(number < 10 ? "0" : "").addDecimal(number);
}

ReportText &ReportText::addTime(std::int64_t seconds, std::string_view between, std::string_view colon)
{
    const std::chrono::sys_seconds time{std::chrono::seconds(seconds)};
    const auto day = std::chrono::floor<std::chrono::days>(time);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss clock(time - day);
    addDecimal(static_cast<int>(date.year())).add("-");
    addTwoDigits(static_cast<unsigned>(date.month()));
    add("-");
    addTwoDigits(static_cast<unsigned>(date.day()));
    add(between);
    addTwoDigits(static_cast<unsigned>(clock.hours().count()));
    add(colon);
    addTwoDigits(static_cast<unsigned>(clock.minutes().count()));
    add(colon);
    addTwoDigits(static_cast<unsigned>(clock.seconds().count()));
    return *this;
}

ModuleFinder::ModuleFinder(std::span<void *const> addresses, std::span<Module> modules)
    : m_addresses(addresses), m_modules(modules)
{
    std::ranges::fill(m_modules.first(m_addresses.size()), Module{});
}

void ModuleFinder::take(std::string_view piece)
{
    for (const char c : piece)
        takeCharacter(c);
}

// "55d0-55d9 r-xp 00001000 08:01 1234      /usr/bin/name"; the name may contain spaces.
void ModuleFinder::takeCharacter(char c)
{
    constexpr std::size_t nameField = 5;
    if (c == '\n') {
        endLine();
        m_field = 0;
        m_numbers = {};
        m_module.nameSize = 0;
        return;
    }
    if (m_field < nameField) {
        if (c == ' ')
            ++m_field;
        else if (m_field == 0 && c == '-')
            m_numbers[startNumber] = std::exchange(m_numbers[endNumber], 0);
        else if (m_field == 0)
            m_numbers[endNumber] = m_numbers[endNumber] * 16 + digitOf(c);
        else if (m_field == 2)
            m_numbers[offsetNumber] = m_numbers[offsetNumber] * 16 + digitOf(c);
        else if (m_field == 4)
            m_numbers[inodeNumber] = m_numbers[inodeNumber] * 10 + digitOf(c);
        return;
    }
    if (c == '/')
        m_module.nameSize = 0;
    else if ((c != ' ' || m_module.nameSize > 0) && m_module.nameSize < m_module.name.size())
        m_module.name[m_module.nameSize++] = harmlessCharacter(c);
}

void ModuleFinder::endLine()
{
    const std::uint64_t start = m_numbers[startNumber];
    const std::uint64_t offset = m_numbers[offsetNumber];
    if (offset == 0 || m_numbers[inodeNumber] != m_inode)
        m_base = start - offset;
    m_inode = m_numbers[inodeNumber];
    for (std::size_t index = 0; index < m_addresses.size(); ++index) {
        const auto address = reinterpret_cast<std::uint64_t>(m_addresses[index]);
        if (address < start || address >= m_numbers[endNumber])
            continue;
        m_module.offset = address - m_base;
        m_modules[index] = m_module;
    }
}

char harmlessCharacter(char c)
{
    const bool stays = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '.' ||
                       c == '_' || c == '+' || c == '-';
    return stays ? c : '_';
}

} // namespace corvane

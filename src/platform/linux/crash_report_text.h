#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace corvane {

// The pieces of a crash report. Nothing here allocates, locks or calls the system: it runs in a handler of signals.

/// A letter, a digit or one of "._+-" stays; anything else becomes "_".
[[nodiscard]] char harmlessCharacter(char c);

/// Text in a buffer of fixed size; what does not fit is left out.
class ReportText {
public:
    explicit ReportText(std::span<char> buffer) : m_buffer(buffer) {}

    ReportText &add(std::string_view text);
    ReportText &addHarmless(std::string_view text); ///< every character as `harmlessCharacter` has it
    ReportText &addDecimal(std::int64_t number);
    ReportText &addHexadecimal(std::uint64_t number); ///< "0x1f"
    /// Seconds since 1970 in UTC, "2026-11-22", `between`, then "14" "15" "00" with `colon` between them.
    ReportText &addTime(std::int64_t seconds, std::string_view between, std::string_view colon);

    [[nodiscard]] std::string_view written() const { return {m_buffer.data(), m_size}; }

private:
    void addTwoDigits(unsigned number);

    const std::span<char> m_buffer;
    std::size_t m_size = 0;
};

/// Which file of code an address lies in, by the last component of its name, which tells nothing of the user's folders.
struct Module {
    std::array<char, 64> name;
    std::size_t nameSize; ///< 0 where the address lies in none
    std::uint64_t offset; ///< from where the file's first byte lies
};

/// Finds the modules of addresses in what /proc/self/maps holds, piece by piece.
class ModuleFinder {
public:
    /// `modules` has a place for every address.
    ModuleFinder(std::span<void *const> addresses, std::span<Module> modules);

    void take(std::string_view piece);

private:
    void takeCharacter(char c);
    void endLine();

    const std::span<void *const> m_addresses;
    const std::span<Module> m_modules;
    // Of the line under way.
    std::size_t m_field = 0;
    std::array<std::uint64_t, 4> m_numbers{}; ///< start, end, offset, inode
    Module m_module{};
    // Of the lines before: a file's mappings follow one another.
    std::uint64_t m_inode = 0;
    std::uint64_t m_base = 0;
};

} // namespace corvane

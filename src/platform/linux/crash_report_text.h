#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace corvane {

// The parts of a crash report. Async-signal-safe: nothing here allocates, locks or makes system calls.

/// Keeps letters, digits and "._+-"; replaces anything else by "_".
[[nodiscard]] char harmlessCharacter(char c);

/// Text in a fixed-size buffer; anything beyond its capacity is dropped.
class ReportText {
public:
    explicit ReportText(std::span<char> buffer) : m_buffer(buffer) {}

    ReportText &add(std::string_view text);
    ReportText &addHarmless(std::string_view text); ///< filtered through `harmlessCharacter`
    ReportText &addDecimal(std::int64_t number);
    ReportText &addHexadecimal(std::uint64_t number); ///< "0x1f"
    /// A time given in seconds since 1970, in UTC: "2026-11-22", `between`, then "14" "15" "00" with `colon` between
    /// them.
    ReportText &addTime(std::int64_t seconds, std::string_view between, std::string_view colon);

    [[nodiscard]] std::string_view written() const { return {m_buffer.data(), m_size}; }

private:
    void addTwoDigits(unsigned number);

    const std::span<char> m_buffer;
    std::size_t m_size = 0;
};

/// The binary that contains an address, by its file name only, which reveals nothing about the user's folders.
struct Module {
    std::array<char, 64> name;
    std::size_t nameSize; ///< 0 if no binary contains the address
    std::uint64_t offset; ///< from the start of the file
};

/// Maps addresses to modules by parsing /proc/self/maps piece by piece.
class ModuleFinder {
public:
    /// `modules` must have an element per address.
    ModuleFinder(std::span<void *const> addresses, std::span<Module> modules);

    void take(std::string_view piece);

private:
    void takeCharacter(char c);
    void endLine();

    const std::span<void *const> m_addresses;
    const std::span<Module> m_modules;
    // For the current line.
    std::size_t m_field = 0;
    std::array<std::uint64_t, 4> m_numbers{}; ///< start, end, offset, inode
    Module m_module{};
    // For the previous lines: the mappings of a file are consecutive.
    std::uint64_t m_inode = 0;
    std::uint64_t m_base = 0;
};

} // namespace corvane

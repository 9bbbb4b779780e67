#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "cli/console.h"
#include "core/color.h"

namespace corvane {

/// The width of the size column, larger if sizes are shown in bytes.
[[nodiscard]] std::size_t sizeColumns();

/// A size, right-aligned in that column.
[[nodiscard]] std::string sizeCell(std::int64_t bytes);

/// Rows for parts of a whole: each with size, share, bar and name. Columns that do not fit the terminal are omitted,
/// the bar first; a wide terminal shows more.
class ShareTable {
public:
    enum class FileCounts { none, whereWide, always };
    ShareTable(Console &console, std::int64_t whole, FileCounts counts = FileCounts::none);

    struct Row {
        std::int64_t size = 0;
        Color color = {};
        std::string_view name = {};        ///< bytes
        std::string_view mark = {};        ///< after the name, never cut
        std::string_view indentation = {}; ///< before the name
        std::optional<std::int64_t> files = std::nullopt;
    };
    void write(const Row &row);

    /// A part of the previous row: only its size and name.
    void writePart(std::int64_t size, std::string_view name);

private:
    [[nodiscard]] std::string fitted(std::string_view name, std::string_view indentation, std::string_view mark) const;

    Console &m_console;
    const std::int64_t m_whole;
    std::size_t m_shareColumns = 0;
    std::size_t m_barColumns = 0;
    std::size_t m_fileColumns = 0;
    std::size_t m_columnsBeforeName = 0;
};

} // namespace corvane

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "cli/console.h"
#include "core/color.h"

namespace corvane {

/// The columns that sizes stand in, which are wider where all bytes are written.
[[nodiscard]] std::size_t sizeColumns();

/// A size at the end of those columns.
[[nodiscard]] std::string sizeCell(std::int64_t bytes);

/// Rows of what shares a whole: each its size, its share, a bar and its name. What the terminal has no room for is left
/// out, the bar first; a wide one shows more.
class ShareTable {
public:
    enum class FileCounts { none, whereWide, always };
    ShareTable(Console &console, std::int64_t whole, FileCounts counts = FileCounts::none);

    struct Row {
        std::int64_t size = 0;
        Color color = {};
        std::string_view name = {};        ///< bytes
        std::string_view mark = {};        ///< behind the name, never cut
        std::string_view indentation = {}; ///< before the name
        std::optional<std::int64_t> files = std::nullopt;
    };
    void write(const Row &row);

    /// A part of the row before: its size and its name alone.
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

#include "cli/table.h"

#include <fmt/format.h>

#include "cli/size_bar.h"
#include "cli/terminal_text.h"
#include "core/words/display_text.h"
#include "core/words/figures.h"

namespace corvane {

namespace {

constexpr std::size_t percentColumns = 6;
constexpr std::size_t usualBarColumns = 20;
constexpr std::size_t wideBarColumns = 30;
constexpr std::size_t countColumns = 15; // "9,999,999 files"
constexpr std::size_t numberColumns = 9; // "9,999,999"

constexpr std::size_t narrowTerminal = 60;
constexpr std::size_t wideTerminal = 120;

} // namespace

std::size_t sizeColumns()
{
    return byteUnits() == ByteUnits::bytes ? std::string_view("999,999,999,999 bytes").size() : 10;
}

std::string sizeCell(std::int64_t bytes)
{
    return rightAligned(formatByteCount(bytes), sizeColumns());
}

ShareTable::ShareTable(Console &console, std::int64_t whole, FileCounts counts) : m_console(console), m_whole(whole)
{
    const std::size_t columns = console.outColumns();
    const bool isWide = console.outIsTerminal() && columns >= wideTerminal;
    if (columns >= narrowTerminal)
        m_barColumns = isWide ? wideBarColumns : usualBarColumns;
    if (counts == FileCounts::always || (counts == FileCounts::whereWide && isWide))
        m_fileColumns = m_barColumns > 0 ? countColumns : numberColumns;
    // On a narrow terminal, names need the space left by two figures.
    if (m_barColumns > 0 || m_fileColumns == 0)
        m_shareColumns = percentColumns;
    m_columnsBeforeName = sizeColumns() + 2;
    for (const std::size_t more : {m_shareColumns, m_barColumns, m_fileColumns})
        m_columnsBeforeName += more > 0 ? more + 2 : 0;
}

void ShareTable::write(const Row &row)
{
    const double share = m_whole > 0 ? static_cast<double>(row.size) / static_cast<double>(m_whole) : 0;
    std::string cells = sizeCell(row.size) + "  ";
    if (m_shareColumns > 0)
        cells += rightAligned(formatPercent(percentOf(row.size, m_whole)), m_shareColumns) + "  ";
    if (m_barColumns > 0)
        cells += m_console.colored(sizeBar(share, m_barColumns), row.color) + "  ";
    if (m_fileColumns > 0) {
        std::string count;
        if (row.files)
            count = m_barColumns > 0 ? formatCount(*row.files, "file", "files") : formatCount(*row.files);
        cells += rightAligned(count, m_fileColumns) + "  ";
    }
    m_console.out.write(cells + fitted(row.name, row.indentation, row.mark) + "\n");
}

void ShareTable::writePart(std::int64_t size, std::string_view name)
{
    const std::string gap(m_columnsBeforeName - sizeColumns(), ' ');
    m_console.out.write(m_console.faint(sizeCell(size) + gap + fitted(name, "  ", {})) + "\n");
}

std::string ShareTable::fitted(std::string_view name, std::string_view indentation, std::string_view mark) const
{
    const std::size_t taken = m_columnsBeforeName + displayWidth(indentation) + displayWidth(mark);
    return fmt::format("{}{}{}", indentation, elided(displayUtf8(name), m_console.roomBeside(taken)), mark);
}

} // namespace corvane

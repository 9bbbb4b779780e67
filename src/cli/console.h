#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "cli/output.h"
#include "cli/watch.h"
#include "core/color.h"

namespace corvane {

/// What the program speaks to: standard output for the result, standard error for everything else, and what is
/// known of the terminal behind each. One thread, except where a member says otherwise.
class Console {
public:
    Console();

    Output out;
    Output errors;

    /// Names something that went wrong, one line on standard error. The text may hold bytes of any kind.
    void complain(std::string_view message);

    [[nodiscard]] bool outIsTerminal() const { return m_outIsTerminal; }

    /// Progress is shown where a line on standard error can be written over, on a terminal that understands more than
    /// text, unless the user wants none.
    [[nodiscard]] Watch::Display progressDisplay() const { return m_progressDisplay; }
    void hideProgress() { m_progressDisplay = Watch::Display::hidden; }

    /// The columns that a line of the result may take: the terminal's, or no limit.
    [[nodiscard]] std::size_t outColumns() const;

    /// The columns that stay of a line of the result once so many are taken; never fewer than a name can be told by.
    [[nodiscard]] std::size_t roomBeside(std::size_t taken) const;

    /// The columns of the terminal behind standard error. Any thread.
    [[nodiscard]] static std::size_t errorColumns();

    /// Writes a paragraph of less weight, in lines that the terminal has room for.
    void writeHint(std::string_view text);

    enum class ColorUse { automatic, always, never };
    /// Whether the result has styles; automatic is where a terminal shows them and `NO_COLOR` is not set.
    void setColorUse(ColorUse use);

    /// The text in a style, plain where standard output shows none.
    [[nodiscard]] std::string strong(std::string_view text) const;
    [[nodiscard]] std::string faint(std::string_view text) const;
    [[nodiscard]] std::string colored(std::string_view text, const Color &color) const;

private:
    enum class Colors { none, basic, palette, full };

    [[nodiscard]] Colors colors(ColorUse use) const;
    [[nodiscard]] std::string styled(std::string_view sequence, std::string_view text) const;

    const bool m_outIsTerminal;
    Watch::Display m_progressDisplay;
    Colors m_colors;
};

} // namespace corvane

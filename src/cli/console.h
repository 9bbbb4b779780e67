#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "cli/output.h"
#include "cli/watch.h"
#include "core/color.h"

namespace corvane {

/// The program's output: standard output for the result, standard error for everything else, and the width and the
/// colors of the terminals that they are connected to. Used by one thread, except where a member says otherwise.
class Console {
public:
    Console();

    Output out;
    Output errors;

    /// Reports an error, one line on standard error. The text may contain any bytes.
    void complain(std::string_view message);

    [[nodiscard]] bool outIsTerminal() const { return m_outIsTerminal; }

    /// Progress is shown if standard error is a terminal that can rewrite a line, unless the user disabled it.
    [[nodiscard]] Watch::Display progressDisplay() const { return m_progressDisplay; }
    void hideProgress() { m_progressDisplay = Watch::Display::hidden; }

    /// The line width of the result: that of the terminal, or no limit.
    [[nodiscard]] std::size_t outColumns() const;

    /// The columns left in a line of the result beside `taken` others; at least 8, so that a name stays recognizable.
    [[nodiscard]] std::size_t roomBeside(std::size_t taken) const;

    /// The width of the terminal that standard error is connected to; 80 if it is none. May be called by any thread.
    [[nodiscard]] static std::size_t errorColumns();

    /// Writes a faint paragraph, wrapped to the width of the terminal.
    void writeHint(std::string_view text);

    enum class ColorUse { automatic, always, never };
    /// Whether the result has styles and colors; automatic: if standard output is a terminal that supports them and
    /// `NO_COLOR` is not set.
    void setColorUse(ColorUse use);

    /// The text in a style, or plain if standard output has no styles.
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

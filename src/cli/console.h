#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "cli/output.h"
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

    /// Whether a line on standard error can be written over: a terminal that understands more than text.
    [[nodiscard]] bool canShowProgress() const { return m_canShowProgress; }

    /// The columns that a line of the result may take: the terminal's, or no limit.
    [[nodiscard]] std::size_t outColumns() const;

    /// The columns of the terminal behind standard error. Any thread.
    [[nodiscard]] static std::size_t errorColumns();

    /// The text in a style, plain where standard output shows none.
    [[nodiscard]] std::string strong(std::string_view text) const;
    [[nodiscard]] std::string faint(std::string_view text) const;
    [[nodiscard]] std::string colored(std::string_view text, const Color &color) const;

private:
    enum class Colors { none, basic, palette, full };

    [[nodiscard]] Colors supportedColors() const;
    [[nodiscard]] std::string styled(std::string_view sequence, std::string_view text) const;

    const bool m_outIsTerminal;
    const bool m_canShowProgress;
    const Colors m_colors;
};

} // namespace corvane

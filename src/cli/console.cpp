#include "cli/console.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

#include <fmt/format.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include "cli/terminal_text.h"
#include "core/words/display_text.h"

namespace corvane {

namespace {

constexpr std::size_t usualColumns = 80;

std::string_view environment(const char *name)
{
    const char *const value = std::getenv(name);
    return value != nullptr ? value : "";
}

bool isDumb()
{
    const std::string_view terminal = environment("TERM");
    return terminal.empty() || terminal == "dumb";
}

std::size_t columnsOf(int descriptor)
{
    winsize size{};
    if (ioctl(descriptor, TIOCGWINSZ, &size) != 0 || size.ws_col == 0)
        return usualColumns;
    return size.ws_col;
}

int scaled(double part, int largest)
{
    return static_cast<int>(std::lround(part * largest));
}

} // namespace

Console::Console()
    : out(STDOUT_FILENO),
      errors(STDERR_FILENO),
      m_outIsTerminal(isatty(STDOUT_FILENO) == 1),
      m_progressDisplay(isatty(STDERR_FILENO) == 1 && !isDumb() ? Watch::Display::shown : Watch::Display::hidden),
      m_colors(colors(ColorUse::automatic))
{
}

Console::Colors Console::colors(ColorUse use) const
{
    // https://no-color.org: any value but an empty one asks for plain text.
    const bool isPlain = !m_outIsTerminal || isDumb() || !environment("NO_COLOR").empty();
    if (use == ColorUse::never || (use == ColorUse::automatic && isPlain))
        return Colors::none;
    const std::string_view depth = environment("COLORTERM");
    if (depth == "truecolor" || depth == "24bit")
        return Colors::full;
    return environment("TERM").find("256color") != std::string_view::npos ? Colors::palette : Colors::basic;
}

void Console::setColorUse(ColorUse use)
{
    m_colors = colors(use);
}

void Console::writeHint(std::string_view text)
{
    out.write(faint(wrapped(text, outColumns(), 0)) + "\n");
}

void Console::complain(std::string_view message)
{
    out.flush();
    errors.write("corvane-cli: ");
    errors.write(displayUtf8(message));
    errors.write('\n');
    errors.flush();
}

std::size_t Console::outColumns() const
{
    return m_outIsTerminal ? columnsOf(STDOUT_FILENO) : std::numeric_limits<std::size_t>::max();
}

std::size_t Console::roomBeside(std::size_t taken) const
{
    constexpr std::size_t least = 8;
    const std::size_t columns = outColumns();
    return std::max(columns - std::min(columns, taken), least);
}

std::size_t Console::errorColumns()
{
    return columnsOf(STDERR_FILENO);
}

std::string Console::styled(std::string_view sequence, std::string_view text) const
{
    if (m_colors == Colors::none || text.empty())
        return std::string(text);
    return fmt::format("\x1b[{}m{}\x1b[0m", sequence, text);
}

std::string Console::strong(std::string_view text) const
{
    return styled("1", text);
}

std::string Console::faint(std::string_view text) const
{
    return styled("2", text);
}

std::string Console::colored(std::string_view text, const Color &color) const
{
    switch (m_colors) {
    case Colors::full:
        return styled(
            fmt::format("38;2;{};{};{}", scaled(color.red, 255), scaled(color.green, 255), scaled(color.blue, 255)),
            text);
    case Colors::palette: {
        // Palette colours 16 to 231 are a cube with six steps each of red, green and blue.
        const int index = 16 + 36 * scaled(color.red, 5) + 6 * scaled(color.green, 5) + scaled(color.blue, 5);
        return styled(fmt::format("38;5;{}", index), text);
    }
    case Colors::basic:
    case Colors::none:
        break;
    }
    return std::string(text);
}

} // namespace corvane

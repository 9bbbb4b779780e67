#include "cli/removal_question.h"

#include <cctype>
#include <cerrno>
#include <string>

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include "cli/output.h"
#include "cli/terminal_text.h"
#include "core/checked_add.h"
#include "core/words/display_text.h"
#include "core/words/figures.h"
#include "platform/ascii_case.h"

namespace corvane {

namespace {

constexpr std::size_t sizeColumns = 10;

std::string_view note(const RemovalStep &step, bool permanently)
{
    if (step.action == RemovalStep::Action::refuse)
        return "  (protected location: stays)";
    if (step.action == RemovalStep::Action::erase && !permanently)
        return "  (in the Trash already: deleted for good)";
    return {};
}

std::string questionText(const std::vector<RemovalStep> &steps, bool permanently)
{
    std::int64_t count = 0;
    std::int64_t inTrash = 0;
    std::int64_t total = 0;
    std::string text = "Selected for removal\n";
    for (const RemovalStep &step : steps) {
        const bool stays = step.action == RemovalStep::Action::refuse;
        text += fmt::format("{}  {}{}\n", rightAligned(stays ? "–" : formatByteCount(step.size), sizeColumns),
                            displayUtf8(step.path), note(step, permanently));
        if (stays)
            continue;
        ++count;
        inTrash += step.action == RemovalStep::Action::erase ? 1 : 0;
        total = checkedAdd(total, step.size);
    }
    const std::string items = formatCount(count, "item", "items");
    const std::string size = formatByteCount(total);
    if (permanently) {
        text += fmt::format("Permanently delete {}?\n"
                            "These items will be erased immediately and can't be recovered from the Trash.\n"
                            "Delete {} Permanently? [y/N] ",
                            items, size);
    } else {
        if (inTrash > 0) {
            text += fmt::format("{} of them {} in the Trash and will be deleted permanently\n", inTrash,
                                plural(inTrash, "is", "are"));
        }
        text += fmt::format("Move {} ({}) to Trash? [y/N] ", items, size);
    }
    return text;
}

std::string readLine()
{
    std::string line;
    for (;;) {
        char c = 0;
        const ssize_t count = read(STDIN_FILENO, &c, 1);
        if (count < 0 && errno == EINTR)
            continue;
        if (count != 1 || c == '\n')
            return line;
        line += lowerAscii(c);
    }
}

} // namespace

RemovalQuestion::RemovalQuestion()
{
    if (isatty(STDIN_FILENO) != 1)
        return;
    m_isOwned = isatty(STDERR_FILENO) != 1;
    m_terminal = m_isOwned ? open("/dev/tty", O_WRONLY | O_CLOEXEC) : STDERR_FILENO;
}

RemovalQuestion::~RemovalQuestion()
{
    if (m_isOwned && m_terminal >= 0)
        close(m_terminal);
}

bool RemovalQuestion::ask(const std::vector<RemovalStep> &steps, bool permanently) const
{
    Output terminal(m_terminal);
    terminal.write(questionText(steps, permanently));
    terminal.flush();
    const std::string answer = readLine();
    return answer == "y" || answer == "yes";
}

} // namespace corvane

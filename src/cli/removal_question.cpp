#include "cli/removal_question.h"

#include <cctype>
#include <cerrno>
#include <optional>
#include <string>

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include "cli/output.h"
#include "cli/table.h"
#include "cli/terminal_text.h"
#include "core/checked_add.h"
#include "core/removal_words.h"
#include "core/words/display_text.h"
#include "core/words/figures.h"
#include "core/words/shared_texts.h"
#include "platform/ascii_case.h"

namespace corvane {

namespace {

std::string_view note(const RemovalStep &step, bool permanently)
{
    if (step.action == RemovalStep::Action::refuse)
        return "  (protected location: stays)";
    if (step.action == RemovalStep::Action::erase && !permanently)
        return "  (in the Trash already: deleted for good)";
    return {};
}

/// The totals of a removal.
struct Sum {
    std::int64_t count = 0;
    std::int64_t inTrash = 0;
    std::int64_t bytes = 0;

    [[nodiscard]] std::string items() const { return formatCount(count, "item", "items"); }
};

Sum sumOf(const std::vector<RemovalStep> &steps)
{
    Sum sum;
    for (const RemovalStep &step : steps) {
        if (step.action == RemovalStep::Action::refuse)
            continue;
        ++sum.count;
        sum.inTrash += step.action == RemovalStep::Action::erase ? 1 : 0;
        sum.bytes = checkedAdd(sum.bytes, step.size);
    }
    return sum;
}

/// The text above the question and above a plan.
std::string listText(const std::vector<RemovalStep> &steps, bool permanently)
{
    std::string text = std::string(removalTitle) + "\n";
    for (const RemovalStep &step : steps) {
        const bool stays = step.action == RemovalStep::Action::refuse;
        text += fmt::format("{}  {}{}\n", rightAligned(stays ? "–" : formatByteCount(step.size), sizeColumns()),
                            displayUtf8(step.path), note(step, permanently));
    }
    const std::int64_t inTrash = sumOf(steps).inTrash;
    if (!permanently && inTrash > 0)
        text += inTrashText(inTrash, static_cast<std::int64_t>(steps.size())) + "\n";
    return text;
}

std::string questionText(const std::vector<RemovalStep> &steps, bool permanently)
{
    const Sum sum = sumOf(steps);
    if (!permanently)
        return listText(steps, permanently) +
               fmt::format("Move {} ({}) to Trash? [y/N] ", sum.items(), formatByteCount(sum.bytes));
    return listText(steps, permanently) +
           fmt::format("{}\n{}\n{}? [y/N] ", deletionQuestion(sum.count), deletionWarning, deletionAnswer(sum.bytes));
}

/// A line of the answer in lower case; nothing if the input ends or fails within it.
std::optional<std::string> readLine()
{
    std::string line;
    for (;;) {
        char c = 0;
        const ssize_t count = read(STDIN_FILENO, &c, 1);
        if (count < 0 && errno == EINTR)
            continue;
        if (count != 1)
            return std::nullopt;
        if (c == '\n')
            return line;
        line += lowerAscii(c);
    }
}

} // namespace

std::string planText(const std::vector<RemovalStep> &steps, bool permanently)
{
    const Sum sum = sumOf(steps);
    const std::string what = fmt::format("{} ({})", sum.items(), formatByteCount(sum.bytes));
    return listText(steps, permanently) +
           (permanently ? "Would permanently delete " + what + "\n" : "Would move " + what + " to Trash\n");
}

RemovalQuestion::RemovalQuestion()
{
    if (isatty(STDIN_FILENO) != 1)
        return;
    if (isatty(STDERR_FILENO) == 1) {
        m_terminal = STDERR_FILENO;
    } else {
        m_opened = FileDescriptor(open("/dev/tty", O_WRONLY | O_CLOEXEC));
        m_terminal = m_opened.number();
    }
}

bool RemovalQuestion::ask(const std::vector<RemovalStep> &steps, bool permanently) const
{
    Output terminal(m_terminal);
    terminal.write(questionText(steps, permanently));
    terminal.flush();
    if (terminal.error())
        return false; // the question was not shown
    const std::optional<std::string> answer = readLine();
    return answer == "y" || answer == "yes";
}

} // namespace corvane

#pragma once

#include <string>
#include <vector>

#include "core/removal.h"
#include "platform/file_descriptor.h"

namespace corvane {

/// The steps of a removal as text, one per line, and their total.
[[nodiscard]] std::string planText(const std::vector<RemovalStep> &steps, bool permanently);

/// The confirmation on the terminal before a removal. Does not use standard output, which may carry a document.
class RemovalQuestion {
public:
    RemovalQuestion();

    /// Whether there is a terminal for both the question and the answer.
    [[nodiscard]] bool canBeAsked() const { return m_terminal >= 0; }

    /// Shows what would happen and waits for the answer; anything except a line with "y" or "yes" means no, and so does
    /// a terminal that is closed before the line ends.
    [[nodiscard]] bool ask(const std::vector<RemovalStep> &steps, bool permanently) const;

private:
    FileDescriptor m_opened; ///< the terminal, if standard error is not one
    int m_terminal = -1;     ///< output for the question
};

} // namespace corvane

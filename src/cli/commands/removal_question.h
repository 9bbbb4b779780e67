#pragma once

#include <string>
#include <vector>

#include "core/removal.h"

namespace corvane {

/// The steps of a removal as text, one per line, and their total.
[[nodiscard]] std::string planText(const std::vector<RemovalStep> &steps, bool permanently);

/// The confirmation on the terminal before a removal. Does not use standard output, which may carry a document.
class RemovalQuestion {
public:
    RemovalQuestion();
    ~RemovalQuestion();

    RemovalQuestion(const RemovalQuestion &) = delete;
    RemovalQuestion &operator=(const RemovalQuestion &) = delete;

    /// Whether there is a terminal for both the question and the answer.
    [[nodiscard]] bool canBeAsked() const { return m_terminal >= 0; }

    /// Shows what would happen and waits for the answer; anything except "y" and "yes" means no.
    [[nodiscard]] bool ask(const std::vector<RemovalStep> &steps, bool permanently) const;

private:
    int m_terminal = -1; ///< output for the question
    bool m_isOwned = false;
};

} // namespace corvane

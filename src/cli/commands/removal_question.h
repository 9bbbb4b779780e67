#pragma once

#include <string>
#include <vector>

#include "core/removal.h"

namespace corvane {

/// The steps of a removal for people, a line each, and what they come to.
[[nodiscard]] std::string planText(const std::vector<RemovalStep> &steps, bool permanently);

/// The question on the terminal before a removal. Standard output has no part in it: it may belong to a document.
class RemovalQuestion {
public:
    RemovalQuestion();
    ~RemovalQuestion();

    RemovalQuestion(const RemovalQuestion &) = delete;
    RemovalQuestion &operator=(const RemovalQuestion &) = delete;

    /// Whether there is a terminal to ask on and to be answered from.
    [[nodiscard]] bool canBeAsked() const { return m_terminal >= 0; }

    /// Shows what would happen and waits for the answer; everything but "y" and "yes" is a no.
    [[nodiscard]] bool ask(const std::vector<RemovalStep> &steps, bool permanently) const;

private:
    int m_terminal = -1; ///< what the question is written to
    bool m_isOwned = false;
};

} // namespace corvane

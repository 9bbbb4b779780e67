#pragma once

#include <string>
#include <string_view>

#include <sys/types.h>

#include "cli/program.h"

namespace corvane {

/// One run of the real program on a terminal of its own.
class TerminalProgram {
public:
    explicit TerminalProgram(const Program &program, unsigned short columns = 100);
    ~TerminalProgram();

    TerminalProgram(const TerminalProgram &) = delete;
    TerminalProgram &operator=(const TerminalProgram &) = delete;

    /// Waits until the text has appeared; false where the program ended or a minute passed before.
    [[nodiscard]] bool waitFor(std::string_view text);

    void type(std::string_view text) const;

    /// Waits for the end and gives all that the terminal got as `out`.
    [[nodiscard]] ProgramResult finish();

private:
    bool readSome();

    pid_t m_child = -1;
    int m_terminal = -1;
    std::string m_screen;
};

} // namespace corvane

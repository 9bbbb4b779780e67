#pragma once

#include <string>
#include <string_view>

#include <sys/types.h>

#include "cli/program.h"

namespace corvane {

/// One run of the real program on its own pseudo-terminal.
class TerminalProgram {
public:
    explicit TerminalProgram(const Program &program, unsigned short columns = 100);
    ~TerminalProgram();

    TerminalProgram(const TerminalProgram &) = delete;
    TerminalProgram &operator=(const TerminalProgram &) = delete;

    /// Waits until the text appears; returns false if the program ends or a minute passes first.
    [[nodiscard]] bool waitFor(std::string_view text);

    void type(std::string_view text) const;

    /// Closes the terminal, as when its window is closed. The program gets SIGHUP.
    void hangUp();

    /// Waits for the program to end and returns the terminal's output as `out`.
    [[nodiscard]] ProgramResult finish();

private:
    bool readSome();

    pid_t m_child = -1;
    int m_terminal = -1;
    std::string m_screen;
};

} // namespace corvane

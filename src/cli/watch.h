#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <thread>

#include "platform/posix/pipe.h"

namespace corvane {

/// Handles signals and shows progress during long work. While the object exists, the first SIGINT (Ctrl-C) or SIGTERM
/// stops the work instead of the program, and the same signal again ends the program; the progress is shown in one line
/// on standard error. Created and destroyed on the main thread; at most one exists at a time.
class Watch {
public:
    enum class Display { hidden, shown };

    /// `stop` stops the work; `line` returns the text to be shown, in at most `columns`. Both are called on a thread
    /// that this object creates.
    Watch(std::function<void()> stop, std::function<std::string(std::size_t columns)> line, Display display);
    ~Watch();

    Watch(const Watch &) = delete;
    Watch &operator=(const Watch &) = delete;

private:
    void run();
    void draw();

    const std::function<void()> m_stop;
    const std::function<std::string(std::size_t)> m_line;
    const Display m_display;
    Pipe m_wakeUp;        ///< constant after construction
    std::thread m_thread; ///< calls `m_stop` and `m_line`
};

/// A line of progress: the figures, and as much of the end of the path as fits beside them.
[[nodiscard]] std::string lineWithPath(const std::string &figures, std::string_view path, std::size_t columns);

} // namespace corvane

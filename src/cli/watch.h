#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <thread>

#include "platform/posix/pipe.h"

namespace corvane {

/// Stands beside long work: as long as it lives, Ctrl-C (SIGINT) and SIGTERM stop the work instead of the program, the
/// second time the program, and a terminal on standard error shows how far the work is. Made and destroyed on the main
/// thread; at most one at a time.
class Watch {
public:
    enum class Display { hidden, shown };

    /// Both are called on a thread of the watch's own; `line` is the text to be shown in at most so many columns.
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
    std::thread m_thread; ///< the only one that draws
};

/// What a line says, and as much of the end of a path as there is room for.
[[nodiscard]] std::string lineWithPath(const std::string &figures, std::string_view path, std::size_t columns);

} // namespace corvane

#pragma once

#include <functional>
#include <mutex>
#include <string>
#include <vector>

namespace corvane {

/// The calls of the fakes, one line per call, in order: the operation, a space, the path. Any thread.
class CallLog {
public:
    void record(const std::string &line)
    {
        std::function<void(const std::string &)> observer;
        {
            const std::lock_guard lock(m_mutex);
            m_lines.push_back(line);
            observer = m_observer;
        }
        if (observer)
            observer(line);
    }

    [[nodiscard]] std::vector<std::string> lines() const
    {
        const std::lock_guard lock(m_mutex);
        return m_lines;
    }

    /// Only the lines with this prefix: "list " gives the folders that were listed.
    [[nodiscard]] std::vector<std::string> linesStartingWith(std::string_view text) const
    {
        std::vector<std::string> found;
        for (std::string &line : lines()) {
            if (std::string_view(line).starts_with(text))
                found.push_back(std::move(line));
        }
        return found;
    }

    void clear()
    {
        const std::lock_guard lock(m_mutex);
        m_lines.clear();
    }

    /// Calls `observer` with each line before the call returns, on the caller's thread and without holding a lock: the
    /// test can then change the tree, cancel an operation, or block.
    void observe(std::function<void(const std::string &)> observer)
    {
        const std::lock_guard lock(m_mutex);
        m_observer = std::move(observer);
    }

private:
    mutable std::mutex m_mutex;
    std::vector<std::string> m_lines;                    // guarded by m_mutex
    std::function<void(const std::string &)> m_observer; // guarded by m_mutex
};

} // namespace corvane

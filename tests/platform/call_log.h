#pragma once

#include <functional>
#include <mutex>
#include <string>
#include <vector>

namespace corvane {

/// What was asked of the fakes, one line for each call, in order: the operation, a blank, the path. Any thread.
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

    /// Those lines alone that start with the text: "list " gives the folders that were listed.
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

    /// Calls `observer` with each line before the call is answered, on the caller's thread and with nothing
    /// locked: there a test changes the tree, cancels what runs, or waits.
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

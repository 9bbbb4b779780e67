#pragma once

#include <string>
#include <string_view>
#include <system_error>

namespace corvane {

/// A buffered writer on a file descriptor that it does not own. A reader that went away (`| head`) ends the
/// writing quietly; any other failure is kept for the end. SIGPIPE must be ignored. One thread.
class Output {
public:
    explicit Output(int descriptor);

    Output(const Output &) = delete;
    Output &operator=(const Output &) = delete;

    void write(std::string_view text);
    void write(char character);
    void flush();

    /// Whether further text would reach nobody, so that there is no sense in making it.
    [[nodiscard]] bool isClosed() const { return m_isClosed; }

    /// What writing failed at, if it failed otherwise than by a reader that went away.
    [[nodiscard]] std::error_code error() const { return m_error; }

private:
    const int m_descriptor;
    std::string m_buffer;
    std::error_code m_error;
    bool m_isClosed = false;
};

} // namespace corvane

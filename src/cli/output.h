#pragma once

#include <string>
#include <string_view>
#include <system_error>

namespace corvane {

/// A buffered writer on a descriptor that it does not own. If the reader has gone away (`| head`), further text is
/// dropped silently; any other failure is kept for the end. SIGPIPE must be ignored. One thread.
class Output {
public:
    explicit Output(int descriptor);

    Output(const Output &) = delete;
    Output &operator=(const Output &) = delete;

    void write(std::string_view text);
    void write(char character);
    void flush();

    /// Whether the reader has gone away, so that producing more text is pointless.
    [[nodiscard]] bool isClosed() const { return m_isClosed; }

    /// The write error, unless it was a reader going away.
    [[nodiscard]] std::error_code error() const { return m_error; }

private:
    const int m_descriptor;
    std::string m_buffer;
    std::error_code m_error;
    bool m_isClosed = false;
};

} // namespace corvane

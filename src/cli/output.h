#pragma once

#include <string>
#include <string_view>
#include <system_error>

namespace corvane {

/// A buffered writer on a descriptor that it does not own. After a failed write, further text is dropped, and the error
/// is kept in `error()`; a reader that closed its end of the pipe (`| head`) is not an error. SIGPIPE must be ignored.
/// Used by one thread.
class Output {
public:
    explicit Output(int descriptor);

    Output(const Output &) = delete;
    Output &operator=(const Output &) = delete;

    void write(std::string_view text);
    void write(char character);
    void flush();

    /// Flushes and closes the descriptor: some file systems report a full disk only then. Nothing may be written
    /// afterwards.
    void close();

    /// Whether a write has failed, or the reader has closed its end, so that producing more text is pointless.
    [[nodiscard]] bool isClosed() const { return m_isClosed; }

    /// The error of writing or closing, if there was one.
    [[nodiscard]] std::error_code error() const { return m_error; }

private:
    const int m_descriptor;
    std::string m_buffer;
    std::error_code m_error;
    bool m_hasWritten = false;
    bool m_isClosed = false;
};

} // namespace corvane

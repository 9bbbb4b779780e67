#include "cli/output.h"

#include <cerrno>

#include <poll.h>
#include <unistd.h>

namespace corvane {

namespace {

constexpr std::size_t bufferSize = 64 * 1024;

void waitUntilWritable(int descriptor)
{
    pollfd wait{descriptor, POLLOUT, 0};
    static_cast<void>(poll(&wait, 1, -1));
}

} // namespace

Output::Output(int descriptor) : m_descriptor(descriptor) {}

void Output::write(std::string_view text)
{
    if (m_isClosed)
        return;
    m_buffer.append(text);
    if (m_buffer.size() >= bufferSize)
        flush();
}

void Output::write(char character)
{
    write(std::string_view(&character, 1));
}

void Output::flush()
{
    std::string_view rest = m_buffer;
    while (!rest.empty() && !m_isClosed) {
        const ssize_t written = ::write(m_descriptor, rest.data(), rest.size());
        if (written >= 0) {
            rest.remove_prefix(static_cast<std::size_t>(written));
            m_hasWritten = true;
        } else if (errno == EAGAIN) {
            waitUntilWritable(m_descriptor);
        } else if (errno != EINTR) {
            m_isClosed = true;
            if (errno != EPIPE)
                m_error = std::error_code(errno, std::generic_category());
        }
    }
    m_buffer.clear();
}

void Output::close()
{
    flush();
    // A descriptor that was closed from the start matters only to those who write.
    if (m_isClosed || !m_hasWritten)
        return;
    m_isClosed = true;
    if (::close(m_descriptor) != 0 && errno != EINTR)
        m_error = std::error_code(errno, std::generic_category());
}

} // namespace corvane

#include "cli/output_file.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace corvane {

namespace {

/// Ends a regular file where the last write ended. False, with `errno` set, on failure.
bool cutOff(int file)
{
    struct stat facts {};
    if (fstat(file, &facts) != 0 || !S_ISREG(facts.st_mode))
        return true;
    const off_t end = lseek(file, 0, SEEK_CUR);
    return end >= 0 && ftruncate(file, end) == 0;
}

} // namespace

OutputFile::OutputFile(const std::string &path)
    : m_file(open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666)),
      m_error(m_file.isOpen() ? 0 : errno, std::generic_category()),
      m_output(m_file.number())
{
}

void OutputFile::finish()
{
    m_output.flush();
    m_error = m_output.error();
    if (!m_error && !cutOff(m_file.number()))
        m_error = std::error_code(errno, std::generic_category());
    // Some file systems report a full disk only when the file is closed.
    if (close(m_file.release()) != 0 && errno != EINTR && !m_error)
        m_error = std::error_code(errno, std::generic_category());
}

} // namespace corvane

#include "cli/output_file.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace corvane {

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
    struct stat facts {};
    if (m_error || fstat(m_file.number(), &facts) != 0 || !S_ISREG(facts.st_mode))
        return;
    const off_t end = lseek(m_file.number(), 0, SEEK_CUR);
    if (end < 0 || ftruncate(m_file.number(), end) != 0)
        m_error = std::error_code(errno, std::generic_category());
}

} // namespace corvane

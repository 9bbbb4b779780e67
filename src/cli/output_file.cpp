#include "cli/output_file.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace corvane {

OutputFile::OutputFile(const std::string &path)
    : m_descriptor(open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666)),
      m_error(m_descriptor < 0 ? errno : 0, std::generic_category()),
      m_output(m_descriptor)
{
}

OutputFile::~OutputFile()
{
    if (m_descriptor >= 0)
        close(m_descriptor);
}

void OutputFile::finish()
{
    m_output.flush();
    m_error = m_output.error();
    struct stat facts {};
    if (m_error || fstat(m_descriptor, &facts) != 0 || !S_ISREG(facts.st_mode))
        return;
    const off_t end = lseek(m_descriptor, 0, SEEK_CUR);
    if (end < 0 || ftruncate(m_descriptor, end) != 0)
        m_error = std::error_code(errno, std::generic_category());
}

} // namespace corvane

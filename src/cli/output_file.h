#pragma once

#include <string>
#include <system_error>

#include "cli/output.h"
#include "platform/file_descriptor.h"

namespace corvane {

/// A file that a result is written to. Opening makes it where there is none, and leaves what is in it until
/// `finish`.
class OutputFile {
public:
    explicit OutputFile(const std::string &path);

    [[nodiscard]] Output &output() { return m_output; }

    /// Writes out what is still buffered and cuts off what the file held beyond it.
    void finish();

    /// What opening or writing failed at, if it failed.
    [[nodiscard]] std::error_code error() const { return m_error; }

private:
    FileDescriptor m_file;
    std::error_code m_error;
    Output m_output;
};

} // namespace corvane

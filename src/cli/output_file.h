#pragma once

#include <string>
#include <system_error>

#include "cli/output.h"
#include "platform/file_descriptor.h"

namespace corvane {

/// The file that a result is written to. The constructor creates the file if it does not exist; the contents of an
/// existing one are overwritten from the start, and what remains of them is cut off by `finish`.
class OutputFile {
public:
    explicit OutputFile(const std::string &path);

    [[nodiscard]] Output &output() { return m_output; }

    /// Writes what is still buffered, cuts off what the file held beyond it, and closes the file.
    void finish();

    /// The error of opening, writing or closing the file, if there was one.
    [[nodiscard]] std::error_code error() const { return m_error; }

private:
    FileDescriptor m_file;
    std::error_code m_error;
    Output m_output;
};

} // namespace corvane

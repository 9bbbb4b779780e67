#pragma once

#include <map>
#include <string>
#include <string_view>

namespace corvane {

class FileSystem;

/// The contents of a Linux system's os-release file.
class OsRelease {
public:
    /// Parses the file's text: assignments in shell syntax.
    explicit OsRelease(std::string_view text);

    /// The file of the running system; empty if it has none.
    [[nodiscard]] static OsRelease load(FileSystem &files);

    /// Empty if the key is missing.
    [[nodiscard]] std::string value(std::string_view key) const;

private:
    std::map<std::string, std::string, std::less<>> m_values;
};

} // namespace corvane

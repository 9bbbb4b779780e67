#pragma once

#include <map>
#include <string>
#include <string_view>

namespace corvane {

class FileSystem;

/// What a Linux system says of itself in its os-release file.
class OsRelease {
public:
    /// Of the file's text: assignments as a shell reads them.
    explicit OsRelease(std::string_view text);

    /// That of the system that runs; empty where it has none.
    [[nodiscard]] static OsRelease load(FileSystem &files);

    /// Empty where the key is missing.
    [[nodiscard]] std::string value(std::string_view key) const;

private:
    std::map<std::string, std::string, std::less<>> m_values;
};

} // namespace corvane

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace corvane {

/// A 64-bit path hash that can be continued: hashPath("/a/b") == hashPath("/b", hashPath("/a")).
inline constexpr std::uint64_t pathHashSeed = 0xcbf29ce484222325;
[[nodiscard]] constexpr std::uint64_t hashPath(std::string_view bytes, std::uint64_t start = pathHashSeed)
{
    for (const char c : bytes)
        start = (start ^ static_cast<unsigned char>(c)) * 0x100000001b3;
    return start;
}

/// The path of a folder (bytes), shared by the items inside it. Stores the folder's own name and shares the rest with
/// its parent, so a tree of any depth stores each name at most once for its paths, and a folder costs about 48 bytes.
/// The size of one pointer; immutable, so copies may be used from any thread.
class FolderPath {
public:
    /// An empty value: it can only be assigned to, or tested for being empty.
    FolderPath() = default;

    /// A top folder, given by its whole path.
    explicit FolderPath(std::string_view path);

    /// The folder of that name inside `folder`.
    FolderPath(FolderPath folder, std::string_view name);

    FolderPath(const FolderPath &other) noexcept;
    FolderPath(FolderPath &&other) noexcept : m_record(std::exchange(other.m_record, nullptr)) {}
    FolderPath &operator=(FolderPath other) noexcept // NOLINT(performance-unnecessary-value-param): swapped with
    {
        std::swap(m_record, other.m_record);
        return *this;
    }
    ~FolderPath();

    [[nodiscard]] explicit operator bool() const { return m_record != nullptr; }

    /// The whole path.
    [[nodiscard]] std::string text() const;
    /// Whether `text()` equals the path, without assembling it.
    [[nodiscard]] bool is(std::string_view path) const;
    /// The hash of `text()` under `hashPath`; stored, so free to read.
    [[nodiscard]] std::uint64_t hash() const;

    /// The same for the item of that name directly inside.
    [[nodiscard]] std::string textOf(std::string_view name) const;
    [[nodiscard]] bool isFolderOf(std::string_view name, std::string_view path) const;
    [[nodiscard]] std::uint64_t hashOf(std::string_view name) const;

private:
    struct Record;

    static Record *makeRecord(Record *folder, std::string_view bytes, std::uint64_t hash);

    Record *m_record = nullptr;
};

} // namespace corvane

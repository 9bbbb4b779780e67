#include <algorithm>
#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <utility>

#include "platform/fake_file_system_item.h"
#include "platform/file_reader.h"

namespace corvane {

Expected<ItemFacts> FakeFileSystem::facts(const std::string &path)
{
    m_log->record("facts " + path);
    const std::lock_guard lock(m_mutex);
    const auto item = find(path, LastLink::keep);
    if (!item)
        return tl::unexpected(item.error());
    return factsOf(**item, path);
}

Expected<ItemFacts> FakeFileSystem::factsOf(const Item &item, const std::string &path) const
{
    if (item.facts)
        return failure("look at", path, item.facts->code);
    return ItemFacts{item.type, isPackage(item), item.allocated, item.modified, identityOf(item)};
}

ItemIdentity FakeFileSystem::identityOf(const Item &item)
{
    return {item.type, item.identity.device, item.identity.inode};
}

bool FakeFileSystem::exists(const std::string &path)
{
    m_log->record("exists " + path);
    const std::lock_guard lock(m_mutex);
    return find(path, LastLink::follow).has_value();
}

bool FakeFileSystem::canOpen(const std::string &path)
{
    m_log->record("canOpen " + path);
    const std::lock_guard lock(m_mutex);
    const auto item = find(path, LastLink::follow);
    return item && !(*item)->opening;
}

Expected<std::string> FakeFileSystem::readFile(const std::string &path, std::size_t most)
{
    m_log->record("readFile " + path);
    const std::lock_guard lock(m_mutex);
    const auto item = find(path, LastLink::follow);
    if (!item)
        return tl::unexpected(item.error());
    if ((*item)->type != EntryType::file)
        return failure("read", path, std::errc::not_supported);
    if ((*item)->opening)
        return failure("open", path, (*item)->opening->code);
    if ((*item)->content.size() > most)
        return failure("read", path, std::errc::file_too_large);
    return (*item)->content;
}

/// Reads the file's contents as of when it was opened.
class FakeFileSystem::Reader final : public FileReader {
public:
    Reader(std::string content, const FileStatus &status) : m_content(std::move(content)), m_status(status) {}

    Expected<FileStatus> status() override { return m_status; }
    Expected<std::size_t> read(std::int64_t offset, std::span<std::byte> buffer) override
    {
        const std::size_t start = std::min(static_cast<std::size_t>(offset), m_content.size());
        const std::size_t count = std::min(buffer.size(), m_content.size() - start);
        std::ranges::copy(std::as_bytes(std::span(m_content)).subspan(start, count), buffer.begin());
        return count;
    }
    void willRead(std::int64_t, std::int64_t) override {}

private:
    const std::string m_content;
    const FileStatus m_status;
};

Expected<std::unique_ptr<FileReader>> FakeFileSystem::openFile(const std::string &path)
{
    m_log->record("openFile " + path);
    const std::lock_guard lock(m_mutex);
    const auto item = find(path, LastLink::keep);
    if (!item)
        return tl::unexpected(item.error());
    if ((*item)->type != EntryType::file)
        return failure("open", path, std::errc::not_supported);
    if ((*item)->opening)
        return failure("open", path, (*item)->opening->code);
    return std::make_unique<Reader>((*item)->content,
                                    FileStatus{.length = static_cast<std::int64_t>((*item)->content.size()),
                                               .modified = (*item)->modified,
                                               .identity = identityOf(**item)});
}

Expected<std::string> FakeFileSystem::realPath(const std::string &path)
{
    m_log->record("realPath " + path);
    const std::lock_guard lock(m_mutex);
    return find(path, LastLink::follow).map([](const ItemPointer &item) { return pathOf(*item); });
}

} // namespace corvane

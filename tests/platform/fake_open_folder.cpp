#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/fake_file_system_item.h"

namespace corvane {

class FakeFileSystem::Folder final : public OpenFolder {
public:
    Folder(FakeFileSystem &files, ItemPointer item) : m_files(files), m_item(std::move(item)) {}

    Expected<void> list(const EntrySink &sink) override
    {
        m_files.m_log->record("list " + path());
        struct Row {
            std::string name;
            DirectoryEntry entry;
        };
        std::vector<Row> rows;
        std::optional<Trouble> trouble;
        {
            const std::lock_guard lock(m_files.m_mutex);
            for (const ItemPointer &child : m_item->children) {
                DirectoryEntry entry;
                if (!child->facts) {
                    entry.type = child->type;
                    entry.isPackage = m_files.isPackage(*child);
                    if (child->type == EntryType::file) {
                        entry.allocated = child->allocated;
                        entry.length = static_cast<std::int64_t>(child->content.size());
                        entry.modified = child->modified;
                        entry.links = child->links;
                        entry.inode = child->identity.inode;
                    }
                }
                rows.push_back({child->name, entry});
            }
            trouble = m_item->listing;
        }
        if (trouble)
            rows.resize(std::min(rows.size(), trouble->entries));
        for (Row &row : rows) {
            row.entry.name = row.name;
            if (sink(row.entry) == Listing::stop)
                return failure("list", path(), std::errc::operation_canceled);
        }
        if (trouble)
            return failure("list", path(), trouble->code);
        return {};
    }

    Expected<std::unique_ptr<OpenFolder>> openChild(const std::string &name) override
    {
        const std::string childPath = pathInside(name);
        m_files.m_log->record("openChild " + childPath);
        const std::lock_guard lock(m_files.m_mutex);
        const ItemPointer child = m_item->child(name);
        if (!child || child->vanished)
            return failure("open", childPath, std::errc::no_such_file_or_directory);
        if (child->type == EntryType::symbolicLink)
            return failure("open", childPath, std::errc::too_many_symbolic_link_levels);
        return m_files.open(child, childPath);
    }

    Expected<std::unique_ptr<OpenFolder>> openParent() override
    {
        const std::string here = path();
        m_files.m_log->record("openParent " + here);
        const std::lock_guard lock(m_files.m_mutex);
        if (m_item == m_files.m_root)
            return m_files.open(m_item, here);
        const ItemPointer parent = m_item->parent.lock();
        if (!parent)
            return failure("open", here, std::errc::no_such_file_or_directory);
        return m_files.open(parent, here);
    }

    FolderIdentity identity() const override
    {
        const std::lock_guard lock(m_files.m_mutex);
        return m_item->identity;
    }

    Time modified() const override
    {
        const std::lock_guard lock(m_files.m_mutex);
        return m_item->modified;
    }

private:
    [[nodiscard]] std::string path() const
    {
        const std::lock_guard lock(m_files.m_mutex);
        return pathOf(*m_item);
    }

    [[nodiscard]] std::string pathInside(const std::string &name) const
    {
        const std::string here = path();
        return (here == "/" ? here : here + "/") + name;
    }

    FakeFileSystem &m_files;
    const ItemPointer m_item;
};

Expected<std::unique_ptr<OpenFolder>> FakeFileSystem::openFolder(const std::string &path)
{
    m_log->record("openFolder " + path);
    const std::lock_guard lock(m_mutex);
    const auto item = find(path, LastLink::follow);
    if (!item)
        return failure("open", path, static_cast<std::errc>(item.error().code.value()));
    return open(*item, path);
}

Expected<std::unique_ptr<OpenFolder>> FakeFileSystem::open(const ItemPointer &item, const std::string &path)
{
    if (item->type != EntryType::directory)
        return failure("open", path, std::errc::not_a_directory);
    if (item->opening)
        return failure("open", path, item->opening->code);
    return std::make_unique<Folder>(*this, item);
}

} // namespace corvane

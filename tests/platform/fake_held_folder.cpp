#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/fake_file_system_item.h"
#include "platform/held_folder.h"
#include "platform/path.h"

namespace corvane {

class FakeFileSystem::Held final : public HeldFolder {
public:
    Held(FakeFileSystem &files, ItemPointer item, std::string path)
        : m_files(files), m_item(std::move(item)), m_path(std::move(path))
    {
    }

    const std::string &path() const override { return m_path; }

    FolderIdentity identity() const override
    {
        const std::lock_guard lock(m_files.m_mutex);
        return m_item->identity;
    }

    Expected<ItemFacts> facts(const std::string &name) override
    {
        m_files.m_log->record("facts " + joined(m_path, name));
        const std::lock_guard lock(m_files.m_mutex);
        return child(name).and_then(
            [&](const ItemPointer &item) { return m_files.factsOf(*item, joined(m_path, name)); });
    }

    Expected<void> removeItem(const std::string &name, const ItemIdentity &expected) override
    {
        m_files.m_log->record("removeItem " + joined(m_path, name));
        const std::lock_guard lock(m_files.m_mutex);
        const auto item = child(name);
        if (!item)
            return tl::unexpected(item.error());
        if (identityOf(**item) != expected)
            return tl::unexpected(replacedMeanwhile("remove", joined(m_path, name)));
        return removeTree(*item, joined(m_path, name));
    }

    Expected<void> moveItem(const std::string &name, HeldFolder &target, const std::string &newName) override
    {
        m_files.m_log->record("moveItem " + joined(m_path, name));
        const std::lock_guard lock(m_files.m_mutex);
        const auto item = child(name);
        if (!item)
            return tl::unexpected(item.error());
        const ItemPointer parent = dynamic_cast<Held &>(target).m_item;
        if (parent->child(newName))
            return failure("move", joined(target.path(), newName), std::errc::file_exists);
        detach(*item);
        attach(*item, parent, newName);
        return {};
    }

    int descriptor() const override { return -1; }

private:
    [[nodiscard]] Expected<ItemPointer> child(const std::string &name) const
    {
        const ItemPointer item = m_item->child(name);
        if (!item || item->vanished)
            return failure("find", joined(m_path, name), std::errc::no_such_file_or_directory);
        return item;
    }

    FakeFileSystem &m_files;
    const ItemPointer m_item;
    const std::string m_path;
};

TrashedItem FakeFileSystem::moveOut(const std::string &path)
{
    const std::lock_guard lock(m_mutex);
    const ItemPointer item = demand(path);
    detach(item);
    const auto outside = std::make_shared<Item>();
    outside->identity = {.device = item->identity.device, .inode = ++m_lastInode};
    attach(item, outside, item->name);
    return {std::make_shared<Held>(*this, outside, "/outside"), item->name, identityOf(*item)};
}

Expected<std::unique_ptr<HeldFolder>> FakeFileSystem::holdFolder(const std::string &path)
{
    m_log->record("holdFolder " + path);
    const std::lock_guard lock(m_mutex);
    const auto item = find(path, LastLink::follow);
    if (!item)
        return tl::unexpected(item.error());
    if ((*item)->type != EntryType::directory)
        return failure("open", path, std::errc::not_a_directory);
    return std::make_unique<Held>(*this, *item, pathOf(**item));
}

Expected<void> FakeFileSystem::removeTree(const ItemPointer &item, const std::string &path)
{
    if (const auto &trouble = item->removal)
        return tl::unexpected(Error{"remove", path, std::make_error_code(trouble->code), trouble->text});
    Expected<void> result;
    bool hasRemoved = false;
    for (const ItemPointer &child : std::vector<ItemPointer>(item->children)) {
        const Expected<void> removed = removeTree(child, path + "/" + child->name);
        hasRemoved |= removed.has_value() || removed.error().inPart;
        if (!removed && result)
            result = removed;
    }
    if (result)
        detach(item);
    else
        result.error().inPart = hasRemoved;
    return result;
}

} // namespace corvane

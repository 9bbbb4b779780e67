#include <deque>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include "platform/ascii_case.h"
#include "platform/fake_file_system_item.h"
#include "platform/text.h"

namespace corvane {

namespace {

std::deque<std::string> components(std::string_view path)
{
    std::deque<std::string> parts;
    while (!path.empty()) {
        if (const std::string_view part = takePart(path, '/'); !part.empty())
            parts.emplace_back(part);
    }
    return parts;
}

} // namespace

/// Resolves the path like a system: handles ".", ".." and intermediate links.
Expected<FakeFileSystem::ItemPointer> FakeFileSystem::find(const std::string &path, LastLink lastLink) const
{
    constexpr int mostLinks = 40;
    int links = 0;
    ItemPointer here = m_root;
    std::deque<std::string> pending = components(path);
    if (!path.starts_with('/'))
        return failure("find", path, std::errc::no_such_file_or_directory);
    while (!pending.empty()) {
        const std::string name = std::move(pending.front());
        pending.pop_front();
        if (here->type != EntryType::directory)
            return failure("find", path, std::errc::not_a_directory);
        if (name == ".")
            continue;
        if (name == "..") {
            if (const ItemPointer parent = here->parent.lock())
                here = parent;
            continue;
        }
        const ItemPointer next = here->child(name);
        if (!next || next->vanished)
            return failure("find", path, std::errc::no_such_file_or_directory);
        const bool isLast = pending.empty() && !path.ends_with('/');
        if (next->type != EntryType::symbolicLink || (isLast && lastLink == LastLink::keep)) {
            here = next;
            continue;
        }
        if (++links > mostLinks)
            return failure("find", path, std::errc::too_many_symbolic_link_levels);
        const std::deque<std::string> target = components(next->target);
        pending.insert(pending.begin(), target.begin(), target.end());
        if (next->target.starts_with('/'))
            here = m_root;
    }
    return here;
}

FakeFileSystem::ItemPointer FakeFileSystem::demand(const std::string &path) const
{
    auto item = find(path, LastLink::keep);
    if (!item)
        throw std::logic_error("The test's tree has no item " + path);
    return std::move(*item);
}

FakeFileSystem::ItemPointer FakeFileSystem::make(const std::string &path, EntryType type)
{
    if (!path.starts_with('/') || path.ends_with('/'))
        throw std::logic_error("Not the absolute path of an item: " + path);
    const std::size_t slash = path.rfind('/');
    const ItemPointer parent = makeFolders(path.substr(0, slash));
    const std::string name = path.substr(slash + 1);
    if (parent->child(name))
        throw std::logic_error("The test's tree already has an item " + path);
    const auto item = std::make_shared<Item>();
    item->name = name;
    item->type = type;
    item->parent = parent;
    item->identity = {.device = parent->identity.device, .inode = ++m_lastInode};
    parent->add(item);
    return item;
}

FakeFileSystem::ItemPointer FakeFileSystem::makeFolders(const std::string &path)
{
    if (path.empty() || path == "/")
        return m_root;
    if (const auto found = find(path, LastLink::follow)) {
        if ((*found)->type != EntryType::directory)
            throw std::logic_error("Not a folder in the test's tree: " + path);
        return *found;
    }
    return make(path, EntryType::directory);
}

bool FakeFileSystem::isPackage(const Item &item) const
{
    if (item.type != EntryType::directory)
        return false;
    if (item.package)
        return *item.package;
    const std::size_t dot = item.name.rfind('.');
    return dot != std::string::npos && dot > 0 && m_packageExtensions.contains(lowerAscii(item.name.substr(dot + 1)));
}

std::string FakeFileSystem::pathOf(const Item &item)
{
    const ItemPointer parent = item.parent.lock();
    if (!parent)
        return item.name.empty() ? "/" : item.name;
    const std::string folder = pathOf(*parent);
    return (folder == "/" ? folder : folder + "/") + item.name;
}

void FakeFileSystem::detach(const ItemPointer &item)
{
    const ItemPointer parent = item->parent.lock();
    if (!parent)
        throw std::logic_error("The test's root cannot be taken away");
    parent->drop(item);
    item->parent.reset();
}

void FakeFileSystem::attach(const ItemPointer &item, const ItemPointer &parent, const std::string &name)
{
    item->name = name;
    item->parent = parent;
    parent->add(item);
}

} // namespace corvane

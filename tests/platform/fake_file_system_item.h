#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/fake_file_system.h"

// The items of a FakeFileSystem, for its own sources. Guarded by the file system's mutex.
namespace corvane {

inline tl::unexpected<Error> failure(std::string operation, std::string path, std::errc code)
{
    return tl::unexpected(Error{std::move(operation), std::move(path), std::make_error_code(code), {}});
}

/// How a call on an item fails; a listing fails after `entries` entries.
struct Trouble {
    std::errc code{};
    std::size_t entries = 0;
    std::string text;
};

struct FakeFileSystem::Item {
    std::string name;
    EntryType type = EntryType::directory;
    std::int64_t allocated = 0;
    Time modified = distantPast;
    std::string target;
    std::string content;
    std::optional<bool> package;
    FolderIdentity identity;
    std::uint32_t links = 1;
    std::weak_ptr<Item> parent;
    std::vector<ItemPointer> children; // in listing order
    std::map<std::string, ItemPointer, std::less<>> childrenByName;

    bool vanished = false;
    std::optional<Trouble> opening, listing, facts, removal;

    [[nodiscard]] ItemPointer child(std::string_view childName) const
    {
        const auto found = childrenByName.find(childName);
        return found == childrenByName.end() ? nullptr : found->second;
    }

    void add(const ItemPointer &child)
    {
        children.push_back(child);
        childrenByName.emplace(child->name, child);
    }

    void drop(const ItemPointer &child)
    {
        std::erase(children, child);
        if (this->child(child->name) == child) // not another item with the same name
            childrenByName.erase(child->name);
    }
};

} // namespace corvane

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/file_system.h"
#include "platform/held_folder.h"

namespace corvane {

/// A file system in which every path is one endless folder, generated while it is listed: `next` returns the entries by
/// number from 0, on the listing thread. Folders inside cannot be opened.
class MadeUpFolder final : public FileSystem {
public:
    using Next = std::function<DirectoryEntry(std::uint64_t number)>;
    explicit MadeUpFolder(Next next) : m_next(std::move(next)) {}

    Expected<std::unique_ptr<OpenFolder>> openFolder(const std::string &) override
    {
        return std::make_unique<Endless>(m_next);
    }
    Expected<ItemFacts> facts(const std::string &) override { return ItemFacts{.type = EntryType::directory}; }
    bool exists(const std::string &) override { return false; }
    bool canOpen(const std::string &) override { return false; }
    Expected<std::string> realPath(const std::string &path) override { return path; }
    Expected<std::unique_ptr<HeldFolder>> holdFolder(const std::string &path) override
    {
        return tl::unexpected(Error{"open", path, std::make_error_code(std::errc::permission_denied), {}});
    }
    Expected<std::vector<std::string>> mountPoints() override { return std::vector<std::string>{"/"}; }
    std::string homeFolder() override { return "/home"; }

private:
    class Endless final : public OpenFolder {
    public:
        explicit Endless(const Next &next) : m_next(next) {}
        Expected<void> list(const EntrySink &sink) override
        {
            for (std::uint64_t number = 0; sink(m_next(number)) == Listing::goOn; ++number) {}
            return tl::unexpected(Error{"list", {}, std::make_error_code(std::errc::operation_canceled), {}});
        }
        Expected<std::unique_ptr<OpenFolder>> openChild(const std::string &name) override
        {
            return tl::unexpected(Error{"open", name, std::make_error_code(std::errc::permission_denied), {}});
        }
        Expected<std::unique_ptr<OpenFolder>> openParent() override { return openChild(".."); }
        FolderIdentity identity() const override { return {}; }
        Time modified() const override { return distantPast; }

    private:
        const Next &m_next;
    };

    const Next m_next;
};

} // namespace corvane

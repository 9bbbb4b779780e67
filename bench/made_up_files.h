#pragma once

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include "platform/file_system.h"
#include "platform/held_folder.h"

/// A synthetic file system, so that code above it is measured without disk access. Every folder at a level contains as
/// many folders as `widths` gives for that level; those at the last level contain as many files.
class MadeUpFiles final : public corvane::FileSystem {
public:
    MadeUpFiles(std::vector<std::size_t> widths, std::int64_t fileSize) : m_shape{std::move(widths), fileSize} {}

    corvane::Expected<std::unique_ptr<corvane::OpenFolder>> openFolder(const std::string &) override
    {
        return std::make_unique<Folder>(m_shape, 0, 0);
    }
    corvane::Expected<corvane::ItemFacts> facts(const std::string &) override
    {
        return corvane::ItemFacts{.type = corvane::EntryType::directory};
    }
    bool exists(const std::string &) override { return false; }
    bool canOpen(const std::string &) override { return false; }
    corvane::Expected<std::string> realPath(const std::string &path) override { return path; }
    corvane::Expected<std::unique_ptr<corvane::HeldFolder>> holdFolder(const std::string &path) override
    {
        return tl::unexpected(refusal(path));
    }
    corvane::Expected<std::vector<std::string>> mountPoints() override { return std::vector<std::string>{"/"}; }
    std::string homeFolder() override { return "/made-up"; }

private:
    struct Shape {
        std::vector<std::size_t> widths;
        std::int64_t fileSize = 0;
    };

    static corvane::Error refusal(const std::string &path)
    {
        return {"open", path, std::make_error_code(std::errc::operation_not_permitted), {}};
    }

    class Folder final : public corvane::OpenFolder {
    public:
        Folder(const Shape &shape, std::size_t level, std::uint64_t number)
            : m_shape(shape), m_level(level), m_number(number)
        {
        }

        corvane::Expected<void> list(const corvane::EntrySink &sink) override
        {
            const bool holdsFiles = m_level + 1 == m_shape.widths.size();
            for (std::size_t i = 0; i < m_shape.widths[m_level]; ++i) {
                const std::string name = fmt::format("{}{}", holdsFiles ? "film" : "folder", i);
                sink({.name = name,
                      .type = holdsFiles ? corvane::EntryType::file : corvane::EntryType::directory,
                      .allocated = holdsFiles ? m_shape.fileSize : 0,
                      .modified = {}});
            }
            return {};
        }
        corvane::Expected<std::unique_ptr<OpenFolder>> openChild(const std::string &name) override
        {
            std::uint64_t index = 0;
            const std::string_view digits = std::string_view(name).substr(std::string_view("folder").size());
            std::from_chars(digits.data(), digits.data() + digits.size(), index);
            return std::make_unique<Folder>(m_shape, m_level + 1, m_number * m_shape.widths[m_level] + index + 1);
        }
        corvane::Expected<std::unique_ptr<OpenFolder>> openParent() override { return tl::unexpected(refusal("..")); }
        [[nodiscard]] corvane::FolderIdentity identity() const override { return {m_level + 1, m_number + 1}; }
        [[nodiscard]] corvane::Time modified() const override { return corvane::distantPast; }

    private:
        const Shape &m_shape;
        const std::size_t m_level;
        const std::uint64_t m_number;
    };

    const Shape m_shape;
};

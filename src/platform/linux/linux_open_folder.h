#pragma once

#include <optional>

#include "platform/file_descriptor.h"
#include "platform/file_system.h"
#include "platform/posix/item_at.h"

namespace corvane {

/// A folder held by its descriptor: all calls are relative to it, so no path is resolved twice and none can be too
/// long.
class LinuxOpenFolder final : public OpenFolder {
public:
    /// Opens `name` relative to the folder `base` (or AT_FDCWD). A rejected link fails with ELOOP or ENOTDIR.
    [[nodiscard]] static Expected<std::unique_ptr<LinuxOpenFolder>> open(int base, const char *name, LinkRule rule);

    [[nodiscard]] Expected<void> list(const EntrySink &sink) override;
    [[nodiscard]] Expected<std::unique_ptr<OpenFolder>> openChild(const std::string &name) override;
    [[nodiscard]] Expected<std::unique_ptr<OpenFolder>> openParent() override;
    [[nodiscard]] FolderIdentity identity() const override { return facts().identity; }
    [[nodiscard]] Time modified() const override { return facts().modified; }
    [[nodiscard]] std::int64_t allocated() const override { return facts().allocated; }

    [[nodiscard]] int descriptor() const override { return m_descriptor.number(); }

private:
    struct Facts {
        FolderIdentity identity;
        Time modified;
        std::int64_t allocated = 0;
    };

    explicit LinuxOpenFolder(FileDescriptor descriptor) : m_descriptor(std::move(descriptor)) {}

    [[nodiscard]] const Facts &facts() const;
    [[nodiscard]] Listing deliver(const char *name, unsigned char type, const EntrySink &sink) const;

    FileDescriptor m_descriptor;
    mutable std::optional<Facts> m_facts; // read on first use
    bool m_listed = false;
};

} // namespace corvane

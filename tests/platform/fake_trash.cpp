#include "platform/fake_trash.h"

#include "platform/path.h"

namespace corvane {

namespace {

const char *nameOf(FakeTrash::Operation operation)
{
    switch (operation) {
    case FakeTrash::Operation::trashItem:
        return "trashItem";
    case FakeTrash::Operation::recycle:
        return "recycle";
    case FakeTrash::Operation::trashThroughFinder:
        return "trashThroughFinder";
    }
    return "";
}

} // namespace

FakeTrash::FakeTrash(FakeFileSystem &files) : m_files(files), m_folders{files.homeFolder() + "/.Trash"} {}

void FakeTrash::fail(Operation operation, const std::string &path, std::string text, std::errc code)
{
    const std::lock_guard lock(m_mutex);
    m_failures[{operation, path}] = Error{nameOf(operation), path, std::make_error_code(code), std::move(text)};
}

void FakeTrash::pretend(Operation operation, const std::string &path)
{
    const std::lock_guard lock(m_mutex);
    m_pretended.insert({operation, path});
}

void FakeTrash::lack(Operation operation)
{
    const std::lock_guard lock(m_mutex);
    m_lacking.insert(operation);
}

void FakeTrash::setTrashFolders(std::vector<std::string> folders)
{
    const std::lock_guard lock(m_mutex);
    m_folders = std::move(folders);
}

std::vector<std::string> FakeTrash::trashed() const
{
    const std::lock_guard lock(m_mutex);
    return m_trashed;
}

Expected<TrashedItem> FakeTrash::trashItem(HeldFolder &folder, const std::string &name)
{
    return perform(Operation::trashItem, joined(folder.path(), name));
}

Expected<TrashedItem> FakeTrash::recycle(HeldFolder &folder, const std::string &name)
{
    return perform(Operation::recycle, joined(folder.path(), name));
}

Expected<void> FakeTrash::trashThroughFinder(const std::string &path)
{
    return perform(Operation::trashThroughFinder, path).map([](const TrashedItem &) {});
}

void FakeTrash::forget(HeldFolder &folder, const std::string &name)
{
    m_files.log()->record("forget " + joined(folder.path(), name));
}

std::vector<std::string> FakeTrash::trashFolders()
{
    const std::lock_guard lock(m_mutex);
    return m_folders;
}

Expected<TrashedItem> FakeTrash::perform(Operation operation, const std::string &path)
{
    m_files.log()->record(std::string(nameOf(operation)) + " " + path);
    const std::lock_guard lock(m_mutex);
    if (m_lacking.contains(operation)) {
        return tl::unexpected(Error{nameOf(operation), path, std::make_error_code(std::errc::not_supported),
                                    "This system has no such way to the Trash."});
    }
    if (const auto failure = m_failures.find({operation, path}); failure != m_failures.end())
        return tl::unexpected(failure->second);
    if (m_pretended.contains({operation, path}))
        return TrashedItem{};
    if (!m_files.has(path)) {
        return tl::unexpected(
            Error{nameOf(operation), path, std::make_error_code(std::errc::no_such_file_or_directory), {}});
    }
    m_trashed.push_back(path);
    return m_files.moveOut(path);
}

} // namespace corvane

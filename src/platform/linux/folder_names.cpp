#include "platform/linux/folder_names.h"

#include <utility>

#include <dirent.h>

#include "platform/posix/directory_stream.h"

namespace corvane {

void forEachName(FileDescriptor folder, const std::function<void(const char *)> &visit)
{
    const DirectoryStream names = streamOf(std::move(folder));
    if (!names)
        return;
    while (const dirent *entry = ::readdir(names.get()))
        visit(entry->d_name);
}

} // namespace corvane

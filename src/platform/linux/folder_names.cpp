#include "platform/linux/folder_names.h"

#include <memory>
#include <utility>

#include <dirent.h>

namespace corvane {

void forEachName(FileDescriptor folder, const std::function<void(const char *)> &visit)
{
    const auto close = [](DIR *listing) { ::closedir(listing); };
    const std::unique_ptr<DIR, decltype(close)> listing(folder.isOpen() ? ::fdopendir(folder.number()) : nullptr);
    if (!listing)
        return;
    static_cast<void>(folder.release()); // the listing closes it
    while (const dirent *entry = ::readdir(listing.get()))
        visit(entry->d_name);
}

} // namespace corvane

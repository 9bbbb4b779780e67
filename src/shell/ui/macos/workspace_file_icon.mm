// macOS has an icon for every item.

#import <AppKit/AppKit.h>

#include "shell/ui/macos/ns_image.h"
#include "shell/ui/system_file_icon.h"

namespace corvane {

namespace {

/// Any thread: the workspace is thread-safe here.
QImage workspaceIcon(const std::string &path, int pixels)
{
    @autoreleasepool {
        NSString *name = [NSFileManager.defaultManager stringWithFileSystemRepresentation:path.data()
                                                                                   length:path.size()];
        return name == nil ? QImage() : rasterized([NSWorkspace.sharedWorkspace iconForFile:name], pixels);
    }
}

} // namespace

QImage systemFileIcon(const std::string &path, FileNode::Kind, int pixels)
{
    return workspaceIcon(path, pixels);
}

QImage systemBundleIcon(const std::string &path, int pixels)
{
    return workspaceIcon(path, pixels);
}

// An application has its own icon, and any item may have a custom one.
std::string iconPath(const std::string &path, FileNode::Kind)
{
    return path;
}

} // namespace corvane

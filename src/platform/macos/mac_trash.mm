#include "platform/macos/mac_trash.h"

#import <AppKit/AppKit.h>

#include <cerrno>

#include <sys/stat.h>
#include <unistd.h>

#include "platform/failure.h"
#include "platform/finder_script.h"
#include "platform/macos/foundation_bridge.h"
#include "platform/macos/mounted_volumes.h"
#include "platform/path.h"

namespace corvane {

namespace {

/// The closest `errno` value.
int codeOfScriptError(NSInteger number)
{
    switch (number) {
    case -1743: // denied by the user
    case -1744: // requires the user's consent
        return EPERM;
    case -1728:
        return ENOENT; // no such object
    case -1712:
        return ETIMEDOUT;
    case -600:
        return ESRCH; // the Finder is not running
    case -128:
        return ECANCELED;
    default:
        return EIO;
    }
}

/// The error reported by the script interpreter, or nothing.
NSDictionary<NSString *, id> *errorOfScript(const std::string &source)
{
    NSString *text = [NSString stringWithUTF8String:source.c_str()];
    if (text == nil)
        return @{NSAppleScriptErrorMessage : @"The path is not valid text."};
    NSDictionary<NSString *, id> *error = nil;
    NSAppleScript *script = [[NSAppleScript alloc] initWithSource:text];
    if (script == nil)
        return @{NSAppleScriptErrorMessage : @"The script could not be made."};
    [script executeAndReturnError:&error];
    return error;
}

/// The item at the location returned by the system; a null folder if it returned none.
TrashedItem arrivedItem(NSURL *url, FileSystem &files)
{
    if (url == nil)
        return {};
    const std::string path = withoutDots(url.fileSystemRepresentation);
    Expected<std::unique_ptr<HeldFolder>> folder = files.holdFolder(std::string(containingFolder(path)));
    if (!folder)
        return {};
    const std::string name(lastPathComponent(path));
    const Expected<ItemFacts> facts = (*folder)->facts(name);
    return {std::move(*folder), name, facts ? facts->identity : ItemIdentity{}};
}

/// Calls `act` with the item's URL and path, unless the path leads to an item other than the one with that name in the
/// open folder: the system takes only the path and would act on whatever is there.
template <typename Act>
Expected<TrashedItem> withUrlOf(const char *operation, HeldFolder &folder, const std::string &name, FileSystem &files,
                                const Act &act)
{
    const std::string path = joined(folder.path(), name);
    return guarded(operation, path, [&]() -> Expected<TrashedItem> {
        NSURL *url = fileUrl(path);
        if (url == nil)
            return failure(operation, path, EINVAL);
        const Expected<ItemFacts> held = folder.facts(name);
        if (!held)
            return tl::unexpected(held.error());
        const Expected<ItemFacts> there = files.facts(path);
        if (!there || there->identity != held->identity)
            return tl::unexpected(replacedMeanwhile(operation, path));
        return act(url, path);
    });
}

} // namespace

Expected<TrashedItem> MacTrash::trashItem(HeldFolder &folder, const std::string &name)
{
    const auto move = [&](NSURL *url, const std::string &path) -> Expected<TrashedItem> {
        NSError *error = nil;
        NSURL *arrivedAt = nil;
        if ([NSFileManager.defaultManager trashItemAtURL:url resultingItemURL:&arrivedAt error:&error])
            return arrivedItem(arrivedAt, m_files);
        return tl::unexpected(foundationError(moveToTrash, path, error));
    };
    return withUrlOf(moveToTrash, folder, name, m_files, move);
}

Expected<TrashedItem> MacTrash::recycle(HeldFolder &folder, const std::string &name)
{
    constexpr const char *operation = "recycle";
    const auto recycle = [&](NSURL *url, const std::string &path) -> Expected<TrashedItem> {
        // Written by the completion handler on the main thread, read here after waiting for it.
        __block bool isMoved = false;
        __block NSURL *arrivedAt = nil;
        __block NSError *error = nil;
        __block bool isFinished = false;
        dispatch_semaphore_t finished = dispatch_semaphore_create(0);
        void (^start)(void) = ^{
            @try {
                [NSWorkspace.sharedWorkspace recycleURLs:@[ url ]
                                       completionHandler:^(NSDictionary<NSURL *, NSURL *> *moved, NSError *problem) {
                                           isMoved = problem == nil && moved.count == 1;
                                           arrivedAt = moved.allValues.firstObject;
                                           error = problem;
                                           isFinished = true;
                                           dispatch_semaphore_signal(finished);
                                       }];
            } @catch (NSException *exception) {
                NSLog(@"%@", exception);
                isFinished = true;
                dispatch_semaphore_signal(finished);
            }
        };
        if (NSThread.isMainThread) {
            start();
            while (!isFinished) // run the loop while waiting: the completion handler runs on it
                CFRunLoopRunInMode(kCFRunLoopDefaultMode, 0.1, true);
        } else {
            dispatch_async(dispatch_get_main_queue(), start);
            dispatch_semaphore_wait(finished, DISPATCH_TIME_FOREVER);
        }
        if (isMoved)
            return arrivedItem(arrivedAt, m_files);
        return error != nil ? tl::unexpected(foundationError(operation, path, error)) : failure(operation, path, EIO);
    };
    return withUrlOf(operation, folder, name, m_files, recycle);
}

Expected<void> MacTrash::trashThroughFinder(const std::string &path)
{
    constexpr const char *operation = "delete through the Finder";
    return guarded(operation, path, [&]() -> Expected<void> {
        __block NSDictionary<NSString *, id> *error = nil;
        const std::string source = finderDeleteScript(path);
        void (^run)(void) = ^{
            @try {
                error = errorOfScript(source);
            } @catch (NSException *exception) {
                error = @{NSAppleScriptErrorMessage : exception.name};
            }
        };
        if (NSThread.isMainThread)
            run();
        else
            dispatch_sync(dispatch_get_main_queue(), run);

        struct stat status {};
        if (::lstat(path.c_str(), &status) != 0 && errno == ENOENT)
            return {};
        if (error == nil)
            return failure(operation, path, EIO);
        NSNumber *number = error[NSAppleScriptErrorNumber];
        return failure(operation, path, codeOfScriptError(number.integerValue),
                       bytesOf(error[NSAppleScriptErrorMessage]));
    });
}

std::vector<std::string> MacTrash::trashFolders()
{
    std::vector<std::string> folders{joined(m_files.homeFolder(), ".Trash")};
    for (const struct statfs &volume : mountedVolumes()) {
        if ((volume.f_flags & MNT_DONTBROWSE) == 0)
            folders.push_back(joined(volume.f_mntonname, ".Trashes/" + std::to_string(::getuid())));
    }
    return folders;
}

} // namespace corvane

#include "platform/macos/mac_trash.h"

#import <AppKit/AppKit.h>

#include <algorithm>
#include <cerrno>

#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/finder_script.h"
#include "platform/macos/foundation_bridge.h"

namespace corvane {

namespace {

tl::unexpected<Error> failure(const char *operation, const std::string &path, int code)
{
    return tl::unexpected(Error{operation, path, {code, std::generic_category()}, {}});
}

std::errc codeOfScriptError(NSInteger number)
{
    switch (number) {
    case -1743: // the user forbade it
    case -1744: // the user would have to be asked
        return std::errc::operation_not_permitted;
    case -1728:
        return std::errc::no_such_file_or_directory; // no such object
    case -1712:
        return std::errc::timed_out;
    case -600:
        return std::errc::no_such_process; // the Finder is not running
    case -128:
        return std::errc::operation_canceled;
    default:
        return std::errc::io_error;
    }
}

/// What the script's interpreter says went wrong, or nothing.
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

} // namespace

Expected<void> MacTrash::trashItem(const std::string &path)
{
    constexpr const char *operation = "move to Trash";
    return guarded(operation, path, [&]() -> Expected<void> {
        NSURL *url = fileUrl(path);
        if (url == nil)
            return failure(operation, path, EINVAL);
        NSError *error = nil;
        if ([NSFileManager.defaultManager trashItemAtURL:url resultingItemURL:nil error:&error])
            return {};
        return tl::unexpected(foundationError(operation, path, error));
    });
}

Expected<void> MacTrash::recycle(const std::string &path)
{
    constexpr const char *operation = "recycle";
    return guarded(operation, path, [&]() -> Expected<void> {
        NSURL *url = fileUrl(path);
        if (url == nil)
            return failure(operation, path, EINVAL);

        // Filled in by the completion on the main thread, read here once that has been waited for.
        __block bool isMoved = false;
        __block NSError *error = nil;
        __block bool isFinished = false;
        dispatch_semaphore_t finished = dispatch_semaphore_create(0);
        void (^start)(void) = ^{
            @try {
                [NSWorkspace.sharedWorkspace recycleURLs:@[ url ]
                                       completionHandler:^(NSDictionary<NSURL *, NSURL *> *moved, NSError *problem) {
                                           isMoved = problem == nil && moved.count == 1;
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
            while (!isFinished) // a wait without turning the loop would never end: the completion runs on it
                CFRunLoopRunInMode(kCFRunLoopDefaultMode, 0.1, true);
        } else {
            dispatch_async(dispatch_get_main_queue(), start);
            dispatch_semaphore_wait(finished, DISPATCH_TIME_FOREVER);
        }
        if (isMoved)
            return {};
        return error != nil ? tl::unexpected(foundationError(operation, path, error)) : failure(operation, path, EIO);
    });
}

Expected<void> MacTrash::deleteThroughFinder(const std::string &path)
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
        return tl::unexpected(Error{operation, path, std::make_error_code(codeOfScriptError(number.integerValue)),
                                    bytesOf(error[NSAppleScriptErrorMessage])});
    });
}

std::vector<std::string> MacTrash::trashFolders()
{
    std::vector<std::string> folders{m_files.homeFolder() + "/.Trash"};
    // Without waiting for a volume that no longer answers.
    std::vector<struct statfs> volumes(static_cast<std::size_t>(std::max(0, ::getfsstat(nullptr, 0, MNT_NOWAIT))));
    const int count = ::getfsstat(volumes.data(), static_cast<int>(volumes.size() * sizeof(struct statfs)), MNT_NOWAIT);
    volumes.resize(static_cast<std::size_t>(std::max(0, count)));
    for (const struct statfs &volume : volumes) {
        if ((volume.f_flags & MNT_DONTBROWSE) == 0) {
            const std::string top = volume.f_mntonname;
            folders.push_back((top == "/" ? top : top + "/") + ".Trashes/" + std::to_string(::getuid()));
        }
    }
    return folders;
}

} // namespace corvane

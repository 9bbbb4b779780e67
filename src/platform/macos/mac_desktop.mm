#include "platform/macos/mac_desktop.h"

#import <AppKit/AppKit.h>

#include <cerrno>

#include <sys/stat.h>

#include "platform/failure.h"
#include "platform/macos/foundation_bridge.h"

namespace corvane {

Expected<void> MacDesktop::reveal(const std::string &path, FailureHandler /*failed*/)
{
    return guarded("reveal", path, [&]() -> Expected<void> {
        struct stat status {};
        if (::lstat(path.c_str(), &status) != 0)
            return failure("reveal", path, errno);
        NSURL *url = fileUrl(path);
        if (url == nil)
            return failure("reveal", path, EINVAL);
        [NSWorkspace.sharedWorkspace activateFileViewerSelectingURLs:@[ url ]];
        return {};
    });
}

Expected<void> MacDesktop::openUrl(const std::string &url)
{
    return guarded("open", url, [&]() -> Expected<void> {
        NSString *text = [NSString stringWithUTF8String:url.c_str()];
        NSURL *address = text != nil ? [NSURL URLWithString:text] : nil;
        if (address == nil)
            return failure("open", url, EINVAL);
        if (![NSWorkspace.sharedWorkspace openURL:address])
            return failure("open", url, ENOTSUP);
        return {};
    });
}

void MacDesktop::activateApplication()
{
    guardedAnswer(false, [] {
        NSApplication *application = NSApplication.sharedApplication;
        [application setActivationPolicy:NSApplicationActivationPolicyRegular];
        [application activateIgnoringOtherApps:YES];
        return true;
    });
}

void MacDesktop::log(std::string_view message)
{
    guardedAnswer(false, [&] {
        NSLog(@"%@", displayText(message));
        return true;
    });
}

std::shared_ptr<void> MacDesktop::keepAtFullSpeed(std::string_view reason)
{
    return guardedAnswer(std::shared_ptr<void>(), [&] {
        id activity = [NSProcessInfo.processInfo beginActivityWithOptions:NSActivityUserInitiatedAllowingIdleSystemSleep
                                                                   reason:displayText(reason)];
        return std::shared_ptr<void>((__bridge_retained void *)activity, [](void *held) {
            guardedAnswer(false, [&] {
                [NSProcessInfo.processInfo endActivity:(__bridge_transfer id)held];
                return true;
            });
        });
    });
}

bool MacDesktop::prefersReducedMotion()
{
    return guardedAnswer(
        false, [] { return static_cast<bool>(NSWorkspace.sharedWorkspace.accessibilityDisplayShouldReduceMotion); });
}

} // namespace corvane

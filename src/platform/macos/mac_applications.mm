#include "platform/macos/mac_applications.h"

#import <AppKit/AppKit.h>
#import <CoreServices/CoreServices.h>

#include <cmath>

#include "platform/macos/foundation_bridge.h"

namespace corvane {

namespace {

/// The instances that have not quit: the workspace may list one for a while afterwards.
NSArray<NSRunningApplication *> *applications(const std::string &bundleID)
{
    NSString *identifier = [NSString stringWithUTF8String:bundleID.c_str()];
    if (identifier.length == 0)
        return @[];
    NSMutableArray<NSRunningApplication *> *running = [NSMutableArray array];
    for (NSRunningApplication *application in
         [NSRunningApplication runningApplicationsWithBundleIdentifier:identifier]) {
        if (!application.terminated && application.processIdentifier > 0)
            [running addObject:application];
    }
    return running;
}

} // namespace

std::vector<std::int64_t> MacApplications::running(const ProgramMarks &app)
{
    return guardedAnswer(std::vector<std::int64_t>{}, [&] {
        std::vector<std::int64_t> instances;
        for (NSRunningApplication *application in applications(app.bundleID))
            instances.push_back(application.processIdentifier);
        return instances;
    });
}

void MacApplications::requestQuit(std::int64_t instance, const ProgramMarks &app)
{
    guardedAnswer(false, [&] {
        for (NSRunningApplication *application in applications(app.bundleID)) {
            if (application.processIdentifier == instance)
                return static_cast<bool>([application terminate]);
        }
        return false;
    });
}

std::optional<Time> MacApplications::lastUsed(const std::string &bundlePath)
{
    return guardedAnswer(std::optional<Time>{}, [&]() -> std::optional<Time> {
        NSURL *url = fileUrl(bundlePath);
        if (url == nil)
            return std::nullopt;
        MDItemRef item = MDItemCreateWithURL(nullptr, (__bridge CFURLRef)url);
        if (item == nullptr)
            return std::nullopt;
        id value = CFBridgingRelease(MDItemCopyAttribute(item, kMDItemLastUsedDate));
        CFRelease(item);
        if (![value isKindOfClass:NSDate.class])
            return std::nullopt;
        const double seconds = std::floor(static_cast<NSDate *>(value).timeIntervalSince1970);
        constexpr double farthest = 1e12; // beyond any calendar
        if (!(std::abs(seconds) < farthest))
            return std::nullopt;
        return Time(std::chrono::seconds(static_cast<std::int64_t>(seconds)));
    });
}

} // namespace corvane

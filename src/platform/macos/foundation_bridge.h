#pragma once

#import <Foundation/Foundation.h>

#include <string>
#include <utility>

#include "platform/error.h"

namespace corvane {

/// Conversions between our types and Foundation's. Objective-C++ only.

/// The URL of the item itself, not of a link's target. Nil for bytes that are not a valid Mac path.
NSURL *fileUrl(const std::string &path);

/// Bytes as display text; text that is not UTF-8 is shown byte by byte.
NSString *displayText(std::string_view bytes);

std::string bytesOf(NSString *text);

/// An error with the system's message and the underlying kernel code, if any, otherwise the closest code.
Error foundationError(std::string operation, std::string path, NSError *error);

/// For an Objective-C exception caught at the boundary to C++.
Error exceptionError(std::string operation, std::string path, NSException *exception);

/// Runs system calls whose result is an Expected. Objective-C exceptions become errors, and autoreleased objects are
/// freed afterwards.
template <typename Body> auto guarded(const char *operation, const std::string &path, Body body) -> decltype(body())
{
    @autoreleasepool {
        @try {
            return body();
        } @catch (NSException *exception) {
            return tl::unexpected(exceptionError(operation, path, exception));
        }
    }
}

/// The same for queries that cannot fail: returns `otherwise` in case of an exception.
template <typename Answer, typename Body> Answer guardedAnswer(Answer otherwise, Body body)
{
    @autoreleasepool {
        @try {
            return body();
        } @catch (NSException *exception) {
            NSLog(@"%@", exception);
            return otherwise;
        }
    }
}

} // namespace corvane

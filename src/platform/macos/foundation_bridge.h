#pragma once

#import <Foundation/Foundation.h>

#include <string>
#include <utility>

#include "platform/error.h"

namespace corvane {

/// Between our values and Foundation's. Objective-C++ only.

/// The item at those bytes, itself and not what it links to. Nil for bytes that no Mac path can be.
NSURL *fileUrl(const std::string &path);

/// Bytes as text to show; what is not UTF-8 is shown byte by byte.
NSString *displayText(std::string_view bytes);

std::string bytesOf(NSString *text);

/// The system's sentence, with the kernel's code where one lies beneath, else the code that comes closest.
Error foundationError(std::string operation, std::string path, NSError *error);

/// For an Objective-C exception that was caught on its way into C++.
Error exceptionError(std::string operation, std::string path, NSException *exception);

/// Runs what talks to the system, which returns an Expected. Nothing that is thrown in Objective-C gets out,
/// and what was autoreleased is gone afterwards.
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

/// The same for questions that cannot fail: `otherwise` is the answer in place of an exception.
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

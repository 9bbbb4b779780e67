#include "platform/macos/foundation_bridge.h"

namespace corvane {

namespace {

std::errc codeOfCocoaError(NSInteger code)
{
    switch (code) {
    case NSFileNoSuchFileError:
    case NSFileReadNoSuchFileError:
        return std::errc::no_such_file_or_directory;
    case NSFileReadNoPermissionError:
    case NSFileWriteNoPermissionError:
        return std::errc::permission_denied;
    case NSFileWriteVolumeReadOnlyError:
        return std::errc::read_only_file_system;
    case NSFileWriteOutOfSpaceError:
        return std::errc::no_space_on_device;
    case NSFileWriteFileExistsError:
        return std::errc::file_exists;
    case NSFeatureUnsupportedError:
        return std::errc::not_supported; // the volume has no Trash
    case NSUserCancelledError:
        return std::errc::operation_canceled;
    default:
        return std::errc::io_error;
    }
}

std::error_code codeOf(NSError *error)
{
    for (NSError *each = error; each != nil; each = each.userInfo[NSUnderlyingErrorKey]) {
        if ([each.domain isEqualToString:NSPOSIXErrorDomain])
            return {static_cast<int>(each.code), std::generic_category()};
    }
    const bool isCocoa = [error.domain isEqualToString:NSCocoaErrorDomain];
    return std::make_error_code(isCocoa ? codeOfCocoaError(error.code) : std::errc::io_error);
}

} // namespace

NSURL *fileUrl(const std::string &path)
{
    // Pass isDirectory:NO so that the URL never ends in a slash, which would follow a link.
    return [NSURL fileURLWithFileSystemRepresentation:path.c_str() isDirectory:NO relativeToURL:nil];
}

NSString *displayText(std::string_view bytes)
{
    NSString *text = [[NSString alloc] initWithBytes:bytes.data() length:bytes.size() encoding:NSUTF8StringEncoding];
    if (text != nil)
        return text;
    return [[NSString alloc] initWithBytes:bytes.data() length:bytes.size() encoding:NSISOLatin1StringEncoding];
}

std::string bytesOf(NSString *text)
{
    const char *bytes = text.UTF8String;
    return bytes != nullptr ? bytes : std::string();
}

Error foundationError(std::string operation, std::string path, NSError *error)
{
    return Error{std::move(operation), std::move(path), codeOf(error), bytesOf(error.localizedDescription)};
}

Error exceptionError(std::string operation, std::string path, NSException *exception)
{
    return Error{std::move(operation), std::move(path), std::make_error_code(std::errc::io_error),
                 bytesOf(exception.reason)};
}

} // namespace corvane

#include "platform/linux/gio_error.h"

#include <utility>

namespace corvane {

namespace {

/// A GIO error has a kind but not the original errno.
std::errc codeOf(const GError &error)
{
    if (error.domain != G_IO_ERROR)
        return std::errc::io_error;
    switch (error.code) {
    case G_IO_ERROR_NOT_FOUND:
        return std::errc::no_such_file_or_directory;
    case G_IO_ERROR_EXISTS:
        return std::errc::file_exists;
    case G_IO_ERROR_IS_DIRECTORY:
        return std::errc::is_a_directory;
    case G_IO_ERROR_NOT_DIRECTORY:
        return std::errc::not_a_directory;
    case G_IO_ERROR_NOT_EMPTY:
        return std::errc::directory_not_empty;
    case G_IO_ERROR_FILENAME_TOO_LONG:
        return std::errc::filename_too_long;
    case G_IO_ERROR_INVALID_FILENAME:
    case G_IO_ERROR_INVALID_ARGUMENT:
        return std::errc::invalid_argument;
    case G_IO_ERROR_TOO_MANY_LINKS:
        return std::errc::too_many_symbolic_link_levels;
    case G_IO_ERROR_NO_SPACE:
        return std::errc::no_space_on_device;
    case G_IO_ERROR_PERMISSION_DENIED:
        return std::errc::permission_denied;
    case G_IO_ERROR_NOT_SUPPORTED:
        return std::errc::not_supported;
    case G_IO_ERROR_CANCELLED:
        return std::errc::operation_canceled;
    case G_IO_ERROR_READ_ONLY:
        return std::errc::read_only_file_system;
    case G_IO_ERROR_TIMED_OUT:
        return std::errc::timed_out;
    case G_IO_ERROR_BUSY:
        return std::errc::device_or_resource_busy;
    default:
        return std::errc::io_error;
    }
}

} // namespace

Error gioError(std::string operation, std::string path, const GError &error)
{
    return Error{std::move(operation), std::move(path), std::make_error_code(codeOf(error)), error.message};
}

} // namespace corvane

#include "platform/held_folder.h"

#include <cerrno>
#include <utility>

namespace corvane {

Error replacedMeanwhile(std::string operation, std::string path)
{
    return Error{std::move(operation),
                 std::move(path),
                 {ESTALE, std::generic_category()},
                 "it was replaced while it was being removed"};
}

} // namespace corvane

#pragma once

#include <cstdint>
#include <string>

namespace corvane {

// Sentences about a removal before it starts. The window and the command line both show them.

/// "2 of them are in the Trash and will be deleted permanently", for `inTrash` of `count` listed items; empty for 0.
[[nodiscard]] std::string inTrashText(std::int64_t inTrash, std::int64_t count);

/// "Permanently delete 3 items?"
[[nodiscard]] std::string deletionQuestion(std::int64_t count);

/// The answer to it that deletes: "Delete 2.5 MB Permanently".
[[nodiscard]] std::string deletionAnswer(std::int64_t bytes);

} // namespace corvane

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvane {

/// An application's own description for software catalogues ("metainfo"). Any thread.
struct AppDescription {
    std::string name;    ///< one line, in English; empty if missing
    std::string version; ///< of the newest release; empty if missing

    /// Reads only the tags, whatever the text is; opens nothing that the text refers to.
    [[nodiscard]] static AppDescription parse(std::string_view text);

    friend bool operator==(const AppDescription &, const AppDescription &) = default;
};

} // namespace corvane

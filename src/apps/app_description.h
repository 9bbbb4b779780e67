#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvane {

/// What the description that an application brings along for software catalogues ("metainfo") tells of it. Any thread.
struct AppDescription {
    std::string name;    ///< on one line, in English; empty where it tells none
    std::string version; ///< of the newest release; empty where it tells none

    /// Reads the tags alone, whatever the text is; nothing that it names is opened.
    [[nodiscard]] static AppDescription parse(std::string_view text);

    friend bool operator==(const AppDescription &, const AppDescription &) = default;
};

} // namespace corvane

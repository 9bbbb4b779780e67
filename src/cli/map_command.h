#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "cli/console.h"
#include "cli/exit_status.h"
#include "map/rect.h"
#include "platform/host.h"

namespace corvane {

/// `corvane-cli map`: one folder as a treemap, as figures or as a picture.
struct MapCommand {
    std::string path;
    Rect size{0, 0, 900, 600};
    std::optional<std::string> svgFile; ///< "-" is standard output
    bool json = false;

    [[nodiscard]] ExitStatus run(Console &console, const Host &host) const;
};

/// A size such as "900x600", each side from 1 to 100,000 points.
[[nodiscard]] std::optional<Rect> mapSize(std::string_view text);

} // namespace corvane

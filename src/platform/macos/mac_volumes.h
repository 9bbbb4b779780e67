#pragma once

#include "platform/volume.h"

namespace corvane {

/// Volume facts from Foundation, in one request. Any thread.
class MacVolumes final : public Volumes {
public:
    [[nodiscard]] VolumeFacts facts(const std::string &path) override;
};

} // namespace corvane

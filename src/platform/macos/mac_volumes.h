#pragma once

#include "platform/volume.h"

namespace corvane {

/// What Foundation knows of a volume, in one request. Any thread.
class MacVolumes final : public Volumes {
public:
    [[nodiscard]] VolumeFacts facts(const std::string &path) override;
};

} // namespace corvane

#pragma once

#include "platform/volume.h"

namespace corvane {

/// Capacities through statvfs, counted as df does: what is available to users, and with it what is used. Absent where
/// the figures contradict each other or are larger than a size can be. A volume's name is nothing that every Linux file
/// system has, and no space is kept that the system would free when it is needed: both are absent. Any thread.
class LinuxVolumes final : public Volumes {
public:
    [[nodiscard]] VolumeFacts facts(const std::string &path) override;
};

} // namespace corvane

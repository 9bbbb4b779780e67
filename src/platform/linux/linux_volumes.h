#pragma once

#include "platform/volume.h"

namespace corvane {

/// Capacities through statvfs, counted as df does: what is available to users, and with it what is used. Absent where
/// the figures contradict each other or are larger than a size can be. No space is kept that the system would free when
/// it is needed: that is absent, as is the name of a single volume. Any thread.
class LinuxVolumes final : public Volumes {
public:
    [[nodiscard]] VolumeFacts facts(const std::string &path) override;
    [[nodiscard]] std::vector<SwapFile> swapFiles() override;
    [[nodiscard]] std::vector<HeldFiles> deletedFiles(const std::string &home) override;
};

} // namespace corvane

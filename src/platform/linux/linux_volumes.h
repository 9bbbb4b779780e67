#pragma once

#include "platform/volume.h"

namespace corvane {

/// Capacities from statvfs, counted as df does: total is available plus used. Absent if the figures are contradictory
/// or too large. Linux has no purgeable space, so that figure is absent, as is the name of a volume. Any thread.
class LinuxVolumes final : public Volumes {
public:
    [[nodiscard]] VolumeFacts facts(const std::string &path) override;
    [[nodiscard]] std::vector<SwapFile> swapFiles() override;
    [[nodiscard]] std::vector<OpenDeletedFiles> deletedFiles(const std::string &home) override;
};

} // namespace corvane

#include "platform/macos/mac_volumes.h"

#include "platform/macos/foundation_bridge.h"

namespace corvane {

namespace {

std::optional<std::int64_t> bytes(id value)
{
    if (![value isKindOfClass:NSNumber.class])
        return std::nullopt;
    return static_cast<NSNumber *>(value).longLongValue;
}

} // namespace

VolumeFacts MacVolumes::facts(const std::string &path)
{
    return guardedAnswer(VolumeFacts{}, [&] {
        NSArray<NSURLResourceKey> *keys = @[
            NSURLVolumeNameKey, NSURLVolumeTotalCapacityKey, NSURLVolumeAvailableCapacityForImportantUsageKey,
            NSURLVolumeAvailableCapacityKey
        ];
        NSDictionary<NSURLResourceKey, id> *values = [fileUrl(path) resourceValuesForKeys:keys error:nil];
        VolumeFacts facts;
        if (id name = values[NSURLVolumeNameKey]; [name isKindOfClass:NSString.class])
            facts.name = bytesOf(name);
        facts.total = bytes(values[NSURLVolumeTotalCapacityKey]);
        facts.available = bytes(values[NSURLVolumeAvailableCapacityKey]);
        facts.availableForImportantUse = bytes(values[NSURLVolumeAvailableCapacityForImportantUsageKey]);
        return facts;
    });
}

} // namespace corvane

#import <Foundation/Foundation.h>

#include "platform/macos/foundation_bridge.h"
#include "shell/macos/sparkle_controller.h"
#include "shell/update_system.h"

namespace corvane {

namespace {

/// A string from the bundle's property list; empty if it is missing or not a string.
QString bundleText(NSString *key)
{
    return guardedAnswer(QString(), [key] {
        id value = [NSBundle.mainBundle objectForInfoDictionaryKey:key];
        return [value isKindOfClass:NSString.class] ? QString::fromNSString(value) : QString();
    });
}

} // namespace

UpdateConfiguration UpdateConfiguration::ofThisBuild()
{
    return {bundleText(@"SUFeedURL"), bundleText(@"SUPublicEDKey")};
}

// The framework reads the property list itself and stores the settings.
std::unique_ptr<UpdateController> makeUpdateController(const UpdateConfiguration &, UserDefaults &)
{
    return std::make_unique<SparkleController>();
}

} // namespace corvane

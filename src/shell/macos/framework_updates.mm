#import <Foundation/Foundation.h>

#include "platform/macos/foundation_bridge.h"
#include "shell/macos/sparkle_controller.h"
#include "shell/update_system.h"

namespace corvane {

namespace {

/// A value of the bundle's property list; empty where it is not there or no text.
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

// The framework reads the property list itself, and keeps the settings.
std::unique_ptr<UpdateController> makeUpdateController(const UpdateConfiguration &, UserDefaults &)
{
    return std::make_unique<SparkleController>();
}

} // namespace corvane

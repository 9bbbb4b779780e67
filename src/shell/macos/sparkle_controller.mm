#include "shell/macos/sparkle_controller.h"

#import <Sparkle/SPUStandardUpdaterController.h>
#import <Sparkle/SPUUpdater.h>

#include <functional>
#include <utility>

#include "platform/macos/foundation_bridge.h"

// Reports changes of the updater's properties on the main thread, until stopped.
@interface CorvaneUpdaterObserver : NSObject
- (instancetype)initWithUpdater:(SPUUpdater *)updater changed:(std::function<void(NSString *)>)changed;
- (void)stop;
@end

@implementation CorvaneUpdaterObserver {
    SPUUpdater *_updater;
    std::function<void(NSString *)> _changed;
}

- (NSArray<NSString *> *)keys
{
    return @[ @"canCheckForUpdates", @"automaticallyChecksForUpdates", @"automaticallyDownloadsUpdates" ];
}

- (instancetype)initWithUpdater:(SPUUpdater *)updater changed:(std::function<void(NSString *)>)changed
{
    if ((self = [super init])) {
        _updater = updater;
        _changed = std::move(changed);
        for (NSString *key in [self keys])
            [_updater addObserver:self forKeyPath:key options:0 context:nullptr];
    }
    return self;
}

- (void)stop
{
    for (NSString *key in [self keys])
        [_updater removeObserver:self forKeyPath:key];
    _updater = nil;
    _changed = nullptr;
}

- (void)observeValueForKeyPath:(NSString *)key
                      ofObject:(id)object
                        change:(NSDictionary<NSKeyValueChangeKey, id> *)change
                       context:(void *)context
{
    (void)object;
    (void)change;
    (void)context;
    if (_changed)
        _changed(key);
}

@end

namespace corvane {

struct SparkleController::Framework {
    SPUStandardUpdaterController *controller;
    CorvaneUpdaterObserver *observer;
};

SparkleController::SparkleController(QObject *parent)
    : UpdateController(parent), m_framework(std::make_unique<Framework>())
{
    @autoreleasepool {
        m_framework->controller = [[SPUStandardUpdaterController alloc] initWithStartingUpdater:NO
                                                                                updaterDelegate:nil
                                                                             userDriverDelegate:nil];
        const auto tell = [this](NSString *key) {
            if ([key isEqualToString:@"canCheckForUpdates"])
                emit canCheckForUpdatesChanged();
            else
                emit settingsChanged();
        };
        m_framework->observer = [[CorvaneUpdaterObserver alloc] initWithUpdater:m_framework->controller.updater
                                                                        changed:tell];
    }
}

SparkleController::~SparkleController()
{
    @autoreleasepool {
        [m_framework->observer stop];
    }
}

void SparkleController::start()
{
    guardedAnswer(false, [this] {
        [m_framework->controller startUpdater];
        return true;
    });
}

bool SparkleController::canCheckForUpdates() const
{
    return guardedAnswer(false, [this] { return bool(m_framework->controller.updater.canCheckForUpdates); });
}

void SparkleController::checkForUpdates()
{
    guardedAnswer(false, [this] {
        [m_framework->controller checkForUpdates:nil];
        return true;
    });
}

bool SparkleController::automaticallyChecksForUpdates() const
{
    return guardedAnswer(false, [this] { return bool(m_framework->controller.updater.automaticallyChecksForUpdates); });
}

void SparkleController::setAutomaticallyChecksForUpdates(bool automatically)
{
    guardedAnswer(false, [this, automatically] {
        m_framework->controller.updater.automaticallyChecksForUpdates = automatically;
        return true;
    });
}

bool SparkleController::automaticallyDownloadsUpdates() const
{
    return guardedAnswer(false, [this] { return bool(m_framework->controller.updater.automaticallyDownloadsUpdates); });
}

void SparkleController::setAutomaticallyDownloadsUpdates(bool automatically)
{
    guardedAnswer(false, [this, automatically] {
        m_framework->controller.updater.automaticallyDownloadsUpdates = automatically;
        return true;
    });
}

} // namespace corvane

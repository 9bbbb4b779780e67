// See SPUUpdater.h beside this file.
#import <Foundation/Foundation.h>

#import <Sparkle/SPUUpdater.h>

@interface SPUStandardUpdaterController : NSObject
@property (nonatomic, readonly) SPUUpdater *updater;
- (instancetype)initWithStartingUpdater:(BOOL)startUpdater
                        updaterDelegate:(id)updaterDelegate
                     userDriverDelegate:(id)userDriverDelegate;
- (void)startUpdater;
- (void)checkForUpdates:(id)sender;
@end

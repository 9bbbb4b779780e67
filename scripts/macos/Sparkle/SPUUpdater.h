// The part of the update framework's interface that our sources use, written down for type-checking them on machines
// that do not have the framework. A Mac compiles with the framework's own headers.
#import <Foundation/Foundation.h>

@interface SPUUpdater : NSObject
@property (nonatomic, readonly) BOOL canCheckForUpdates;
@property (nonatomic) BOOL automaticallyChecksForUpdates;
@property (nonatomic) BOOL automaticallyDownloadsUpdates;
@end

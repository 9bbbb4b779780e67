// The part of the update framework's interface that our sources use, declared for type-checking on machines without the
// framework. On a Mac the framework's own headers are used.
#import <Foundation/Foundation.h>

@interface SPUUpdater : NSObject
@property (nonatomic, readonly) BOOL canCheckForUpdates;
@property (nonatomic) BOOL automaticallyChecksForUpdates;
@property (nonatomic) BOOL automaticallyDownloadsUpdates;
@end

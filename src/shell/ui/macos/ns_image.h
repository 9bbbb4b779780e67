#pragma once

#import <AppKit/AppKit.h>

#include <QImage>

namespace corvane {

/// Draws an image into a square of `pixels` by `pixels`, scaled to fit; null if it cannot be drawn.
QImage rasterized(NSImage *picture, int pixels);

} // namespace corvane

#pragma once

#import <AppKit/AppKit.h>

#include <QImage>

namespace corvane {

/// Draws a picture into a square of that many pixels, as large as it fits; null when it cannot be drawn.
QImage rasterized(NSImage *picture, int pixels);

} // namespace corvane

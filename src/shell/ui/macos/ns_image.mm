#include "shell/ui/macos/ns_image.h"

#include <algorithm>

namespace corvane {

QImage rasterized(NSImage *picture, int pixels)
{
    if (picture == nil || picture.size.width <= 0 || picture.size.height <= 0)
        return {};
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    CGColorSpaceRef colors = CGColorSpaceCreateWithName(kCGColorSpaceSRGB);
    CGContextRef context =
        CGBitmapContextCreate(image.bits(), static_cast<std::size_t>(pixels), static_cast<std::size_t>(pixels), 8,
                              static_cast<std::size_t>(image.bytesPerLine()), colors,
                              CGBitmapInfo(kCGImageAlphaPremultipliedFirst) | kCGBitmapByteOrder32Host);
    CGColorSpaceRelease(colors);
    if (context == nullptr)
        return {};

    const NSSize size = picture.size;
    const CGFloat scale = std::min(pixels / size.width, pixels / size.height);
    const CGFloat width = size.width * scale;
    const CGFloat height = size.height * scale;
    [NSGraphicsContext saveGraphicsState];
    NSGraphicsContext.currentContext = [NSGraphicsContext graphicsContextWithCGContext:context flipped:NO];
    [picture drawInRect:NSMakeRect((pixels - width) / 2, (pixels - height) / 2, width, height)];
    [NSGraphicsContext restoreGraphicsState];
    CGContextRelease(context);
    return image;
}

} // namespace corvane

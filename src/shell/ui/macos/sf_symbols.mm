// macOS draws symbols itself, by the names that the screens use.

#import <AppKit/AppKit.h>

#include <QPainter>

#include "shell/ui/macos/ns_image.h"
#include "shell/ui/system_symbols.h"

namespace corvane {

namespace {

NSImage *symbolNamed(std::string_view symbol, IconWeight weight)
{
    NSString *name = [[NSString alloc] initWithBytes:symbol.data() length:symbol.size() encoding:NSUTF8StringEncoding];
    NSImage *picture = nil;
    if (weight == IconWeight::fill)
        picture = [NSImage imageWithSystemSymbolName:[name stringByAppendingString:@".fill"]
                            accessibilityDescription:nil];
    return picture != nil ? picture : [NSImage imageWithSystemSymbolName:name accessibilityDescription:nil];
}

NSFontWeight stroke(IconWeight weight)
{
    switch (weight) {
    case IconWeight::bold:
        return NSFontWeightBold;
    case IconWeight::light:
        return NSFontWeightLight;
    case IconWeight::regular:
    case IconWeight::fill:
        break;
    }
    return NSFontWeightRegular;
}

QImage drawnSymbol(std::string_view symbol, IconWeight weight, const QColor &color, int pixels)
{
    @autoreleasepool {
        NSImage *picture = symbolNamed(symbol, weight);
        if (picture == nil)
            return {};
        NSImageSymbolConfiguration *configuration =
            [NSImageSymbolConfiguration configurationWithPointSize:pixels weight:stroke(weight)];
        QImage image = rasterized([picture imageWithSymbolConfiguration:configuration], pixels);
        if (image.isNull())
            return {};
        // Symbols are drawn in black.
        QPainter painter(&image);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(image.rect(), color);
        return image;
    }
}

} // namespace

SystemSymbols systemSymbols()
{
    return drawnSymbol;
}

} // namespace corvane

#include "shell/ui/fonts.h"

#include <QFontDatabase>
#include <QtDebug>

namespace corvane {

void registerFonts()
{
    static const bool done = [] {
        if (QFontDatabase::addApplicationFont(QStringLiteral(":/corvane/fonts/Nunito-Bold.ttf")) < 0)
            qWarning("The embedded font Nunito cannot be read");
        registerTextFonts();
        return true;
    }();
    Q_UNUSED(done)
}

QFont roundedFont()
{
    // Falls back to the text font for missing glyphs.
    QFont font = textFont(Figures::proportional);
    QStringList families{QStringLiteral("Nunito")};
    families += font.families();
    font.setFamilies(families);
    return font;
}

} // namespace corvane

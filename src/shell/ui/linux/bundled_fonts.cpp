// Systems without a font of their own that a program could count on: Inter is embedded.

#include <QFontDatabase>
#include <QtDebug>

#include "shell/ui/fonts.h"

namespace corvane {

void registerTextFonts()
{
    for (const char *family : {"InterText", "InterTabular"}) {
        for (const char *weight : {"Regular", "Medium", "SemiBold", "Bold"}) {
            const auto file =
                QStringLiteral(":/corvane/fonts/%1-%2.ttf").arg(QLatin1String(family), QLatin1String(weight));
            if (QFontDatabase::addApplicationFont(file) < 0)
                qWarning("The embedded font %s cannot be read", qPrintable(file));
        }
    }
}

QFont textFont(Figures figures)
{
    // Inter Tabular has only what columns of figures need; everything else in such a text comes from Inter.
    QFont font(figures == Figures::tabular ? QStringList{QStringLiteral("Inter Tabular"), QStringLiteral("Inter Text")}
                                           : QStringList{QStringLiteral("Inter Text")});
    // The design's widths are those of unhinted outlines.
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

QFont fontWithEmoji(QFont font)
{
    font.setFamilies(font.families() << QStringLiteral("Noto Color Emoji"));
    return font;
}

} // namespace corvane

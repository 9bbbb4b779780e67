// For systems without a guaranteed font: Inter is embedded.

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
    // Inter Tabular contains only the glyphs for columns of figures; the rest of such text falls back to Inter.
    QFont font(figures == Figures::tabular ? QStringList{QStringLiteral("Inter Tabular"), QStringLiteral("Inter Text")}
                                           : QStringList{QStringLiteral("Inter Text")});
    // Hinting rounds the width of each letter to whole pixels, and texts might not fit the widths of the metrics.
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

QFont fontWithEmoji(QFont font)
{
    font.setFamilies(font.families() << QStringLiteral("Noto Color Emoji"));
    return font;
}

} // namespace corvane

// Draws an SVG file as square PNG files: render_icon SVG OUTPUT-PATTERN SIZE…, where each "%1" in the pattern is
// the size in pixels.

#include <cstdio>

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

int main(int argc, char *argv[])
{
    if (argc < 4) {
        std::fputs("usage: render_icon SVG OUTPUT-PATTERN SIZE...\n", stderr);
        return 2;
    }
    QSvgRenderer drawing(QString::fromLocal8Bit(argv[1]));
    if (!drawing.isValid()) {
        std::fprintf(stderr, "%s is not a drawing\n", argv[1]);
        return 1;
    }
    for (int i = 3; i < argc; ++i) {
        const int pixels = QByteArray(argv[i]).toInt();
        const QString file = QString::fromLocal8Bit(argv[2]).replace(QStringLiteral("%1"), QString::number(pixels));
        QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        drawing.render(&painter, QRectF(image.rect()));
        painter.end();
        if (!QDir().mkpath(QFileInfo(file).path()) || !image.save(file)) {
            std::fprintf(stderr, "%s cannot be written\n", qPrintable(file));
            return 1;
        }
    }
    return 0;
}

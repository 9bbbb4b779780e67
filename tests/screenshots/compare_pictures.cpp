// Whether the screenshots in one folder still match those with the same names in another: compare_pictures OLD NEW
//
// Exit status: 0 if all do, 1 if one does not, with the size of the difference; 2 if there is nothing to compare.

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include <QDir>
#include <QImage>

namespace {

// Tolerates rounding differences of other processors.
constexpr int mostOfAChannel = 8;
// The duration of the scan varies: three figures, of at most 100 pixels each. A changed label exceeds this.
constexpr int mostPoints = 400;

bool isSame(QRgb one, QRgb other)
{
    return std::abs(qRed(one) - qRed(other)) <= mostOfAChannel &&
           std::abs(qGreen(one) - qGreen(other)) <= mostOfAChannel &&
           std::abs(qBlue(one) - qBlue(other)) <= mostOfAChannel;
}

bool looksAlike(const QString &name, const QImage &old, const QImage &fresh)
{
    if (fresh.isNull() || old.size() != fresh.size()) {
        std::printf("%s: there is no new picture of its size\n", qPrintable(name));
        return false;
    }
    int points = 0;
    for (int y = 0; y < old.height(); ++y) {
        for (int x = 0; x < old.width(); ++x)
            points += isSame(old.pixel(x, y), fresh.pixel(x, y)) ? 0 : 1;
    }
    if (points > mostPoints)
        std::printf("%s: %d points differ\n", qPrintable(name), points);
    return points <= mostPoints;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3) {
        std::fputs("compare_pictures: name the folder of the old pictures and that of the new ones\n", stderr);
        return 2;
    }
    const QDir old(QString::fromLocal8Bit(argv[1]));
    const QDir fresh(QString::fromLocal8Bit(argv[2]));
    const QStringList names = old.entryList({QStringLiteral("*.png")});
    if (names.isEmpty()) {
        std::fprintf(stderr, "compare_pictures: there is no picture in %s\n", argv[1]);
        return 2;
    }
    bool allAlike = true;
    for (const QString &name : names) {
        const bool alike = looksAlike(name, QImage(old.filePath(name)), QImage(fresh.filePath(name)));
        allAlike = alike && allAlike;
    }
    return allAlike ? EXIT_SUCCESS : EXIT_FAILURE;
}

#include "core/store/path_text.h"

namespace corvane {

QString displayText(std::string_view bytes)
{
    // fromUtf8 puts U+FFFD where the bytes are not UTF-8.
    QString text = QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
    for (QChar &c : text) {
        const char16_t code = c.unicode();
        if (code < 0x20)
            c = QChar(static_cast<char16_t>(0x2400 + code)); // the Control Pictures block mirrors ASCII's first 32
        else if (code == 0x7f)
            c = QChar(u'\u2421');
        else if (code == u'\u2028' || code == u'\u2029' || code == u'\u0085')
            c = QChar(u'\u2424');
    }
    return text;
}

} // namespace corvane

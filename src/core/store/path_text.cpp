#include "core/store/path_text.h"

namespace corvane {

namespace {

// Characters that turn the direction of writing let a name pass for another.
bool turnsDirection(char16_t code)
{
    return code == 0x061c || code == 0x200e || code == 0x200f || (code >= 0x202a && code <= 0x202e) ||
           (code >= 0x2066 && code <= 0x2069);
}

char16_t shown(char16_t code)
{
    if (code < 0x20)
        return static_cast<char16_t>(0x2400 + code); // the Control Pictures block mirrors ASCII's first 32
    if (code == 0x7f)
        return u'\u2421';
    const bool isUpperControl = code >= 0x80 && code < 0xa0;
    if (isUpperControl || code == u'\u2028' || code == u'\u2029' || turnsDirection(code))
        return QChar::ReplacementCharacter;
    return code;
}

} // namespace

QString displayText(std::string_view bytes)
{
    // fromUtf8 puts U+FFFD where the bytes are not UTF-8.
    QString text = QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
    for (QChar &c : text)
        c = QChar(shown(c.unicode()));
    return text;
}

QByteArray fileUrl(std::string_view path)
{
    return "file://" + QByteArray::fromRawData(path.data(), static_cast<qsizetype>(path.size())).toPercentEncoding("/");
}

} // namespace corvane

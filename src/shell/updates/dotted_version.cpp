#include "shell/updates/dotted_version.h"

#include <algorithm>
#include <iterator>

#include <QList>

namespace corvane {

namespace {

constexpr qsizetype longest = 256;

bool isDigit(QChar character)
{
    return character >= QLatin1Char('0') && character <= QLatin1Char('9');
}

std::strong_ordering compareNumbers(const std::string &left, const std::string &right)
{
    if (const auto byLength = left.size() <=> right.size(); std::is_neq(byLength))
        return byLength;
    return left <=> right;
}

} // namespace

std::optional<DottedVersion> DottedVersion::parse(QStringView text)
{
    if (text.size() > longest)
        return std::nullopt;
    DottedVersion version;
    for (const QStringView part : text.split(QLatin1Char('.'))) {
        if (part.isEmpty() || !std::all_of(part.begin(), part.end(), isDigit))
            return std::nullopt;
        const auto *const start =
            std::find_if(part.begin(), part.end(), [](QChar digit) { return digit != QLatin1Char('0'); });
        std::string number;
        std::transform(start, part.end(), std::back_inserter(number), [](QChar digit) { return digit.toLatin1(); });
        version.m_numbers.push_back(std::move(number));
    }
    while (!version.m_numbers.empty() && version.m_numbers.back().empty())
        version.m_numbers.pop_back();
    return version;
}

std::optional<DottedVersion> DottedVersion::leading(QStringView text)
{
    qsizetype length = 0;
    while (length < text.size() && (isDigit(text[length]) || (text[length] == QLatin1Char('.') && length > 0)))
        ++length;
    while (length > 0 && text[length - 1] == QLatin1Char('.'))
        --length;
    return parse(text.first(length));
}

std::strong_ordering operator<=>(const DottedVersion &left, const DottedVersion &right)
{
    return std::lexicographical_compare_three_way(left.m_numbers.begin(), left.m_numbers.end(), right.m_numbers.begin(),
                                                  right.m_numbers.end(), compareNumbers);
}

} // namespace corvane

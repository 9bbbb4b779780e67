#include "lists/ui/file_table_columns.h"

#include <algorithm>
#include <cmath>

namespace corvane {

namespace {

constexpr qreal gap = ListsMetrics::columnGap(); // after a name; excluded from the shared width

} // namespace

void FileTableColumns::setRoom(qreal room)
{
    if (m_room == room)
        return;
    m_room = room;
    emit changed();
}

void FileTableColumns::setWide(bool wide)
{
    if (m_isWide == wide)
        return;
    m_isWide = wide;
    emit changed();
}

qreal FileTableColumns::kindWidth() const
{
    return m_kindWidth.value_or(m_isWide ? ListsMetrics::kindWidth() : ListsMetrics::narrowKindWidth());
}

qreal FileTableColumns::nameWidth() const
{
    const qreal width = std::round(gap + m_nameShare * (shared() - gap));
    return std::max(leastNameWidth, std::min(width, shared() - leastLocationWidth));
}

void FileTableColumns::setNameWidth(qreal width)
{
    const qreal most = std::max(leastNameWidth, shared() - leastLocationWidth);
    m_nameShare = (std::clamp(width, leastNameWidth, most) - gap) / std::max(1.0, shared() - gap);
}

void FileTableColumns::resize(int column, qreal by)
{
    const qreal name = nameWidth();
    const auto resized = [&](qreal width) {
        const qreal most = std::max(width, width + locationWidth() - leastLocationWidth);
        return std::round(std::clamp(width + by, std::min(width, leastWidth), most));
    };
    switch (static_cast<FileColumn>(column)) {
    case FileColumn::name:
        setNameWidth(name + by);
        break;
    case FileColumn::size:
        m_sizeWidth = resized(m_sizeWidth);
        setNameWidth(name);
        break;
    case FileColumn::kind:
        m_kindWidth = resized(kindWidth());
        setNameWidth(name);
        break;
    case FileColumn::modified:
        m_modifiedWidth = resized(m_modifiedWidth);
        setNameWidth(name);
        break;
    case FileColumn::location:
        return;
    }
    emit changed();
}

} // namespace corvane

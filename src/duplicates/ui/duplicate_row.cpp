#include "duplicates/ui/duplicate_row.h"

#include <QDateTime>
#include <QLocale>
#include <QStringList>

#include "core/store/qt_words.h"

namespace corvane {

namespace {

QString dateText(Time modified)
{
    if (modified == distantPast)
        return QStringLiteral("Unknown date");
    return QStringLiteral("Modified ") +
           abbreviatedDateTime(QDateTime::fromSecsSinceEpoch(modified.time_since_epoch().count()), QLocale());
}

/// Copies often have the same name in different folders; in that case the folder is shown as well.
QString storageText(const FileNode &file, const FileNode &owner)
{
    return QStringLiteral("Shares its storage with ") +
           displayText(owner.name == file.name ? owner.path() : owner.name);
}

} // namespace

DuplicateRow::Key DuplicateRow::key() const
{
    return kind == Kind::group ? Key{kind, group, nullptr} : Key{kind, 0, file.get()};
}

QString DuplicateRow::title() const
{
    return displayText(kind == Kind::group ? file->name : file->path());
}

QString DuplicateRow::note() const
{
    if (kind == Kind::group)
        return countText(static_cast<std::int64_t>(count)) + QStringLiteral(" × ") + sizeText(size);
    const QString date = dateText(file->modified);
    return storageOwner ? date + QStringLiteral(" · ") + storageText(*file, *storageOwner) : date;
}

QString DuplicateRow::wastedText() const
{
    return kind == Kind::group ? sizeText(wasted) + QStringLiteral(" wasted") : QString();
}

QString DuplicateRow::description() const
{
    QStringList parts{title()};
    if (isNewest)
        parts << QStringLiteral("Newest");
    parts << note();
    if (kind == Kind::group)
        parts << wastedText();
    return parts.join(QStringLiteral(", "));
}

} // namespace corvane

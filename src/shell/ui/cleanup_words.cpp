#include "shell/ui/cleanup_words.h"

#include <QLocale>

#include "core/byte_count.h"

namespace corvane {

QString itemsText(std::size_t count)
{
    return QLocale(QLocale::English, QLocale::UnitedStates).toString(static_cast<qulonglong>(count)) +
           (count == 1 ? QStringLiteral(" item") : QStringLiteral(" items"));
}

QString totalText(const CleanupItem &item)
{
    return item.accessible ? QString::fromStdString(formatByteCount(item.total())) : QStringLiteral("–");
}

QString countText(const CleanupItem &item)
{
    return item.accessible ? itemsText(item.entries.size()) : QStringLiteral("Needs Full Disk Access");
}

} // namespace corvane

#include "shell/ui/cleanup_words.h"

#include "core/store/qt_words.h"

namespace corvane {

QString itemsText(std::size_t count)
{
    return countText(static_cast<std::int64_t>(count), "item", "items");
}

QString totalText(const CleanupItem &item)
{
    return item.accessible ? sizeText(item.total()) : QStringLiteral("–");
}

QString countText(const CleanupItem &item, const SystemWords &words)
{
    return item.accessible ? itemsText(item.entries.size()) : displayText(words.needsAccess);
}

} // namespace corvane

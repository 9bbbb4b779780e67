#include "shell/ui/cleanup_words.h"

#include "core/store/qt_words.h"

namespace corvane {

QString totalText(const CleanupItem &item)
{
    return item.accessible ? sizeText(item.total()) : QStringLiteral("–");
}

QString countText(const CleanupItem &item, const SystemWords &words)
{
    if (item.accessible)
        return itemsText(item.entries.size());
    return displayText(item.owner.empty() ? words.needsAccess : std::string_view(item.owner));
}

} // namespace corvane

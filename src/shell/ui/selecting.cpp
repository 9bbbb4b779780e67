#include "shell/ui/selecting.h"

#include "core/store/path_text.h"
#include "core/store/storage_store.h"

namespace corvane {

QString protectedRefusal()
{
    return QStringLiteral("Protected location");
}

QString coveredRefusal()
{
    return QStringLiteral("Inside a selected folder");
}

QString refusalOf(const StorageStore &store, const std::string &path)
{
    if (hasSelectedAncestor(store.selection(), path))
        return coveredRefusal();
    return store.isProtected(path) ? protectedRefusal() : QString();
}

void sayRefusal(StorageStore &store, const QString &name, const QString &refusal)
{
    store.showToast(
        QStringLiteral("%1 can't be selected: %2").arg(name, refusal.at(0).toLower() + refusal.mid(1)).toStdString(),
        true);
}

void selectItem(StorageStore &store, const std::string &path, std::int64_t size)
{
    if (const QString refusal = refusalOf(store, path); !refusal.isEmpty())
        sayRefusal(store, displayText(lastPathComponent(path)), refusal);
    else
        store.setSelected(path, size, true);
}

void toggleItem(StorageStore &store, const std::string &path, std::int64_t size)
{
    if (store.isSelected(path) && !hasSelectedAncestor(store.selection(), path))
        store.setSelected(path, size, false);
    else
        selectItem(store, path, size);
}

} // namespace corvane

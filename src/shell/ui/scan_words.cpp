#include "shell/ui/scan_words.h"

#include "core/store/qt_words.h"
#include "core/store/storage_store.h"
#include "platform/path.h"

namespace corvane {

QString scannedName(const StorageStore &store)
{
    const std::string &path = store.lastScanPath();
    return displayText(path == "/" ? std::string_view(store.volume().name) : lastPathComponent(path));
}

QString scanningText(const StorageStore &store)
{
    return QStringLiteral("Scanning ") + scannedName(store);
}

QString partialScanNote(const StorageStore &store)
{
    return store.scanIsPartial() ? displayText(partialScanText) : QString();
}

} // namespace corvane

#include "shell/ui/selecting.h"

#include "core/store/qt_words.h"
#include "core/store/storage_store.h"

namespace corvane {

namespace {

/// Shows a toast that the item of this name cannot be selected, and why.
void sayRefusal(StorageStore &store, const QString &name, SelectionRefusal refusal)
{
    const QString reason = refusalText(refusal);
    if (reason.isEmpty())
        return;
    store.showToast(
        QStringLiteral("%1 can't be selected: %2").arg(name, reason.at(0).toLower() + reason.mid(1)).toStdString(),
        true);
}

/// Whether the selection may be changed; shows a toast with the reason if not.
bool mayChange(StorageStore &store, const QString &name, const SelectionFacts &facts)
{
    if (!facts.canChange())
        sayRefusal(store, name, facts.refusal);
    return facts.canChange();
}

void setItem(StorageStore &store, const std::string &path, std::int64_t size, bool canTakeOut)
{
    const SelectionFacts facts = selectionFactsOf(store, path);
    if (mayChange(store, displayText(lastPathComponent(path)), facts))
        store.setSelected(path, size, !canTakeOut || facts.selected != Selected::itself);
}

void setEntries(StorageStore &store, const QString &name, std::span<const SelectedEntry> entries, bool canTakeOut)
{
    const SelectionFacts facts = selectionFactsOfAll(store.selection(), entries, protectionTest(store));
    if (mayChange(store, name, facts))
        store.setSelected(entries, !canTakeOut || facts.selected != Selected::itself);
}

} // namespace

Qt::CheckState checkState(Selected selected)
{
    switch (selected) {
    case Selected::no:
        return Qt::Unchecked;
    case Selected::partly:
        return Qt::PartiallyChecked;
    case Selected::itself:
    case Selected::throughFolder:
        return Qt::Checked;
    }
    return Qt::Unchecked;
}

QString refusalText(SelectionRefusal refusal)
{
    switch (refusal) {
    case SelectionRefusal::insideSelectedFolder:
        return QStringLiteral("Inside a selected folder");
    case SelectionRefusal::protectedLocation:
        return QStringLiteral("Protected location");
    case SelectionRefusal::none:
    case SelectionRefusal::nothingThere:
        return {};
    }
    return {};
}

CheckFacts checkFacts(const SelectionFacts &facts)
{
    return {checkState(facts.selected), facts.canChange(), refusalText(facts.refusal)};
}

ProtectionTest protectionTest(const StorageStore &store)
{
    return [&store](const std::string &path) { return store.isProtected(path); };
}

SelectionFacts selectionFactsOf(const StorageStore &store, const std::string &path)
{
    return selectionFacts(store.selection(), path, protectionTest(store));
}

void selectItem(StorageStore &store, const std::string &path, std::int64_t size)
{
    setItem(store, path, size, false);
}

void toggleItem(StorageStore &store, const std::string &path, std::int64_t size)
{
    setItem(store, path, size, true);
}

void selectItem(StorageStore &store, const FileNode &node)
{
    if (!node.removed)
        selectItem(store, node.path(), node.size);
}

void toggleItem(StorageStore &store, const FileNode &node)
{
    if (!node.removed)
        toggleItem(store, node.path(), node.size);
}

void selectEntries(StorageStore &store, const QString &name, std::span<const SelectedEntry> entries)
{
    setEntries(store, name, entries, false);
}

void toggleEntries(StorageStore &store, const QString &name, std::span<const SelectedEntry> entries)
{
    setEntries(store, name, entries, true);
}

} // namespace corvane

#include "shell/ui/window/selection_presenter.h"

#include <algorithm>

#include <QStringList>

#include "core/checked_add.h"
#include "core/removal_words.h"
#include "core/store/qt_words.h"
#include "core/words/shared_texts.h"

namespace corvane {

namespace {

constexpr std::size_t namedItems = 3; ///< how many items a question lists by name

QString grouped(std::size_t count)
{
    return countText(static_cast<std::int64_t>(count));
}

} // namespace

SelectionPresenter::SelectionPresenter(StorageStore &store, QObject *parent) : QObject(parent), m_store(store)
{
    connect(&m_store, &StorageStore::selectionChanged, this, &SelectionPresenter::readSelection);
    connect(&m_store, &StorageStore::isRemovingChanged, this, &SelectionPresenter::removingChanged);
    connect(&m_store, &StorageStore::isRemovingChanged, this, &SelectionPresenter::removableChanged);
    readSelection();
}

void SelectionPresenter::readSelection()
{
    const Selection effective = m_store.effectiveSelection();
    m_selected = {.count = effective.size(), .total = totalSize(effective)};
    m_inTrash = {};
    for (const SelectedEntry &entry : m_store.selectedInTrash()) {
        ++m_inTrash.count;
        m_inTrash.total = checkedAdd(m_inTrash.total, entry.size);
    }
    emit selectionChanged();
    emit removableChanged();
    emit questionChanged();
}

bool SelectionPresenter::isRemoving() const
{
    return m_store.isRemoving();
}

QString SelectionPresenter::countText() const
{
    return itemsText(m_selected.count) + QStringLiteral(" selected");
}

QString SelectionPresenter::totalText() const
{
    return sizeText(m_selected.total) + QStringLiteral(" can be reclaimed");
}

QString SelectionPresenter::trashNote() const
{
    return displayText(
        inTrashText(static_cast<std::int64_t>(m_inTrash.count), static_cast<std::int64_t>(m_selected.count)));
}

QString SelectionPresenter::trashTitle() const
{
    return isRemoving() ? QStringLiteral("Removing") : QStringLiteral("Move to Trash");
}

bool SelectionPresenter::canStop() const
{
    return isRemoving() && !m_store.isStopping();
}

QString SelectionPresenter::stopTitle() const
{
    return isRemoving() && !canStop() ? QStringLiteral("Stopping") : QStringLiteral("Stop");
}

QString SelectionPresenter::reviewTitle() const
{
    return displayText(removalTitle);
}

QString SelectionPresenter::reviewSubtitle() const
{
    return itemsText(m_selected.count) + QStringLiteral(" · ") + sizeText(m_selected.total);
}

QString SelectionPresenter::confirmTitle() const
{
    return displayText(deletionQuestion(static_cast<std::int64_t>(asked().count)));
}

QString SelectionPresenter::confirmMessage() const
{
    return displayText(deletionWarning);
}

QString SelectionPresenter::confirmNames() const
{
    const std::vector<SelectedEntry> entries =
        m_question == Question::everything ? m_store.selectedEntries() : m_store.selectedInTrash();
    QStringList names;
    for (std::size_t i = 0; i < std::min(entries.size(), namedItems); ++i)
        names.append(QStringLiteral("“%1”").arg(displayText(lastPathComponent(entries[i].path))));
    if (entries.size() > namedItems)
        return names.join(QStringLiteral(", ")) +
               QStringLiteral(" and %1 more").arg(grouped(entries.size() - namedItems));
    const QString last = names.isEmpty() ? QString() : names.takeLast();
    return names.isEmpty() ? last : names.join(QStringLiteral(", ")) + QStringLiteral(" and ") + last;
}

QString SelectionPresenter::confirmDelete() const
{
    return displayText(deletionAnswer(asked().total));
}

void SelectionPresenter::clear()
{
    if (!isRemoving())
        m_store.clearSelection();
}

void SelectionPresenter::ask(Question question)
{
    m_question = question;
    emit questionChanged();
    emit questionWanted();
}

void SelectionPresenter::moveToTrash()
{
    if (!canRemove())
        return;
    if (m_inTrash.count > 0)
        ask(Question::whatIsInTrash);
    else
        m_store.remove(m_store.effectiveSelection(), false);
}

void SelectionPresenter::deletePermanently()
{
    if (canRemove())
        ask(Question::everything);
}

void SelectionPresenter::confirm()
{
    if (canRemove())
        m_store.remove(m_store.effectiveSelection(), m_question == Question::everything);
}

void SelectionPresenter::stop()
{
    m_store.stopRemoval();
}

} // namespace corvane

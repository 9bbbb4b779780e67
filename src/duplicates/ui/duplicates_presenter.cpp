#include "duplicates/ui/duplicates_presenter.h"

#include <cmath>
#include <utility>

#include "core/store/qt_words.h"
#include "core/words/shared_texts.h"

namespace corvane {

DuplicatesPresenter::DuplicatesPresenter(StorageStore &store, QObject *parent) : QObject(parent), m_store(store)
{
    connect(&m_store, &StorageStore::duplicatesChanged, this, &DuplicatesPresenter::follow);
    connect(&m_store, &StorageStore::duplicateProgressChanged, this, &DuplicatesPresenter::progressChanged);
    follow();
}

void DuplicatesPresenter::follow()
{
    const Content before = std::exchange(m_content, content());
    if (m_content != Content::search)
        m_hasSearched = m_content != Content::introduction;
    else if (!m_store.duplicateGroups().empty())
        m_hasSearched = true;
    const bool hasEnded = before == Content::search && m_content != Content::search;
    if (hasEnded)
        emit searchEnds();
    emit changed();
    if (hasEnded)
        emit searchEnded();
}

DuplicatesPresenter::Content DuplicatesPresenter::content() const
{
    const auto phase = m_store.duplicatePhase();
    switch (phase) {
    case StorageStore::Phase::idle:
        return Content::introduction;
    case StorageStore::Phase::scanning:
        return Content::search;
    case StorageStore::Phase::ready:
        return m_store.duplicateGroups().empty() ? Content::nothing : Content::groups;
    }
    return Content::introduction;
}

QString DuplicatesPresenter::subtitle() const
{
    switch (content()) {
    case Content::introduction:
        return QStringLiteral("Identical files that exist in more than one place");
    case Content::search:
        return displayText(fingerprintingText);
    case Content::nothing:
    case Content::groups:
        return countText(static_cast<std::int64_t>(m_store.duplicateGroups().size()), "group", "groups") +
               QStringLiteral(" · ") + sizeText(m_store.duplicateWaste()) + QStringLiteral(" wasted");
    }
    return {};
}

QString DuplicatesPresenter::searchText() const
{
    return m_hasSearched ? QStringLiteral("Search Again") : QStringLiteral("Find Duplicates");
}

bool DuplicatesPresenter::canSearch() const
{
    return content() != Content::search;
}

bool DuplicatesPresenter::canAutoSelect() const
{
    return content() == Content::groups;
}

double DuplicatesPresenter::progress() const
{
    return m_store.duplicateProgress();
}

QString DuplicatesPresenter::progressText() const
{
    return displayText(fingerprintingText) + QStringLiteral(" %1 percent").arg(std::lround(progress() * 100));
}

void DuplicatesPresenter::search()
{
    m_store.findDuplicates();
}

void DuplicatesPresenter::keepNewest()
{
    m_store.autoSelectDuplicates(true);
}

void DuplicatesPresenter::keepOldest()
{
    m_store.autoSelectDuplicates(false);
}

} // namespace corvane

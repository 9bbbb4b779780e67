#include "lists/ui/old_files_presenter.h"

#include <algorithm>
#include <array>

#include "core/store/qt_words.h"
#include "core/words/shared_texts.h"

namespace corvane {

namespace {

constexpr std::array<int, 5> ageMonths{6, 12, 24, 36, 60};

} // namespace

OldFilesPresenter::OldFilesPresenter(StorageStore &store, QObject *parent)
    : FileListPresenter(
          store,
          [] {
              static constexpr std::array<SizeChoice, 4> sizes{{{"≥ 1 MB", 1'000'000},
                                                                {"≥ 10 MB", 10'000'000},
                                                                {"≥ 100 MB", 100'000'000},
                                                                {"≥ 1 GB", 1'000'000'000}}};
              return std::span<const SizeChoice>(sizes);
          }(),
          parent)
{
    refilter();
}

QString OldFilesPresenter::emptyTitle() const
{
    return displayText(noOldFilesTitle);
}

QString OldFilesPresenter::emptyText() const
{
    return QStringLiteral("No files of that size have gone untouched that long.");
}

QStringList OldFilesPresenter::ages() const
{
    QStringList labels;
    for (const int months : ageMonths)
        labels << QString::fromStdString(ageLabel(months));
    return labels;
}

int OldFilesPresenter::ageIndex() const
{
    return static_cast<int>(std::ranges::find(ageMonths, m_filter.months) - ageMonths.begin());
}

void OldFilesPresenter::setAgeIndex(int index)
{
    if (index < 0 || static_cast<std::size_t>(index) >= ageMonths.size() || index == ageIndex())
        return;
    m_filter.months = ageMonths[static_cast<std::size_t>(index)];
    refilter();
}

FileRows OldFilesPresenter::list(const ListedFiles &files, FileSort sort)
{
    const Time cutoff = systemCalendar().monthsBefore(store().now(), m_filter.months);
    return files.old(m_filter, cutoff, sort);
}

std::string OldFilesPresenter::subtitleOf(std::size_t count, std::int64_t total) const
{
    return oldFilesSubtitle(count, total, m_filter.months);
}

} // namespace corvane

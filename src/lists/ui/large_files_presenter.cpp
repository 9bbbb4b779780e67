#include "lists/ui/large_files_presenter.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <vector>

#include "core/store/qt_words.h"
#include "core/words/shared_texts.h"

namespace corvane {

namespace {

std::vector<FileType> makeOffered()
{
    std::vector<FileType> types;
    std::ranges::copy_if(FileType::allCases(), std::back_inserter(types), isOfFiles);
    return types;
}

/// In the order of the choices after "All types".
const std::vector<FileType> &offered()
{
    static const std::vector<FileType> types = makeOffered();
    return types;
}

} // namespace

LargeFilesPresenter::LargeFilesPresenter(StorageStore &store, QObject *parent)
    : FileListPresenter(
          store,
          [] {
              static constexpr std::array<SizeChoice, 6> sizes{{{"≥ 10 MB", 10'000'000},
                                                                {"≥ 50 MB", 50'000'000},
                                                                {"≥ 100 MB", 100'000'000},
                                                                {"≥ 500 MB", 500'000'000},
                                                                {"≥ 1 GB", 1'000'000'000},
                                                                {"≥ 5 GB", 5'000'000'000}}};
              return std::span<const SizeChoice>(sizes);
          }(),
          parent)
{
    const std::optional<FileType> type = store.takeLargeFilesType();
    if (type && isOfFiles(*type))
        m_filter.type = type;
    refilter();
}

QString LargeFilesPresenter::emptyTitle() const
{
    return displayText(noLargeFilesTitle);
}

QString LargeFilesPresenter::emptyText() const
{
    return QStringLiteral("Try a smaller minimum size or a different type.");
}

QStringList LargeFilesPresenter::types() const
{
    QStringList labels{QStringLiteral("All types")};
    for (const FileType type : offered())
        labels << displayText(type.label());
    return labels;
}

int LargeFilesPresenter::typeIndex() const
{
    if (!m_filter.type)
        return 0;
    return static_cast<int>(std::ranges::find(offered(), *m_filter.type) - offered().begin()) + 1;
}

void LargeFilesPresenter::setTypeIndex(int index)
{
    if (index < 0 || static_cast<std::size_t>(index) > offered().size() || index == typeIndex())
        return;
    m_filter.type = index == 0 ? std::nullopt : std::optional(offered()[static_cast<std::size_t>(index) - 1]);
    refilter();
}

FileRows LargeFilesPresenter::list(const ListedFiles &files, FileSort sort)
{
    return files.large(m_filter, sort);
}

std::string LargeFilesPresenter::subtitleOf(std::size_t count, std::int64_t total) const
{
    return largeFilesSubtitle(count, total);
}

} // namespace corvane

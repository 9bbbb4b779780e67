#include "lists/ui/file_list_presenter.h"

#include <algorithm>
#include <utility>

#include "lists/ui/file_catalog.h"

namespace corvane {

FileListPresenter::FileListPresenter(StorageStore &store, std::span<const SizeChoice> sizes, QObject *parent)
    : QObject(parent), m_store(store), m_catalog(FileCatalog::of(store)), m_sizes(sizes)
{
    connect(&m_files, &FileTableModel::sortChanged, this, &FileListPresenter::followFiles);
    connect(&m_catalog, &FileCatalog::changed, this, &FileListPresenter::followFiles);
    connect(&m_store, &StorageStore::selectionChanged, this, &FileListPresenter::followSelection);
}

void FileListPresenter::setQuery(const QString &query)
{
    if (query == this->query())
        return;
    changeQuery(query.toStdString());
    refilter();
}

QStringList FileListPresenter::sizes() const
{
    QStringList labels;
    for (const SizeChoice &size : m_sizes)
        labels << QString::fromUtf8(size.label);
    return labels;
}

int FileListPresenter::sizeIndex() const
{
    return static_cast<int>(std::ranges::find(m_sizes, minSize(), &SizeChoice::bytes) - m_sizes.begin());
}

void FileListPresenter::setSizeIndex(int index)
{
    if (index < 0 || static_cast<std::size_t>(index) >= m_sizes.size() || index == sizeIndex())
        return;
    changeMinSize(m_sizes[static_cast<std::size_t>(index)].bytes);
    refilter();
}

void FileListPresenter::refilter()
{
    emit filterChanged();
    followFiles();
}

void FileListPresenter::followFiles()
{
    if (m_catalog.files()) {
        FileRows rows = list(*m_catalog.files(), m_files.sort());
        m_total = rows.total;
        m_files.setRows(m_catalog.files(), std::move(rows.files));
    }
    m_isAllSelected = m_files.areSelected();
    emit changed();
}

void FileListPresenter::followSelection()
{
    const bool isAllSelected = m_files.areSelected();
    if (std::exchange(m_isAllSelected, isAllSelected) != isAllSelected)
        emit changed();
}

QString FileListPresenter::subtitle() const
{
    if (!m_catalog.files())
        return {};
    return QString::fromStdString(subtitleOf(m_files.rows().size(), m_total));
}

bool FileListPresenter::isPreparing() const
{
    return m_catalog.isPreparing();
}

bool FileListPresenter::isEmpty() const
{
    return m_catalog.files() && m_files.rows().empty();
}

QString FileListPresenter::selectAllText() const
{
    return m_isAllSelected ? QStringLiteral("Deselect All") : QStringLiteral("Select All");
}

void FileListPresenter::toggleAll()
{
    m_files.setAllSelected(!m_isAllSelected);
}

} // namespace corvane

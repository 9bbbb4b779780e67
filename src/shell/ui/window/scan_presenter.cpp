#include "shell/ui/window/scan_presenter.h"

#include "core/store/file_url.h"
#include "core/store/qt_words.h"
#include "shell/ui/scan_words.h"

namespace corvane {

ScanPresenter::ScanPresenter(StorageStore &store, QObject *parent) : QObject(parent), m_store(store)
{
    connect(&m_store, &StorageStore::phaseChanged, this, &ScanPresenter::stateChanged);
    connect(&m_store, &StorageStore::treeChanged, this, &ScanPresenter::stateChanged);
    connect(&m_store, &StorageStore::phaseChanged, this, &ScanPresenter::progressChanged);
    connect(&m_store, &StorageStore::progressChanged, this, &ScanPresenter::progressChanged);
    connect(&m_store, &StorageStore::folderWanted, this, &ScanPresenter::folderWanted);
}

bool ScanPresenter::isScanning() const
{
    return m_store.phase() == StorageStore::Phase::scanning;
}

bool ScanPresenter::hasScan() const
{
    return m_store.hasScan();
}

QString ScanPresenter::scanTitle() const
{
    return hasScan() ? QStringLiteral("Rescan") : QStringLiteral("Scan");
}

QString ScanPresenter::scanSymbol() const
{
    return hasScan() ? QStringLiteral("arrow.clockwise") : QString();
}

QString ScanPresenter::scanHelp() const
{
    if (!hasScan() || m_store.lastScanPath() == m_store.locations().home())
        return QStringLiteral("Scan your home folder");
    if (m_store.lastScanPath() == "/")
        return QStringLiteral("Scan the entire disk again");
    return QStringLiteral("Scan “%1” again").arg(scannedName(m_store));
}

QString ScanPresenter::partialText() const
{
    return partialScanNote(m_store);
}

QString ScanPresenter::stopHelp() const
{
    return QStringLiteral("Stop scanning");
}

QString ScanPresenter::folderPrompt() const
{
    return QStringLiteral("Choose a folder or disk for Corvane to analyze");
}

QUrl ScanPresenter::firstFolder() const
{
    return fileUrlOfPath(m_store.locations().home());
}

QString ScanPresenter::heading() const
{
    return scanningText(m_store);
}

QString ScanPresenter::filesCounted() const
{
    return countText(m_store.scannedFiles());
}

QString ScanPresenter::spaceFound() const
{
    return sizeText(m_store.scannedBytes());
}

QString ScanPresenter::currentPath() const
{
    return displayText(m_store.currentPath());
}

void ScanPresenter::scan()
{
    if (hasScan())
        m_store.rescan();
    else
        scanHome();
}

void ScanPresenter::scanHome()
{
    m_store.scanHome();
}

void ScanPresenter::scanEntireDisk()
{
    m_store.scanEntireDisk();
}

void ScanPresenter::chooseFolder()
{
    m_store.chooseFolder();
}

void ScanPresenter::reportMissingDialog()
{
    m_store.showToast("No folder dialog is available. Drop a folder on the window, or start corvane with the folder.",
                      true);
}

void ScanPresenter::scanUrl(const QUrl &url)
{
    const std::string path = pathOfFileUrl(url);
    if (!path.empty())
        m_store.scan(path);
}

bool ScanPresenter::accepts(const QList<QUrl> &urls) const
{
    return urls.size() == 1 && urls.front().isLocalFile();
}

void ScanPresenter::scanDropped(const QList<QUrl> &urls)
{
    if (accepts(urls))
        scanUrl(urls.front());
}

void ScanPresenter::stop()
{
    m_store.stopScan();
}

} // namespace corvane

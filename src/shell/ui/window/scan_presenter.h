#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

#include "shell/ui/store_registration.h"

namespace corvane {

/// The scan commands, and the texts of the scan controls and progress. The figures update with the store's progress, a
/// few times a second. Main thread only.
class ScanPresenter : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool scanning READ isScanning NOTIFY stateChanged)
    Q_PROPERTY(bool hasScan READ hasScan NOTIFY stateChanged)
    Q_PROPERTY(QString scanTitle READ scanTitle NOTIFY stateChanged)
    Q_PROPERTY(QString scanSymbol READ scanSymbol NOTIFY stateChanged)
    Q_PROPERTY(QString scanHelp READ scanHelp NOTIFY stateChanged)
    Q_PROPERTY(QString partialText READ partialText NOTIFY stateChanged)
    Q_PROPERTY(QString stopHelp READ stopHelp CONSTANT)
    Q_PROPERTY(QString folderPrompt READ folderPrompt CONSTANT)
    /// The folder that a folder dialog opens in.
    Q_PROPERTY(QUrl firstFolder READ firstFolder CONSTANT)
    Q_PROPERTY(QString heading READ heading NOTIFY progressChanged)
    Q_PROPERTY(QString filesCounted READ filesCounted NOTIFY progressChanged)
    Q_PROPERTY(QString spaceFound READ spaceFound NOTIFY progressChanged)
    Q_PROPERTY(QString currentPath READ currentPath NOTIFY progressChanged)

public:
    explicit ScanPresenter(StorageStore &store = StoreRegistration::store(), QObject *parent = nullptr);

    [[nodiscard]] bool isScanning() const;
    [[nodiscard]] bool hasScan() const;
    [[nodiscard]] QString scanTitle() const;
    /// Empty before the first scan.
    [[nodiscard]] QString scanSymbol() const;
    /// The tool tip of `scan`.
    [[nodiscard]] QString scanHelp() const;
    /// The note about a scan that was stopped; empty if the last one was not.
    [[nodiscard]] QString partialText() const;
    [[nodiscard]] QString stopHelp() const;
    [[nodiscard]] QString folderPrompt() const;
    [[nodiscard]] QUrl firstFolder() const;
    /// "Scanning " followed by the folder's name.
    [[nodiscard]] QString heading() const;
    [[nodiscard]] QString filesCounted() const;
    [[nodiscard]] QString spaceFound() const;
    [[nodiscard]] QString currentPath() const;

    /// Repeats the last scan, or scans the home folder if there was none.
    Q_INVOKABLE void scan();
    Q_INVOKABLE void scanHome();
    Q_INVOKABLE void scanEntireDisk();
    Q_INVOKABLE void chooseFolder();
    /// Neither the desktop nor Qt has a folder dialog.
    Q_INVOKABLE void reportMissingDialog();
    /// Scans the folder of a file URL, byte for byte; ignores other URLs.
    Q_INVOKABLE void scanUrl(const QUrl &url);
    /// Whether dropped URLs can be a folder to scan: exactly one local item.
    Q_INVOKABLE [[nodiscard]] bool accepts(const QList<QUrl> &urls) const;
    Q_INVOKABLE void scanDropped(const QList<QUrl> &urls);
    Q_INVOKABLE void stop();

signals:
    void stateChanged();
    void progressChanged();
    /// Requests a folder dialog.
    void folderWanted();

private:
    StorageStore &m_store;
};

} // namespace corvane

#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QTimer>
#include <QtQml/qqmlregistration.h>

#include "core/words/system_words.h"
#include "overview/ui/overview_rows_model.h"
#include "shell/ui/node_actions.h"
#include "shell/ui/stacked_bar.h"
#include "shell/ui/store_registration.h"

namespace corvane {

/// The texts of the overview's cards, and their links. Reads the store without changing it. Main thread only.
class OverviewPresenter : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString subtitle READ subtitle NOTIFY changed)
    Q_PROPERTY(bool scanning READ isScanning NOTIFY changed)
    Q_PROPERTY(bool hasScan READ hasScan NOTIFY changed)
    Q_PROPERTY(bool needsAccess READ needsAccess NOTIFY changed)
    Q_PROPERTY(QString accessTitle READ accessTitle NOTIFY changed)
    Q_PROPERTY(QString accessText READ accessText NOTIFY changed)
    /// Whether full disk access is granted in the system's settings.
    Q_PROPERTY(bool hasAccessSettings READ hasAccessSettings NOTIFY changed)
    // The volume.
    Q_PROPERTY(QString volumeName READ volumeName NOTIFY changed)
    Q_PROPERTY(QString usedText READ usedText NOTIFY changed)
    Q_PROPERTY(QString totalText READ totalText NOTIFY changed)
    Q_PROPERTY(QString availableText READ availableText NOTIFY changed)
    Q_PROPERTY(double usedFraction READ usedFraction NOTIFY changed)
    // The choices before the first scan.
    Q_PROPERTY(QString welcomeTitle READ welcomeTitle CONSTANT)
    Q_PROPERTY(QString diskChoiceText READ diskChoiceText NOTIFY changed)
    // The scan.
    Q_PROPERTY(QString scannedLine READ scannedLine NOTIFY changed)
    Q_PROPERTY(QString scannedFigures READ scannedFigures NOTIFY changed)
    Q_PROPERTY(QString largeFiles READ largeFiles NOTIFY changed)
    Q_PROPERTY(QString projectJunk READ projectJunk NOTIFY changed)
    Q_PROPERTY(QString typesFigures READ typesFigures NOTIFY changed)
    Q_PROPERTY(QList<corvane::StackedBarPart> typeParts READ typeParts NOTIFY changed)
    Q_PROPERTY(corvane::OverviewRowsModel *types READ types CONSTANT)
    /// Why there are no types or no biggest items; empty if there are.
    Q_PROPERTY(QString noTypesText READ noTypesText NOTIFY changed)
    Q_PROPERTY(QString noTopItemsText READ noTopItemsText NOTIFY changed)
    Q_PROPERTY(QString emptySymbol READ emptySymbol NOTIFY changed)
    Q_PROPERTY(QString topTitle READ topTitle NOTIFY changed)
    Q_PROPERTY(QString topFigures READ topFigures NOTIFY changed)
    Q_PROPERTY(corvane::OverviewRowsModel *topItems READ topItems CONSTANT)
    Q_PROPERTY(corvane::NodeActions *menuTarget READ menuTarget CONSTANT)
    // What can be cleared right away.
    Q_PROPERTY(QString quickWinsText READ quickWinsText NOTIFY changed)
    /// Whether the catalogue has been measured and nothing can be cleared right away.
    Q_PROPERTY(bool tidy READ isTidy NOTIFY changed)
    Q_PROPERTY(bool measuring READ isMeasuring NOTIFY changed)
    Q_PROPERTY(corvane::OverviewRowsModel *quickWins READ quickWins CONSTANT)

public:
    static constexpr std::size_t topItemsListed = 8;
    static constexpr std::size_t quickWinsListed = 4;
    /// Larger files count as large: one byte less than 100 MB, so that 100 MB does.
    static constexpr std::int64_t largeFileLimit = 99'999'999;

    explicit OverviewPresenter(StorageStore &store = StoreRegistration::store(), QObject *parent = nullptr);

    [[nodiscard]] QString subtitle() const;
    [[nodiscard]] bool isScanning() const;
    [[nodiscard]] bool hasScan() const;
    [[nodiscard]] bool needsAccess() const;
    [[nodiscard]] QString accessTitle() const;
    [[nodiscard]] QString accessText() const;
    [[nodiscard]] bool hasAccessSettings() const;
    [[nodiscard]] QString volumeName() const;
    [[nodiscard]] QString usedText() const;
    [[nodiscard]] QString totalText() const;
    [[nodiscard]] QString availableText() const;
    /// From 0 to 1.
    [[nodiscard]] double usedFraction() const;
    [[nodiscard]] QString welcomeTitle() const;
    [[nodiscard]] QString diskChoiceText() const;
    [[nodiscard]] QString scannedLine() const;
    [[nodiscard]] QString scannedFigures() const;
    /// How many files exceed the limit.
    [[nodiscard]] QString largeFiles() const;
    [[nodiscard]] QString projectJunk() const;
    [[nodiscard]] QString typesFigures() const;
    [[nodiscard]] const QList<StackedBarPart> &typeParts() const { return m_typeParts; }
    [[nodiscard]] OverviewRowsModel *types() { return &m_types; }
    [[nodiscard]] QString noTypesText() const;
    [[nodiscard]] QString noTopItemsText() const;
    [[nodiscard]] QString emptySymbol() const;
    [[nodiscard]] QString topTitle() const;
    [[nodiscard]] QString topFigures() const;
    [[nodiscard]] OverviewRowsModel *topItems() { return &m_topItems; }
    [[nodiscard]] NodeActions *menuTarget() { return &m_menuTarget; }
    /// Empty until the first measurement has started.
    [[nodiscard]] QString quickWinsText() const;
    [[nodiscard]] bool isTidy() const;
    /// Whether the catalogue is being measured for the first time; that starts only after the user has read why.
    [[nodiscard]] bool isMeasuring() const;
    [[nodiscard]] OverviewRowsModel *quickWins() { return &m_quickWins; }

    Q_INVOKABLE void openLargeFiles();
    /// Lists the large files of a type.
    Q_INVOKABLE void openType(int row);
    /// Shows one of the biggest items in the map; for a file, its folder.
    Q_INVOKABLE void openTopItem(int row);
    /// Selects one of the biggest items for removal; shows a toast if that is refused.
    Q_INVOKABLE void selectTopItem(int row);
    /// Makes one of the biggest items the target of the context menu; returns false if there is no such item.
    Q_INVOKABLE bool prepareMenu(int row);
    /// Shows the whole scanned folder in the map.
    Q_INVOKABLE void seeAll();
    Q_INVOKABLE void openCleanup();
    Q_INVOKABLE void openAccessSettings();

signals:
    void changed();

private:
    [[nodiscard]] const SystemWords &systemWords() const;
    void followTree();
    void readTypes();
    void readTopItems();
    void followCleanup();
    [[nodiscard]] const FileNode *root() const;
    /// Why a card of a scan without files is empty: `ofFiles` if the scan has found files.
    [[nodiscard]] QString emptyText(const QString &ofFiles) const;

    StorageStore &m_store;
    QTimer m_clock; // updates how long ago the scan was
    QList<StackedBarPart> m_typeParts;
    OverviewRowsModel m_types;
    OverviewRowsModel m_topItems;
    OverviewRowsModel m_quickWins;
    NodeActions m_menuTarget{m_store};
};

} // namespace corvane

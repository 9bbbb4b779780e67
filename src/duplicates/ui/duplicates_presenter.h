#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include "shell/ui/store_registration.h"

namespace corvane {

/// The texts, commands and state of the duplicates screen. Main thread only.
class DuplicatesPresenter : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(corvane::DuplicatesPresenter::Content content READ content NOTIFY changed)
    Q_PROPERTY(QString subtitle READ subtitle NOTIFY changed)
    Q_PROPERTY(QString searchText READ searchText NOTIFY changed)
    Q_PROPERTY(bool canSearch READ canSearch NOTIFY changed)
    Q_PROPERTY(bool canAutoSelect READ canAutoSelect NOTIFY changed)
    Q_PROPERTY(double progress READ progress NOTIFY progressChanged)
    Q_PROPERTY(QString progressText READ progressText NOTIFY progressChanged)

public:
    /// What is shown below the header.
    enum class Content {
        introduction, ///< no search yet
        search,       ///< a search is running
        nothing,      ///< the search found no duplicates
        groups,
    };
    Q_ENUM(Content)

    explicit DuplicatesPresenter(StorageStore &store = StoreRegistration::store(), QObject *parent = nullptr);

    [[nodiscard]] Content content() const;
    [[nodiscard]] QString subtitle() const;
    /// The label of the button that starts a search.
    [[nodiscard]] QString searchText() const;
    [[nodiscard]] bool canSearch() const;
    /// Whether there are groups whose copies can be selected.
    [[nodiscard]] bool canAutoSelect() const;
    /// From 0 to 1.
    [[nodiscard]] double progress() const;
    [[nodiscard]] QString progressText() const;

    Q_INVOKABLE void search();
    /// Selects all copies but one of each group.
    Q_INVOKABLE void keepNewest();
    Q_INVOKABLE void keepOldest();

signals:
    void searchEnds(); ///< before `changed`
    void changed();
    void searchEnded(); ///< after `changed`
    void progressChanged();

private:
    void follow();

    StorageStore &m_store;
    bool m_hasSearched = false; // a search of the current scan's files has ended
    Content m_content = Content::introduction;
};

} // namespace corvane

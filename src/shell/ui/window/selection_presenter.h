#pragma once

#include <cstdint>
#include <vector>

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include "shell/ui/store_registration.h"

namespace corvane {

/// The texts of the selection bar, the review sheet and the confirmation of a permanent delete, and the removals that
/// they start. Counts and sizes are those of the effective selection: items inside a selected folder are counted with
/// the folder only. Main thread only.
class SelectionPresenter : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool empty READ isEmpty NOTIFY selectionChanged)
    Q_PROPERTY(bool removing READ isRemoving NOTIFY removingChanged)
    Q_PROPERTY(bool canRemove READ canRemove NOTIFY removableChanged)
    Q_PROPERTY(QString countText READ countText NOTIFY selectionChanged)
    Q_PROPERTY(QString totalText READ totalText NOTIFY selectionChanged)
    Q_PROPERTY(QString trashNote READ trashNote NOTIFY selectionChanged)
    Q_PROPERTY(QString trashTitle READ trashTitle NOTIFY removingChanged)
    Q_PROPERTY(bool canStop READ canStop NOTIFY removingChanged)
    Q_PROPERTY(QString stopTitle READ stopTitle NOTIFY removingChanged)
    Q_PROPERTY(QString reviewTitle READ reviewTitle CONSTANT)
    Q_PROPERTY(QString reviewSubtitle READ reviewSubtitle NOTIFY selectionChanged)
    Q_PROPERTY(QString confirmTitle READ confirmTitle NOTIFY questionChanged)
    Q_PROPERTY(QString confirmMessage READ confirmMessage CONSTANT)
    Q_PROPERTY(QString confirmNames READ confirmNames NOTIFY questionChanged)
    Q_PROPERTY(QString confirmDelete READ confirmDelete NOTIFY questionChanged)

public:
    explicit SelectionPresenter(StorageStore &store = StoreRegistration::store(), QObject *parent = nullptr);

    [[nodiscard]] bool isEmpty() const { return m_selected.count == 0; }
    [[nodiscard]] bool isRemoving() const;
    [[nodiscard]] bool canRemove() const { return !isEmpty() && !isRemoving(); }
    [[nodiscard]] QString countText() const;
    [[nodiscard]] QString totalText() const;
    /// How many of the items are already in the Trash and can only be deleted permanently; empty if none is.
    [[nodiscard]] QString trashNote() const;
    [[nodiscard]] QString trashTitle() const;
    [[nodiscard]] bool canStop() const;
    [[nodiscard]] QString stopTitle() const;
    [[nodiscard]] QString reviewTitle() const;
    [[nodiscard]] QString reviewSubtitle() const;
    [[nodiscard]] QString confirmTitle() const;
    [[nodiscard]] QString confirmMessage() const;
    /// The name of the item, or the names of the first few.
    [[nodiscard]] QString confirmNames() const;
    [[nodiscard]] QString confirmDelete() const;

    Q_INVOKABLE void clear();
    /// Asks for confirmation first if some items would be deleted permanently.
    Q_INVOKABLE void moveToTrash();
    Q_INVOKABLE void deletePermanently();
    /// Performs the confirmed removal.
    Q_INVOKABLE void confirm();
    /// Stops the removal after the current item.
    Q_INVOKABLE void stop();

signals:
    void selectionChanged();
    void removingChanged();
    void removableChanged();
    void questionChanged();
    void questionWanted(); ///< before anything is deleted permanently

private:
    /// What the confirmation of a permanent delete refers to.
    enum class Question { everything, whatIsInTrash };

    /// The number of items and their size in bytes.
    struct Figures {
        std::size_t count = 0;
        std::int64_t total = 0;
    };

    void readSelection();
    void ask(Question question);
    [[nodiscard]] const Figures &asked() const { return m_question == Question::everything ? m_selected : m_inTrash; }

    StorageStore &m_store;
    // Of the effective selection, computed once per change.
    Figures m_selected;
    Figures m_inTrash;
    Question m_question = Question::everything;
};

} // namespace corvane

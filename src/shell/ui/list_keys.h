#pragma once

#include <QAbstractItemModel>
#include <QObject>
#include <QPointer>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

#include "shell/ui/type_to_find.h"

class QKeyEvent;

namespace corvane {

/// The keys of a list, the same for each: arrows, Page Up and Down, Home and End move; typing searches; Space toggles;
/// Delete selects; Ctrl+A selects all; Shift with a movement extends; Return opens; Backspace goes up; the menu key
/// opens the menu. Filters the key presses of the item `target`; a key whose signal is not connected is passed on. Rows
/// whose flags lack Qt::ItemIsEnabled are skipped. Main thread only.
class ListKeys : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickItem *target READ target WRITE setTarget NOTIFY targetChanged)
    /// Typing searches its Qt::DisplayRole.
    Q_PROPERTY(QAbstractItemModel *model READ model WRITE setModel NOTIFY modelChanged)
    /// The row that the keyboard is on; -1 for none.
    Q_PROPERTY(int current MEMBER m_current NOTIFY currentChanged)
    /// How many rows are visible; 0 leaves Page Up and Page Down to another item.
    Q_PROPERTY(int page MEMBER m_page NOTIFY pageChanged)
    /// Whether the arrows, Home and End are handled; typing always is.
    Q_PROPERTY(bool navigates MEMBER m_navigates NOTIFY navigatesChanged)

public:
    explicit ListKeys(QObject *parent = nullptr) : QObject(parent) {}

    [[nodiscard]] QQuickItem *target() const { return m_target; }
    void setTarget(QQuickItem *target);
    [[nodiscard]] QAbstractItemModel *model() const { return m_model; }
    void setModel(QAbstractItemModel *model);

    /// The first and last enabled row; -1 if there is none.
    Q_INVOKABLE [[nodiscard]] int firstRow() const { return nearestStop(0, 1); }
    Q_INVOKABLE [[nodiscard]] int lastRow() const { return nearestStop(rowCount() - 1, -1); }

signals:
    void targetChanged();
    void modelChanged();
    void currentChanged();
    void pageChanged();
    void navigatesChanged();

    /// The keyboard moves to this row, which may be the current one.
    void moved(int row);
    /// The same with Shift: extends the range to this row.
    void extendWanted(int row);
    void openWanted(int row);
    void toggleWanted(int row);
    void selectWanted(int row);
    void selectAllWanted();
    void upWanted();
    void menuWanted(int row);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    [[nodiscard]] bool handle(const QKeyEvent &event);
    [[nodiscard]] bool handleCommand(const QKeyEvent &event);
    [[nodiscard]] bool handleTyping(const QKeyEvent &event);
    [[nodiscard]] bool moveTo(int row);
    [[nodiscard]] bool extendTo(int row);
    /// The target row of a navigation key; -1 for other keys.
    [[nodiscard]] int rowAfterKey(int key) const;
    /// The first enabled row from `row` on, in steps of 1 or -1; -1 if there is none.
    [[nodiscard]] int nearestStop(int row, int step) const;
    [[nodiscard]] int rowCount() const { return m_model ? m_model->rowCount() : 0; }
    [[nodiscard]] bool isStop(int row) const;

    QPointer<QQuickItem> m_target;
    QPointer<QAbstractItemModel> m_model;
    int m_current = -1;
    int m_page = 0;
    bool m_navigates = true;
    TypeToFind m_typeToFind;
};

} // namespace corvane

#pragma once

#include <QAbstractItemModel>
#include <QObject>
#include <QPointer>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

#include "shell/ui/type_to_find.h"

class QKeyEvent;

namespace corvane {

/// The keys of a list, the same in each: arrows, Page Up and Down, Home and End move, typing finds, Space toggles,
/// Delete selects, Ctrl+A selects all, Shift with those that move extends, Return opens, Backspace goes up, the menu
/// key asks for the menu. Looks at the key presses that reach the item `target`; a key whose signal nobody listens to
/// goes on to where it would go without. Rows whose model's flags lack Qt::ItemIsEnabled are no stops. Main thread
/// only.
class ListKeys : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickItem *target READ target WRITE setTarget NOTIFY targetChanged)
    /// Its Qt::DisplayRole is what is found by typing.
    Q_PROPERTY(QAbstractItemModel *model READ model WRITE setModel NOTIFY modelChanged)
    /// The row that the keyboard is at; -1 for none.
    Q_PROPERTY(int current MEMBER m_current NOTIFY currentChanged)
    /// How many rows are seen at once; where it is 0, Page Up and Page Down belong to somebody else.
    Q_PROPERTY(int page MEMBER m_page NOTIFY pageChanged)
    /// Whether the arrows, Home and End move as well; else only typing does.
    Q_PROPERTY(bool navigates MEMBER m_navigates NOTIFY navigatesChanged)

public:
    explicit ListKeys(QObject *parent = nullptr) : QObject(parent) {}

    [[nodiscard]] QQuickItem *target() const { return m_target; }
    void setTarget(QQuickItem *target);
    [[nodiscard]] QAbstractItemModel *model() const { return m_model; }
    void setModel(QAbstractItemModel *model);

    /// The first and the last row that the keyboard stops at; -1 without any.
    Q_INVOKABLE [[nodiscard]] int firstRow() const { return nearestStop(0, 1); }
    Q_INVOKABLE [[nodiscard]] int lastRow() const { return nearestStop(rowCount() - 1, -1); }

signals:
    void targetChanged();
    void modelChanged();
    void currentChanged();
    void pageChanged();
    void navigatesChanged();

    /// The keyboard goes to that row, which may be the one that it is at.
    void moved(int row);
    /// The same with Shift held: what lies between is meant too.
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
    /// The row that a navigation key leads to; -1 for other keys.
    [[nodiscard]] int rowAfterKey(int key) const;
    /// The first stop from a row on, in steps of 1 or -1; -1 when there is none.
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

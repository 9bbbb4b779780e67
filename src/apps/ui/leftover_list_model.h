#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include <QString>
#include <QtQml/qqmlregistration.h>

#include "apps/leftover.h"
#include "core/store/storage_store.h"
#include "shell/ui/node_actions.h"
#include "shell/ui/row_list_model.h"
#include "shell/ui/selecting.h"

namespace corvane {

/// One row of a list of leftovers. Its words are made once.
struct LeftoverRow {
    enum class Kind : std::uint8_t {
        heading, ///< opens a section, whose items stand in one box
        item,
        none, ///< says that a section has no items
    };

    /// What it stands for, whatever its figures are by now.
    using Key = std::tuple<Kind, std::string_view>;

    Kind kind = Kind::item;
    std::string id;     ///< of an item its path, of the rest the section; bytes
    QString title = {}; ///< of an item its name, or its path
    QString note = {};  ///< of a heading a line below it
    QString sizeText = {};
    QString location = {};
    QString date = {}; ///< when the item was changed last; empty where that is not known
    QString iconKey = {};
    bool elidesMiddle = false;
    bool startsBox = false;
    bool endsBox = false;
    Leftover leftover = {}; ///< of an item

    [[nodiscard]] Key key() const { return {kind, id}; }
    /// What a reader says of it.
    [[nodiscard]] QString description() const;

    friend bool operator==(const LeftoverRow &, const LeftoverRow &) = default;

    [[nodiscard]] static LeftoverRow ofHeading(std::string id, const QString &title, const QString &note,
                                               std::int64_t size);
    /// With a home folder its title is its whole path, from there where it lies inside.
    [[nodiscard]] static LeftoverRow ofItem(const Leftover &leftover, const QLocale &locale,
                                            const std::optional<std::string> &home = std::nullopt);
};

/// The home folder for `LeftoverRow::ofItem`, where the store's system has whole paths shown.
[[nodiscard]] std::optional<std::string> homeOfPaths(const StorageStore &store);

/// Items that applications keep in sections, each with a check box, whose meaning a derived model gives it. A derived
/// model names this base with its namespace, for qmllint looks the name up as written. Main thread only.
class LeftoverListModel : public corvane::RowListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("A base of models")
    /// What the context menu is about.
    Q_PROPERTY(corvane::NodeActions *menuTarget READ menuTarget CONSTANT)
    Q_PROPERTY(bool hasItems READ hasItems NOTIFY rowsChanged)
    /// The titles are whole paths.
    Q_PROPERTY(bool showsPaths READ showsPaths NOTIFY rowsChanged)

public:
    enum Role {
        KindRole = Qt::UserRole + 1, ///< the name of the row's kind
        TitleRole,
        NoteRole,
        SizeTextRole,
        LocationRole,
        DateRole,
        IconKeyRole,
        ElideRole,     ///< Qt::TextElideMode
        StartsBoxRole, ///< the first of the items that stand in one box
        EndsBoxRole,
        CheckStateRole, ///< Qt::CheckState
        CheckableRole,
        CheckReasonRole, ///< why it is not checkable
        DescriptionRole,
    };
    Q_ENUM(Role)

    explicit LeftoverListModel(StorageStore &store, QObject *parent = nullptr) : RowListModel(parent), m_store(store) {}

    [[nodiscard]] NodeActions *menuTarget() { return &m_menuTarget; }
    [[nodiscard]] bool hasItems() const;
    [[nodiscard]] bool showsPaths() const { return homeOfPaths(m_store).has_value(); }

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    /// The keyboard stops at items alone.
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;

    /// Checks a row's item, or unchecks it.
    Q_INVOKABLE virtual void toggle(int row) = 0;
    /// Checks a row's item.
    Q_INVOKABLE virtual void select(int row) = 0;
    /// Checks every item.
    Q_INVOKABLE virtual void selectAll() = 0;
    /// Shows a row's item in the file manager.
    Q_INVOKABLE void reveal(int row);
    /// Makes a row's item the target of the context menu; false where there is no item.
    Q_INVOKABLE bool prepareMenu(int row);

signals:
    void rowsChanged();
    void replaced(); ///< what is listed now has nothing to do with what was

protected:
    /// Of an item of the list.
    [[nodiscard]] virtual CheckFacts checkFacts(const Leftover &leftover) const = 0;
    [[nodiscard]] StorageStore &store() const { return m_store; }

    /// Takes over other rows; their places in their boxes are put in here.
    void install(std::vector<LeftoverRow> rows);
    /// What is checked has changed.
    void announceChecks();
    [[nodiscard]] const std::vector<LeftoverRow> &rows() const { return m_rows; }
    /// The item of a row; null for other rows, and for those that do not exist.
    [[nodiscard]] const Leftover *itemAt(int row) const;

private:
    StorageStore &m_store;
    std::vector<LeftoverRow> m_rows;
    NodeActions m_menuTarget{m_store};
};

} // namespace corvane

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

/// One row of a list of leftovers. Its texts are computed once.
struct LeftoverRow {
    enum class Kind : std::uint8_t {
        heading, ///< starts a section, whose items share one box
        item,
        none, ///< replaces the items of an empty section
    };

    /// The row's identity, independent of its figures.
    using Key = std::tuple<Kind, std::string_view>;

    Kind kind = Kind::item;
    std::string id;     ///< bytes; the path of an item, otherwise the section
    QString title = {}; ///< an item's name or path
    QString note = {};  ///< the line below a heading
    QString sizeText = {};
    QString location = {};
    QString date = {}; ///< last modified; empty if unknown
    QString iconKey = {};
    bool elidesMiddle = false;
    bool startsBox = false;
    bool endsBox = false;
    Leftover leftover = {}; ///< for items

    [[nodiscard]] Key key() const { return {kind, id}; }
    /// The row's description for screen readers.
    [[nodiscard]] QString description() const;

    friend bool operator==(const LeftoverRow &, const LeftoverRow &) = default;

    [[nodiscard]] static LeftoverRow ofHeading(std::string id, const QString &title, const QString &note,
                                               std::int64_t size);
    /// With a home folder, the title is the whole path, relative to that folder if inside.
    [[nodiscard]] static LeftoverRow ofItem(const Leftover &leftover, const QLocale &locale,
                                            const std::optional<std::string> &home = std::nullopt);
};

/// The home folder for `LeftoverRow::ofItem`, if the store's system shows whole paths.
[[nodiscard]] std::optional<std::string> homeOfPaths(const StorageStore &store);

/// Items of applications in sections, each with a check box; the derived model defines what checking means. A derived
/// model qualifies this base with its namespace because qmllint resolves the name as written. Main thread only.
class LeftoverListModel : public corvane::RowListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("A base of models")
    /// The target of the context menu.
    Q_PROPERTY(corvane::NodeActions *menuTarget READ menuTarget CONSTANT)
    Q_PROPERTY(bool hasItems READ hasItems NOTIFY rowsChanged)
    /// Whether the titles are whole paths.
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
        StartsBoxRole, ///< the first of the items that share one box
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

    /// Only items are enabled, so the keyboard skips the other rows.
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;

    /// Toggles a row's check box.
    Q_INVOKABLE virtual void toggle(int row) = 0;
    /// Checks a row's item.
    Q_INVOKABLE virtual void select(int row) = 0;
    /// Checks every item.
    Q_INVOKABLE virtual void selectAll() = 0;
    /// Shows a row's item in the file manager.
    Q_INVOKABLE void reveal(int row);
    /// Makes a row's item the target of the context menu; returns false if the row has none.
    Q_INVOKABLE bool prepareMenu(int row);

signals:
    void rowsChanged();
    void replaced(); ///< the new contents are unrelated to the old ones

protected:
    /// The check box of an item.
    [[nodiscard]] virtual CheckFacts checkFacts(const Leftover &leftover) const = 0;
    [[nodiscard]] StorageStore &store() const { return m_store; }

    /// Replaces the rows and computes their positions in their boxes.
    void install(std::vector<LeftoverRow> rows);
    /// Call when the checked items have changed.
    void announceChecks();
    [[nodiscard]] const std::vector<LeftoverRow> &rows() const { return m_rows; }
    /// The item of a row; null for other and invalid rows.
    [[nodiscard]] const Leftover *itemAt(int row) const;

private:
    StorageStore &m_store;
    std::vector<LeftoverRow> m_rows;
    NodeActions m_menuTarget{m_store};
};

} // namespace corvane

#include "journeys/shown_texts.h"

#include <algorithm>
#include <array>
#include <set>

#include <QAbstractItemModel>
#include <QAccessible>
#include <QMetaProperty>
#include <QQuickItem>
#include <QQuickWindow>

#include "support/mac_words.h"

namespace corvane {

namespace {

class Walk {
public:
    void visit(QObject *object)
    {
        if (object == nullptr || !m_visited.insert(object).second)
            return;
        addProperties(*object);
        addAccessible(*object);
        if (const auto *model = qobject_cast<const QAbstractItemModel *>(object))
            addModel(*model);
        for (QObject *child : object->children())
            visit(child);
        if (const auto *item = qobject_cast<const QQuickItem *>(object)) {
            for (QQuickItem *child : item->childItems())
                visit(child);
        }
        if (const auto *window = qobject_cast<const QQuickWindow *>(object))
            visit(window->contentItem());
    }

    std::vector<ShownText> take() { return std::move(m_texts); }

private:
    static QString nameOf(const QObject &object)
    {
        QString name = QString::fromLatin1(object.metaObject()->className());
        if (!object.objectName().isEmpty())
            name += QStringLiteral(" '%1'").arg(object.objectName());
        return name;
    }

    void add(const QVariant &value, const QString &where)
    {
        if (value.metaType() == QMetaType::fromType<QString>()) {
            if (const QString text = value.toString(); !text.isEmpty())
                m_texts.push_back({text, where});
        } else if (value.metaType() == QMetaType::fromType<QStringList>()) {
            for (const QString &text : value.toStringList())
                add(text, where);
        } else if (value.metaType() == QMetaType::fromType<QVariantList>()) {
            for (const QVariant &inner : value.toList())
                add(inner, where);
        } else if (value.metaType().flags() & QMetaType::PointerToQObject) {
            visit(value.value<QObject *>()); // a view's model
        }
    }

    void addProperties(QObject &object)
    {
        const QMetaObject &type = *object.metaObject();
        for (int i = 0; i < type.propertyCount(); ++i) {
            const QMetaProperty property = type.property(i);
            if (!property.isReadable())
                continue;
            if (property.metaType().flags() & QMetaType::PointerToQObject) {
                // Reading these would create objects without text.
                constexpr std::array made{"anchors", "layer", "palette", "parent"};
                if (std::ranges::none_of(made, [&](const char *name) { return qstrcmp(property.name(), name) == 0; }))
                    visit(property.read(&object).value<QObject *>());
            } else if (canHoldText(property.metaType())) {
                add(property.read(&object), nameOf(object) + u'.' + QLatin1String(property.name()));
            }
        }
    }

    static bool canHoldText(QMetaType type)
    {
        return type == QMetaType::fromType<QString>() || type == QMetaType::fromType<QStringList>() ||
               type == QMetaType::fromType<QVariantList>() || type == QMetaType::fromType<QVariant>();
    }

    void addAccessible(QObject &object)
    {
        // Other objects have no accessible interface, or return their window's.
        if (!object.inherits("QQuickItem"))
            return;
        if (const QAccessibleInterface *const reader = QAccessible::queryAccessibleInterface(&object))
            addSaid(*reader, nameOf(object));
    }

    void addSaid(const QAccessibleInterface &reader, const QString &name)
    {
        constexpr std::array<std::pair<QAccessible::Text, const char *>, 4> kinds{{
            {QAccessible::Name, " accessible name"},
            {QAccessible::Description, " accessible description"},
            {QAccessible::Value, " accessible value"},
            {QAccessible::Help, " accessible help"},
        }};
        for (const auto &[kind, word] : kinds)
            add(reader.text(kind), name + QLatin1String(word));
        for (int i = 0; i < reader.childCount(); ++i) {
            // A child with its own object is visited with that object.
            const QAccessibleInterface *const child = reader.child(i);
            if (child != nullptr && child->object() == nullptr)
                addSaid(*child, name + QStringLiteral(" child"));
        }
    }

    void addModel(const QAbstractItemModel &model)
    {
        const QHash<int, QByteArray> roles = model.roleNames();
        for (int row = 0; row < model.rowCount(); ++row) {
            for (auto role = roles.begin(); role != roles.end(); ++role)
                add(model.data(model.index(row, 0), role.key()), nameOf(model) + u'.' + QLatin1String(role.value()));
        }
    }

    std::set<QObject *> m_visited;
    std::vector<ShownText> m_texts;
};

} // namespace

std::vector<ShownText> textsOf(QObject &from)
{
    Walk walk;
    walk.visit(&from);
    return walk.take();
}

std::vector<std::string> macWordsIn(QObject &from)
{
    std::vector<std::string> found;
    for (const ShownText &shown : textsOf(from)) {
        if (const std::string word = macWordIn(shown.text.toStdString()); !word.empty())
            found.push_back(word + " in \"" + shown.text.toStdString() + "\" (" + shown.where.toStdString() + ")");
    }
    return found;
}

} // namespace corvane

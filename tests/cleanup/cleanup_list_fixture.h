#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractItemModelTester>

#include "cleanup/cleanup_fixture.h"
#include "cleanup/ui/cleanup_list_model.h"

namespace corvane {

using Model = CleanupListModel;

/// The list of Cleanup over a small home.
class CleanupListModelTest : public test::CleanupFixture {
protected:
    using CleanupFixture::CleanupFixture;

    [[nodiscard]] QVariant data(int row, int role) const { return model.data(model.index(row), role); }
    [[nodiscard]] QString text(int row, int role = Model::TitleRole) const { return data(row, role).toString(); }
    [[nodiscard]] QStringList titles(const QString &kind) const
    {
        QStringList result;
        for (int row = 0; row < model.rowCount(); ++row) {
            if (text(row, Model::KindRole) == kind)
                result << text(row);
        }
        return result;
    }
    [[nodiscard]] QStringList entries() const { return titles(QStringLiteral("entry")); }
    [[nodiscard]] int rowOf(const QString &title) const
    {
        for (int row = 0; row < model.rowCount(); ++row) {
            if (text(row) == title)
                return row;
        }
        return -1;
    }
    void expand(const QString &title) { model.setExpanded(rowOf(title), true); }

    CleanupListModel model{store};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

inline const QString caches = QStringLiteral("App Caches");
inline const QString revealTitle = QStringLiteral("Reveal Folder in Finder");

} // namespace corvane

#pragma once

#include <string>
#include <vector>

#include <QAbstractItemModel>

#include "journeys/journey.h"

namespace corvane {

/// A home of 16 MiB: Documents 7 (a file of 7), Projects 6 (film 4, Exports 2 with one file), Games 2, a file of 1.
class SelectionJourney : public Journey {
protected:
    void openHome()
    {
        addFile("Documents/thesis.pdf", 7);
        addFile("Projects/build.tar", 4);
        addFile("Projects/Exports/cut.mov", 2);
        addFile("Games/world.dat", 2);
        addFile("archive.zip", 1);
        openAndScan();
        ASSERT_THAT(rows(),
                    testing::ElementsAre("Documents 7.3 MB", "Projects 6.3 MB", "Games 2.1 MB", "archive.zip 1 MB"));
    }
    void openFolder(const QString &name)
    {
        driver().click(row(name));
        waitForWay("home/" + name.toStdString());
    }
    void goUp()
    {
        press(Qt::Key_Up, Qt::ControlModifier);
        waitForWay("home");
    }
    /// Selects Projects, Exports inside it, and Games: three entries, two of them effective.
    void selectParentChildAndOther()
    {
        openFolder(QStringLiteral("Projects"));
        tick(QStringLiteral("Exports"));
        goUp();
        tick(QStringLiteral("Projects"));
        tick(QStringLiteral("Games"));
        waitForSelectionBar();
        ASSERT_EQ(store().selection().size(), 3U);
    }
    void openReview()
    {
        click(QStringLiteral("reviewButton"));
        waitForPopup(QStringLiteral("reviewSheet"));
    }
    /// The entries of the review sheet, from the top: "Projects ~/Projects 6.3 MB".
    std::vector<std::string> reviewed()
    {
        std::vector<std::string> entries;
        const auto *const list = driver().item(QStringLiteral("reviewSheet.list")).property("model").value<QObject *>();
        const auto &model = *qobject_cast<const QAbstractItemModel *>(list);
        const auto text = [&](int row, const QByteArray &role) {
            return model.index(row, 0).data(model.roleNames().key(role)).toString().toStdString();
        };
        for (int row = 0; row < model.rowCount(); ++row)
            entries.push_back(text(row, "name") + " " + text(row, "path") + " " + text(row, "size"));
        return entries;
    }
    /// Deselects an entry with its button.
    void dropFromReview(const QString &name)
    {
        driver().click(driver().itemWhere(
            [&](const QQuickItem &item) {
                return item.objectName() == QStringLiteral("reviewSheet.drop") &&
                       item.property("text").toString() == QStringLiteral("Remove %1 from the selection").arg(name);
            },
            QStringLiteral("the button that drops %1").arg(name)));
    }
    std::vector<QRectF> tileRects()
    {
        std::vector<QRectF> rects;
        for (int i = 0; i < map().layout().count(); ++i)
            rects.push_back(map().layout().rect(i));
        return rects;
    }
    int checkState(const QString &name) { return row(name).property("checkState").toInt(); }
    void expectNothingSelected()
    {
        EXPECT_TRUE(store().selection().empty());
        EXPECT_FALSE(isShown(QStringLiteral("selectionBar")));
    }
};

} // namespace corvane

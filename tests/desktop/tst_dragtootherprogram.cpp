// SPDX-License-Identifier: MIT
#include "tests/desktop/Hand.h"
#include "tests/desktop/HandDragScene.h"
#include "tests/support/TestCase.h"
#include "tests/support/TileLayout.h"
#include "tests/support/process/ProgramInGtk.h"

#include <QApplication>
#include <QUrl>

#include <memory>

namespace {

//! Beside the host's main window.
const QRect beside(1500, 300, 300, 200);
const QString urlFormat = QStringLiteral("text/uri-list");
const QString tileFormat = QStringLiteral("application/corvel.DR.Layout");

//! Moves a dragged tile into the other program's window. \param time the number of drags there so far, with
//! this one
void carryInto(HandDragScene &scene, const ProgramInGtk &other, int time = 1)
{
    scene.carryOut();
    scene.hand.jumpTo(other.place().center());
    scene.hand.waitFor(QStringLiteral("the other program receives the drag"),
                       [&other, time] { return other.count(QStringLiteral("enter")) == time; });
}

} // namespace

//! Tiles dragged onto a window of another program and toolkit.
class tst_DragToOtherProgram : public TestCase
{
    Q_OBJECT

private slots:
    void otherProgramReceivesUrlAndPicture()
    {
        // A per cent sign is escaped; a hash sign begins a fragment and stays.
        const QString name = QString::fromUtf8("100% Öl #3.dwg");
        HandDragScene scene({QStringLiteral("other.dwg"), name});
        const ProgramInGtk other(beside, ProgramInGtk::Fetching::AtOnce);
        QVERIFY(other.isReady());
        const QPoint hold(30, 100);
        scene.hand.takeHold(scene.tiles.at(1), hold);
        QImage picture; // after the press has changed its look
        scene.hand.justDo([&] { picture = scene.tiles.at(1)->grab().toImage(); });
        scene.hand.startDrag();
        carryInto(scene, other);
        scene.hand.justDo([] { Hand::keepScreenshot(QStringLiteral("tile-over-another-program")); });
        scene.hand.letGo();
        QCOMPARE(scene.hand.run(), QString());
        QTRY_VERIFY(other.has(QStringLiteral("finished")));
        const QString path = scene.browser.paths().at(1);
        const QByteArray folder = path.left(path.size() - name.size()).toUtf8();
        QVERIFY(folder.startsWith('/'));
        // Qt's X11 platform offers URLs in more formats.
        QCOMPARE(other.received().value(urlFormat), "file:///" + folder + "100%25%20%C3%96l%20#3.dwg\r\n");
        const TileLayout layout(other.received().value(tileFormat));
        QVERIFY(layout.isWhole());
        QCOMPARE(layout.picture().size(), QSize(161, 131));
        QCOMPARE(layout.picture(), picture.convertToFormat(QImage::Format_RGB32));
        QCOMPARE(layout.grabOffset(), hold + QPoint(QApplication::startDragDistance(), 0));
        QTRY_VERIFY(!scene.popup); // as for any drop outside
        drainEvents();
        QCOMPARE(scene.opened(), scene.opening({1}));
    }

    void dataMayBeFetchedAfterTheModuleIsUnloaded()
    {
        auto scene = std::make_unique<HandDragScene>(3);
        ProgramInGtk other(beside, ProgramInGtk::Fetching::Late);
        QVERIFY(other.isReady());
        scene->dragTile(1);
        carryInto(*scene, other);
        scene->hand.letGo();
        QCOMPARE(scene->hand.run(), QString());
        QTRY_VERIFY(other.has(QStringLiteral("dropped")));
        const QString url = QStringLiteral("file:///") + scene->browser.paths().at(1);
        scene.reset(); // deletes the host, which unloads the module
        drainEvents();
        other.fetch();
        QTRY_VERIFY(other.has(QStringLiteral("finished")));
        QCOMPARE(other.received().value(urlFormat).trimmed(), QUrl(url, QUrl::TolerantMode).toEncoded());
        QVERIFY(!other.received().value(tileFormat).isEmpty());
    }

    void dragObjectsAreDeletedWhenTheOtherProgramHasFinished()
    {
        HandDragScene scene(3);
        ProgramInGtk other(beside, ProgramInGtk::Fetching::Late);
        QVERIFY(other.isReady());
        for (int i = 1; i <= 2; ++i) {
            scene.dragTile(1);
            carryInto(scene, other, i);
            scene.hand.letGo();
            QCOMPARE(scene.hand.run(), QString());
            QTRY_COMPARE(other.count(QStringLiteral("dropped")), i);
            QTRY_VERIFY(!scene.popup);
            drainEvents();
            QCOMPARE(HandDrag::keptDrags(), 1); // the data is still to be fetched
            other.fetch();
            QTRY_COMPARE(other.count(QStringLiteral("finished")), i);
            QVERIFY(!other.received().value(tileFormat).isEmpty());
            QTRY_COMPARE(HandDrag::keptDrags(), 0);
            scene.openPopup();
        }
    }
};

TEST_CLASS(tst_DragToOtherProgram);
#include "tst_dragtootherprogram.moc"

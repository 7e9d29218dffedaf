// SPDX-License-Identifier: MIT
#include "tests/desktop/Hand.h"
#include "tests/desktop/HandDragScene.h"
#include "tests/support/Patience.h"
#include "tests/support/TestCase.h"
#include "tests/support/TileLayout.h"

#include <QApplication>
#include <QLabel>
#include <QMap>
#include <QProcess>

#include <memory>

namespace {

//! Beside the host's main window.
const QRect beside(1500, 300, 300, 200);
const QString urlFormat = "text/uri-list";
const QString tileFormat = "application/corvel.DR.Layout";

//! A program of another toolkit with one window, as the target of a drag. Ends with this object.
class ProgramInGtk
{
public:
    //! When it fetches dropped data; Late: by fetch().
    enum class Fetching { AtOnce, Late };

    //! \param place the window's geometry, in global coordinates
    ProgramInGtk(const QRect &place, Fetching fetching) : m_place(place)
    {
        QStringList arguments;
        for (const int number : {place.x(), place.y(), place.width(), place.height()})
            arguments.append(QString::number(number));
        if (fetching == Fetching::Late)
            arguments.append("late");
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("NO_AT_BRIDGE", "1");     // there is no session bus
        environment.insert("LD_PRELOAD", QString()); // without the tests' preloaded libraries
        m_process.setProcessEnvironment(environment);
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(GTK_WINDOW_PROGRAM, arguments);
        m_isReady = waitUntil([this] { return has("ready"); });
    }
    ~ProgramInGtk()
    {
        m_process.terminate();
        if (!m_process.waitForFinished())
            m_process.kill();
    }

    //! Its output so far. Runs no events.
    QStringList lines() const
    {
        m_process.waitForReadyRead(0); // reads without an event loop
        m_output += m_process.readAllStandardOutput();
        return QString::fromUtf8(m_output).split('\n', Qt::SkipEmptyParts);
    }
    bool has(const QString &line) const { return lines().contains(line); }
    int count(const QString &line) const { return lines().count(line); }
    //! The received data by format.
    QMap<QString, QByteArray> received() const
    {
        QMap<QString, QByteArray> data;
        const QStringList all = lines();
        for (const QString &line : all) {
            const QStringList words = line.split(' ');
            if (words.size() == 3 && words.first() == "data")
                data.insert(words.at(1), QByteArray::fromHex(words.at(2).toLatin1()));
        }
        return data;
    }
    //! Makes a late one fetch now.
    void fetch() { m_process.write("fetch\n"); }

    QRect place() const { return m_place; }
    //! Whether the window is on screen at its place.
    bool isReady() const { return m_isReady; }

private:
    QRect m_place;
    mutable QProcess m_process;
    mutable QByteArray m_output;
    bool m_isReady = false;
};

//! Moves a dragged tile into the other program's window. \param time the number of drags there so far, with
//! this one
void carryInto(HandDragScene &scene, const ProgramInGtk &other, int time = 1)
{
    scene.carryOut();
    scene.hand.jumpTo(other.place().center());
    scene.hand.waitFor("the other program receives the drag",
                       [&other, time] { return other.count("enter") == time; });
}

} // namespace

//! Tiles dragged with the real pointer: within the popup, onto the host below it, and onto a window of
//! another program and toolkit.
class tst_DragOnDesktop : public TestCase
{
    Q_OBJECT

private slots:
    void dropOnTheHostOpensEveryHighlightedDrawing()
    {
        HandDragScene scene(6);
        // Out of order: the drawings are opened in display order nevertheless.
        for (const int index : {4, 2}) {
            Hand::holdKey("ctrl");
            Hand::click(scene.tiles.at(index));
            Hand::releaseKey("ctrl");
            QTRY_VERIFY(RealBrowser::isHighlighted(scene.tiles.at(index)));
        }
        QVERIFY(waitUntil([] { return QApplication::mouseButtons() == Qt::NoButton; }));

        scene.hand.takeHold(scene.tiles.at(2), QPoint(30, 100)); // no double-click
        scene.hand.startDrag();
        scene.hand.carryTo(scene.outside); // in small steps
        scene.hand.waitFor("the popup is a strip", [&] { return scene.isStrip(); });
        QList<int> shownOutside = {-1};
        scene.hand.justDo([&] {
            shownOutside = scene.shown();
            Hand::keepScreenshot("strip-while-a-tile-is-dragged");
        });
        QCOMPARE(scene.drop(), QString());
        QCOMPARE(shownOutside, QList<int>());
        QTRY_VERIFY(!scene.popup);
        drainEvents();
        QCOMPARE(scene.opened(), scene.opening({0, 2, 4}));
        Hand::keepScreenshot("host-after-the-drop");
    }

    void dragThatEndsInsideOpensNothing_data()
    {
        QTest::addColumn<QString>("part"); // any part of a tile drags the tile
        QTest::addColumn<bool>("leaves");
        QTest::addColumn<bool>("escapes");
        QTest::newRow("released") << "image_label" << false << false;
        QTest::newRow("Escape") << "title_label" << false << true;
        QTest::newRow("outside and back inside") << "Iconlabel" << true << false;
    }

    void dragThatEndsInsideOpensNothing()
    {
        QFETCH(QString, part);
        QFETCH(bool, leaves);
        QFETCH(bool, escapes);
        HandDragScene scene(6);
        const QPoint cell = scene.tiles.at(5)->pos();
        scene.hand.takeHold(scene.tiles.at(5)->findChild<QLabel *>(part), QPoint(5, 5));
        scene.hand.startDrag();
        if (leaves) {
            scene.carryOut();
            scene.carryBackIn();
        } else {
            scene.hand.carryTo(scene.place.center());
        }
        scene.hand.waitFor("the dragged tile alone is hidden", [&] {
            return scene.shown() == QList<int>({0, 1, 2, 3, 4});
        });
        if (escapes)
            scene.hand.escape();
        else
            scene.hand.letGo();
        QCOMPARE(scene.hand.run(), QString());
        drainEvents();
        QCOMPARE(scene.whatHasChanged(), QString());
        QCOMPARE(scene.tiles.at(5)->pos(), cell);
        QTRY_COMPARE(HandDrag::keptDrags(), 0);

        QCOMPARE(scene.dropOutside(2), QString()); // the next drag works
        QTRY_VERIFY(!scene.popup);
        drainEvents();
        QCOMPARE(scene.opened(), scene.opening({2}));
    }

    void dragThatEndsOutsideOpensTheDrawing_data()
    {
        QTest::addColumn<QPoint>("place");
        QTest::addColumn<bool>("escapes");
        QTest::newRow("on the main window") << QPoint(400, 800) << false;
        QTest::newRow("on the empty desktop") << QPoint(1650, 400) << false;
        QTest::newRow("with Escape") << QPoint(400, 800) << true;
    }

    void dragThatEndsOutsideOpensTheDrawing()
    {
        QFETCH(QPoint, place);
        QFETCH(bool, escapes);
        HandDragScene scene(3);
        scene.dragTile(1);
        scene.carryOut();
        scene.hand.jumpTo(place);
        if (escapes)
            scene.hand.escape();
        else
            scene.hand.letGo();
        QCOMPARE(scene.hand.run(), QString());
        QTRY_VERIFY(!scene.popup);
        drainEvents();
        QCOMPARE(scene.opened(), scene.opening({1})); // the press has highlighted it alone
        QTRY_COMPARE(HandDrag::keptDrags(), 0);
    }

    void pointerThatSkipsTheRimLeavesThePopupAtFullSize()
    {
        HandDragScene scene(3);
        scene.dragTile(1);
        scene.hand.carryTo(scene.place.center());
        scene.hand.jumpTo(scene.outside);
        QCOMPARE(scene.drop(), QString());
        drainEvents();
        QCOMPARE(scene.whatHasChanged(), QString()); // it has not received the pointer's leaving
    }

    void otherProgramReceivesUrlAndPicture()
    {
        // A per cent sign is escaped; a hash sign begins a fragment and stays.
        const QString name = QString::fromUtf8("100% Öl #3.dwg");
        HandDragScene scene({"other.dwg", name});
        const ProgramInGtk other(beside, ProgramInGtk::Fetching::AtOnce);
        QVERIFY(other.isReady());
        const QPoint hold(30, 100);
        scene.hand.takeHold(scene.tiles.at(1), hold);
        QImage picture; // after the press has changed its look
        scene.hand.justDo([&] { picture = scene.tiles.at(1)->grab().toImage(); });
        scene.hand.startDrag();
        carryInto(scene, other);
        scene.hand.justDo([] { Hand::keepScreenshot("tile-over-another-program"); });
        QCOMPARE(scene.drop(), QString());
        QTRY_VERIFY(other.has("finished"));
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
        QCOMPARE(scene->drop(), QString());
        QTRY_VERIFY(other.has("dropped"));
        const QString url = QString("file:///") + scene->browser.paths().at(1);
        scene.reset(); // deletes the host, which unloads the module
        drainEvents();
        other.fetch();
        QTRY_VERIFY(other.has("finished"));
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
            QCOMPARE(scene.drop(), QString());
            QTRY_COMPARE(other.count("dropped"), i);
            QTRY_VERIFY(!scene.popup);
            drainEvents();
            QCOMPARE(HandDrag::keptDrags(), 1); // the data is still to be fetched
            other.fetch();
            QTRY_COMPARE(other.count("finished"), i);
            QVERIFY(!other.received().value(tileFormat).isEmpty());
            QTRY_COMPARE(HandDrag::keptDrags(), 0);
            scene.openPopup();
        }
    }
};

TEST_CLASS(tst_DragOnDesktop);
#include "tst_dragondesktop.moc"

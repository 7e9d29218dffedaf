// SPDX-License-Identifier: MIT
#include "tests/state/PinMenu.h"
#include "tests/support/TestCase.h"
#include "tests/support/fake/FakeBrowser.h"

#include <QMutex>

#include <functional>
#include <memory>

//! A change to a menu and its lists before they are put in order.
using PinMenuChange = std::function<void(PinMenu &)>;
Q_DECLARE_METATYPE(PinMenuChange)

namespace {

const QStringList wxyz = {QStringLiteral("W"), QStringLiteral("X"), QStringLiteral("Y"), QStringLiteral("Z")};

QString joinedMenu(const PinMenu &pins)
{
    return displayed(pins.menu).join(QStringLiteral(" | "));
}

QString joinedPins()
{
    return pathsOf(RecentDocumentBrowser::menuPinButtonList).join(QLatin1Char(' '));
}

} // namespace

//! Pinned documents come first: in the menu, and in the list that the browser's tiles follow. Examples, and
//! what tst_pinproperties does not test: lists and menus that were changed by other code.
class tst_PinnedOrder : public TestCase
{
    Q_OBJECT

private slots:
    void anyListsCanBeOrdered_data()
    {
        QTest::addColumn<PinMenuChange>("change");
        QTest::addColumn<QString>("menu");
        QTest::addColumn<QString>("pins");
        const auto row = [](const char *name, const PinMenuChange &change, const char *menu,
                            const char *pins) {
            QTest::newRow(name) << change << QString::fromLatin1(menu) << QString::fromLatin1(pins);
        };
        QList<FolderPinButton *> &listed = RecentDocumentBrowser::menuPinButtonList;
        row(
            "pinned entries are before the others",
            [](const PinMenu &pins) {
                pins.setPinned(3);
                pins.setPinned(1);
            },
            "New | --- | &1 X | &2 Z | --- | --- | &3 W | &4 Y | Quit", "X Z W Y");
        row(
            "a button without an entry moves alone",
            [](const PinMenu &pins) {
                QString path = QStringLiteral("gone");
                FolderPinButton *lost =
                    RecentDocumentBrowser::CreatePinButton(pins.create->parentWidget(), path);
                lost->setChecked(true);
                RecentDocumentBrowser::AddInToMenuPinButtonList(lost);
            },
            "New | --- | --- | &1 W | &2 X | &3 Y | &4 Z | Quit", "gone W X Y Z");
        row(
            "no button, though a pin is down",
            [&](const PinMenu &pins) {
                pins.setPinned(3);
                listed.clear();
            },
            "New | --- | --- | &1 W | &2 X | &3 Y | &4 Z | Quit", "");
        row(
            "null buttons are among the unpinned",
            [&](const PinMenu &pins) {
                listed.insert(2, nullptr);
                listed.prepend(nullptr);
                pins.setPinned(1);
            },
            "New | --- | &1 X | --- | --- | &2 W | &3 Y | &4 Z | Quit", "X null W null Y Z");
        row(
            "a button listed twice counts twice",
            [&](const PinMenu &pins) {
                listed.append(pins.buttons.at(0));
                pins.setPinned(0);
            },
            "New | --- | &2 W | --- | --- | &3 X | &4 Y | &5 Z | Quit", "W W X Y Z");
        row(
            "a separator among the entries is left alone",
            [](const PinMenu &pins) {
                RecentDocumentBrowser::recentDocActionList.insert(1, pins.menu.actions().at(1));
                pins.setPinned(3);
            },
            "New | --- | &1 Z | --- | --- | &2 W | &3 X | &4 Y | Quit", "Z W X Y");
        row(
            "the remembered action is the place",
            [](PinMenu &pins) {
                RecentDocumentBrowser::before = pins.menu.addAction(QStringLiteral("Options"));
                pins.setPinned(0);
            },
            "New | --- | &1 W | --- | --- | Quit | &2 X | &3 Y | &4 Z | Options", "W X Y Z");
        row(
            "for pinned ones too, when there are no others",
            [](const PinMenu &pins) {
                RecentDocumentBrowser::before = pins.create;
                for (int i = 0; i < 4; ++i)
                    pins.setPinned(i);
            },
            "&1 W | &2 X | &3 Y | &4 Z | New | --- | --- | Quit", "W X Y Z");
        row(
            "a deleted action means the menu's end",
            [](const PinMenu &pins) {
                pins.setPinned(2);
                delete pins.quit;
            },
            "New | --- | &1 Y | --- | --- | &2 W | &3 X | &4 Z", "Y W X Z");
        row(
            "an entry's own text contains its path",
            [](const PinMenu &pins) {
                pins.entry(0).textButton->setText(QStringLiteral("&1 Y"));
                pins.entries.at(1)->setText(QStringLiteral("Y"));     // no blank: the whole text
                pins.entries.at(3)->setText(QStringLiteral("any Y")); // whatever precedes the first blank
                pins.setPinned(2);
            },
            "New | --- | &1 X | &2 Y | &3 Z | --- | --- | &4 Y | Quit", "Y W X Z");
    }

    void anyListsCanBeOrdered()
    {
        QFETCH(PinMenuChange, change);
        QFETCH(QString, menu);
        QFETCH(QString, pins);
        PinMenu built(wxyz);
        change(built);
        const QList<QAction *> entries = RecentDocumentBrowser::recentDocActionList;
        QString argument = QStringLiteral("Z");
        RecentDocumentBrowser::UpdatePin(argument);
        QCOMPARE(argument, QStringLiteral("Z"));
        QCOMPARE(joinedMenu(built), menu);
        QCOMPARE(joinedPins(), pins);
        QCOMPARE(RecentDocumentBrowser::recentDocActionList, entries);
    }

    //! An entry that leaves the menu is removed from it first, and its widgets are polished again.
    void onlyWhatIsOutOfPlaceMoves()
    {
        class Removals : public QObject
        {
        public:
            int count = 0;
            bool eventFilter(QObject * /*menu*/, QEvent *event) override
            {
                count += event->type() == QEvent::ActionRemoved;
                return false;
            }
        } removals;
        PinMenu pins(wxyz);
        pins.menu.installEventFilter(&removals);
        updatePins(); // the closing separator moves in front of the entries
        QCOMPARE(removals.count, 1);
        updatePins();
        QCOMPARE(removals.count, 1);
        pins.setPinned(2);
        updatePins();
        QCOMPARE(removals.count, 2);
        updatePins(); // the separator between the groups moves in front of both, and a new one takes its
                      // place
        QCOMPARE(removals.count, 3);
        QCOMPARE(joinedMenu(pins),
                 QStringLiteral("New | --- | --- | --- | &1 Y | --- | &2 W | &3 X | &4 Z | Quit"));
    }

    //! QMenu removes them from an action that moves.
    void theHostsActionsKeepTheirConnections()
    {
        PinMenu pins(wxyz);
        QAction plot(QStringLiteral("Plot"));
        pins.menu.insertAction(pins.quit, &plot); // the entries move in front of Quit, and Plot does not move
        int plotted = 0;
        connect(&plot, &QAction::triggered, &pins.menu, [&plotted] { ++plotted; });
        updatePins();
        plot.trigger();
        QCOMPARE(plotted, 1);
    }

    void aNumberReplacesTheFormerOne_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("number");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char *text, int number, const char *expected) {
            QTest::addRow("%s becomes %d", text, number)
                << QString::fromLatin1(text) << number << QString::fromLatin1(expected);
        };
        row("&10 a", 1, "&1 a");
        row("&11 a", 5, "&51 a");  // of two-digit numbers only 10 is known
        row("&100 a", 7, "&70 a"); // begins with &10
        row("&110 a", 2, "&210 a");
        row("&2 &10 a", 4, "&4 &10 a"); // the same text in a path
        row("&1 0 a", 4, "&4 0 a");
        row("x10 a", 4, "x40 a"); // another first character
    }

    void aNumberReplacesTheFormerOne()
    {
        QFETCH(QString, text);
        QFETCH(int, number);
        QFETCH(QString, expected);
        QStringList paths;
        for (int i = 0; i < number; ++i)
            paths.append(QString::number(i));
        PinMenu pins(paths);
        FolderPinButton *button = pins.entry(number - 1).textButton;
        for (const bool pinned : {false, true}) { // the last one gets the number either way
            for (int i = 0; i < number; ++i)
                pins.setPinned(i, pinned);
            button->setText(text);
            updatePins();
            QCOMPARE(button->text(), expected);
        }
    }

    void withoutAMenuListsAndNumbersFollow()
    {
        PinMenu earlier(wxyz);
        const QString before = joinedMenu(earlier);
        auto owned = std::make_unique<QMenu>();
        QAction *end = owned->addAction(QStringLiteral("Quit"));
        RecentDocumentBrowser::menuPinButtonList.clear();
        RecentDocumentBrowser::AddRecentFiles(owned.get(), end);
        FolderPinButton *pin = RecentDocumentBrowser::menuPinButtonList.at(2);
        owned.reset(); // with the action that the entries precede
        pin->click();  // a button outlives its menu
        QCOMPARE(joinedPins(), QStringLiteral("Y W X Z"));
        QStringList texts;
        for (QAction *action : qAsConst(RecentDocumentBrowser::recentDocActionList))
            texts.append(qobject_cast<RecentFileAction *>(action)->textButton->text());
        QCOMPARE(texts, QStringList({"&2 W", "&3 X", "&1 Y", "&4 Z"}));
        QCOMPARE(joinedMenu(earlier), before); // an earlier menu is not used instead
    }

    void beforeAnyMenuIsBuiltNothingHappens()
    {
        const FakeModule inHost;
        QVERIFY(!RecentDocumentBrowser::recentDocMenu);
        updatePins();
        QVERIFY(RecentDocumentBrowser::menuPinButtonList.isEmpty());
        QVERIFY(RecentDocumentBrowser::recentDocActionList.isEmpty());
        QVERIFY(!RecentDocumentBrowser::recentDocMenu);
    }

    void clicksInAnOpenMenuReorderIt()
    {
        PinMenu pins(wxyz);
        pins.menu.popup(QPoint(20, 20));
        QVERIFY(waitForExposed(&pins.menu));
        const auto heightOf = [&](int entry) {
            return pins.entry(entry).defaultWidget()->mapTo(&pins.menu, QPoint()).y();
        };
        QVERIFY(heightOf(2) > heightOf(0));
        QTest::mouseClick(pins.buttons.at(2), Qt::LeftButton);
        QCOMPARE(pins.displayedEntries(), QStringList({"New", "&1 Y", "&2 W", "&3 X", "&4 Z", "Quit"}));
        QTRY_VERIFY(heightOf(2) < heightOf(0)); // on screen too
        for (int click = 0; click < 60; ++click) {
            FolderPinButton *pin = pins.buttons.at((click * 7 + click / 3) % 4);
            const bool wasChecked = pin->isChecked();
            QTest::mouseClick(pin, Qt::LeftButton);
            QCOMPARE(pin->isChecked(), !wasChecked);
            if (click % 5 == 0)
                drainEvents(); // at other times the menu has not even been laid out again
        }
        for (int i = 0; i < 4; ++i)
            QVERIFY(pins.entry(i).defaultWidget()->isVisible());
        QVERIFY(pins.menu.isVisible());
        pins.menu.close();
        drainEvents();
    }

    void theBrowserReordersBetweenPicturesAndTiles()
    {
        FakeBrowser browser(3);
        browser.createDocument();
        RecentDocumentBrowser::menuPinButtonList.at(2)->setChecked(true);
        QStringList orderAtReading;
        QMutex mutex; // worker threads read, while the GUI thread waits for them
        browser.host.onPreviewStep = [&](const QString & /*step*/) {
            const QMutexLocker lock(&mutex);
            if (orderAtReading.isEmpty())
                orderAtReading = pathsOf(RecentDocumentBrowser::menuPinButtonList);
        };
        browser.openPopup();
        QCOMPARE(orderAtReading, browser.paths());
        const QStringList ordered = {browser.path(2), browser.path(0), browser.path(1)};
        QCOMPARE(pathsOf(RecentDocumentBrowser::docPinButtonList), ordered);

        // Without a list there are no tiles, but the pins are ordered.
        browser.createDocument();
        RecentDocumentBrowser::menuPinButtonList.at(2)->setChecked(true);
        browser.host.hasRecentFileList = false;
        browser.openPopup();
        QCOMPARE(pathsOf(RecentDocumentBrowser::menuPinButtonList), ordered);
    }
};

TEST_CLASS(tst_PinnedOrder);
#include "tst_pinnedorder.moc"

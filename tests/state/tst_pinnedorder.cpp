// SPDX-License-Identifier: MIT
#include "tests/support/PinMenu.h"
#include "tests/support/TestCase.h"

#include <memory>

namespace {

const QStringList fourPaths = {QStringLiteral("W"), QStringLiteral("X"), QStringLiteral("Y"),
                               QStringLiteral("Z")};

//! Takes away the separators around the recent documents: the order of the rest is clearer without them.
void removeSeparators(QMenu &menu)
{
    const QList<QAction *> actions = menu.actions();
    for (QAction *action : actions) {
        if (action->isSeparator())
            menu.removeAction(action);
    }
}

} // namespace

//! Pinned documents come first: in the menu, and in the list that the browser's tiles follow.
class tst_PinnedOrder : public TestCase
{
    Q_OBJECT

private slots:
    void aPinnedEntryComesFirst();
    void withoutPinsTheHostsOrderIsNumberedAnew();
    void withEveryEntryPinnedNoSeparatorIsAdded();
    void pinnedEntriesStandInTheOrderOfTheirButtons();
    void unpinningTheOnlyOneLeavesItsButtonInFront();
    void eachCallWithBothGroupsAddsASeparator();
    void whereTheMenuEndsTheOthersGoToItsEnd();
    void thePlaceIsInFrontOfTheRememberedAction();
    void anActionThatIsGoneMeansTheMenusEnd();
    void entriesAreMovedAndNotRepeated();
    void onlyTextButtonsAreNumberedAnew();
    void theArgumentIsLeftAlone();

    void aButtonWithoutAnEntryMovesAlone();
    void withoutButtonsTheEntriesAreNumberedAndMoved();
    void nullButtonsStandAmongTheUnpinned();
    void aPathListedTwicePinsBothEntries();
    void aButtonListedTwiceCountsTwice();
    void separatorsInTheListAreLeftAlone();
    void withoutAMenuListsAndNumbersFollow();
    void beforeAnyMenuIsBuiltNothingHappens();
    void pathsAreComparedExactly_data();
    void pathsAreComparedExactly();
    void theEntrysOwnTextTellsItsPath();
};

void tst_PinnedOrder::aPinnedEntryComesFirst()
{
    PinMenu pins(fourPaths);
    removeSeparators(pins.menu);
    pins.setPinned(2);
    updatePins();
    QCOMPARE(displayed(pins.menu), QStringList({"New", "&1 Y", "---", "&2 W", "&3 X", "&4 Z", "Quit"}));
    QCOMPARE(pathsOf(RecentDocumentBrowser::menuPinButtonList), QStringList({"Y", "W", "X", "Z"}));
    QCOMPARE(RecentDocumentBrowser::recentDocActionList, pins.entries);
}

void tst_PinnedOrder::withoutPinsTheHostsOrderIsNumberedAnew()
{
    PinMenu pins(fourPaths);
    const QList<QAction *> before = pins.menu.actions();
    pins.entry(0).textButton->setText(QStringLiteral("&7 W"));
    pins.entry(2).textButton->setText(QStringLiteral("&10 Y"));
    pins.menu.insertAction(pins.entries.at(0), pins.entries.at(3));
    updatePins();
    QCOMPARE(displayed(pins.menu),
             QStringList({"New", "---", "---", "&1 W", "&2 X", "&3 Y", "&4 Z", "Quit"}));
    QCOMPARE(pins.menu.actions().size(), before.size());
    QCOMPARE(RecentDocumentBrowser::menuPinButtonList, pins.buttons);
}

void tst_PinnedOrder::withEveryEntryPinnedNoSeparatorIsAdded()
{
    PinMenu pins(fourPaths);
    for (int i = 0; i < 4; ++i)
        pins.setPinned(i);
    const int before = pins.menu.actions().size();
    updatePins();
    QCOMPARE(pins.menu.actions().size(), before);
    QCOMPARE(displayed(pins.menu),
             QStringList({"New", "---", "---", "&1 W", "&2 X", "&3 Y", "&4 Z", "Quit"}));

    // It is the buttons' order that counts.
    const QList<FolderPinButton *> &b = pins.buttons;
    RecentDocumentBrowser::menuPinButtonList = {b.at(3), b.at(1), b.at(0), b.at(2)};
    updatePins();
    QCOMPARE(displayed(pins.menu),
             QStringList({"New", "---", "---", "&1 Z", "&2 X", "&3 W", "&4 Y", "Quit"}));
    QCOMPARE(pathsOf(RecentDocumentBrowser::menuPinButtonList), QStringList({"Z", "X", "W", "Y"}));
    QCOMPARE(RecentDocumentBrowser::recentDocActionList, pins.entries);
}

void tst_PinnedOrder::pinnedEntriesStandInTheOrderOfTheirButtons()
{
    PinMenu pins(fourPaths);
    removeSeparators(pins.menu);
    pins.setPinned(3);
    updatePins();
    pins.setPinned(1); // behind the one that was pinned first, although the host lists it earlier
    updatePins();
    QCOMPARE(pins.displayedEntries(), QStringList({"New", "&1 Z", "&2 X", "&3 W", "&4 Y", "Quit"}));
    QCOMPARE(pathsOf(RecentDocumentBrowser::menuPinButtonList), QStringList({"Z", "X", "W", "Y"}));

    pins.setPinned(3, false); // becomes the first of the unpinned buttons; the entries keep the host's order
    updatePins();
    QCOMPARE(pins.displayedEntries(), QStringList({"New", "&1 X", "&2 W", "&3 Y", "&4 Z", "Quit"}));
    QCOMPARE(pathsOf(RecentDocumentBrowser::menuPinButtonList), QStringList({"X", "Z", "W", "Y"}));
    QCOMPARE(RecentDocumentBrowser::recentDocActionList, pins.entries);
}

void tst_PinnedOrder::unpinningTheOnlyOneLeavesItsButtonInFront()
{
    PinMenu pins(fourPaths);
    removeSeparators(pins.menu);
    pins.setPinned(2);
    updatePins();
    pins.setPinned(2, false);
    updatePins();
    QCOMPARE(displayed(pins.menu), QStringList({"New", "---", "&1 W", "&2 X", "&3 Y", "&4 Z", "Quit"}));
    QCOMPARE(pathsOf(RecentDocumentBrowser::menuPinButtonList), QStringList({"Y", "W", "X", "Z"}));
}

void tst_PinnedOrder::eachCallWithBothGroupsAddsASeparator()
{
    PinMenu pins(fourPaths);
    pins.setPinned(2);
    updatePins();
    // The new separator, and the one behind the entries: those have all been moved past it.
    QCOMPARE(displayed(pins.menu),
             QStringList({"New", "---", "&1 Y", "---", "---", "&2 W", "&3 X", "&4 Z", "Quit"}));
    // From now on the pinned entry goes behind all earlier separators, and the new one behind it.
    for (int call = 2; call <= 4; ++call) {
        updatePins();
        QStringList expected = {"New", "---"};
        for (int earlier = 0; earlier < call; ++earlier)
            expected.append(QStringLiteral("---"));
        expected += QStringList({"&1 Y", "---", "&2 W", "&3 X", "&4 Z", "Quit"});
        QCOMPARE(displayed(pins.menu), expected);
    }
    QCOMPARE(pathsOf(RecentDocumentBrowser::menuPinButtonList), QStringList({"Y", "W", "X", "Z"}));
}

void tst_PinnedOrder::whereTheMenuEndsTheOthersGoToItsEnd()
{
    PinMenu pins(fourPaths, false);
    QCOMPARE(displayed(pins.menu),
             QStringList({"New", "Quit", "---", "&1 W", "&2 X", "&3 Y", "&4 Z", "---"}));
    pins.setPinned(1);
    updatePins();
    QCOMPARE(displayed(pins.menu),
             QStringList({"New", "Quit", "---", "&1 X", "---", "---", "&2 W", "&3 Y", "&4 Z"}));
    pins.setPinned(0);
    pins.setPinned(2);
    pins.setPinned(3);
    updatePins(); // no unpinned one: the pinned ones go to the end
    QCOMPARE(displayed(pins.menu),
             QStringList({"New", "Quit", "---", "---", "---", "&1 X", "&2 W", "&3 Y", "&4 Z"}));
}

void tst_PinnedOrder::thePlaceIsInFrontOfTheRememberedAction()
{
    PinMenu pins(fourPaths);
    QAction *middle = pins.menu.addAction(QStringLiteral("Options"));
    RecentDocumentBrowser::before = middle; // behind "Quit"
    pins.setPinned(0);
    updatePins();
    QCOMPARE(displayed(pins.menu),
             QStringList({"New", "---", "&1 W", "---", "---", "Quit", "&2 X", "&3 Y", "&4 Z", "Options"}));
    for (int i = 1; i < 4; ++i)
        pins.setPinned(i);
    RecentDocumentBrowser::before = pins.create;
    updatePins();
    QCOMPARE(displayed(pins.menu),
             QStringList({"&1 W", "&2 X", "&3 Y", "&4 Z", "New", "---", "---", "---", "Quit", "Options"}));
}

void tst_PinnedOrder::anActionThatIsGoneMeansTheMenusEnd()
{
    PinMenu pins(fourPaths);
    pins.setPinned(2);
    delete pins.quit;
    updatePins();
    QCOMPARE(displayed(pins.menu), QStringList({"New", "---", "&1 Y", "---", "---", "&2 W", "&3 X", "&4 Z"}));
}

void tst_PinnedOrder::entriesAreMovedAndNotRepeated()
{
    PinMenu pins(fourPaths);
    for (const int pinned : {3, 0, 2, 1, 3, 0}) {
        pins.setPinned(pinned, !pins.buttons.at(pinned)->isChecked());
        updatePins();
        for (QAction *entry : qAsConst(pins.entries))
            QCOMPARE(pins.menu.actions().count(entry), 1);
        QCOMPARE(pins.displayedEntries().size(), 6);
        QCOMPARE(RecentDocumentBrowser::menuPinButtonList.size(), 4);
    }
    QCOMPARE(RecentDocumentBrowser::recentDocActionList, pins.entries);
}

void tst_PinnedOrder::onlyTextButtonsAreNumberedAnew()
{
    PinMenu pins(fourPaths);
    const QStringList own = ownTexts(pins.entries);
    QCOMPARE(own, QStringList({"&1 W", "&2 X", "&3 Y", "&4 Z"}));
    pins.setPinned(3);
    updatePins();
    QCOMPARE(ownTexts(pins.entries), own);
    updatePins();
    QCOMPARE(ownTexts(pins.entries), own);
    QCOMPARE(pins.entry(3).textButton->text(), QStringLiteral("&1 Z"));
    for (int i = 0; i < 4; ++i)
        QCOMPARE(QString(pins.entry(i).filePath), fourPaths.at(i));
}

void tst_PinnedOrder::theArgumentIsLeftAlone()
{
    PinMenu pins(fourPaths);
    pins.setPinned(1);
    QString argument = QStringLiteral("Z");
    RecentDocumentBrowser::UpdatePin(argument);
    QCOMPARE(argument, QStringLiteral("Z"));
    QCOMPARE(pins.displayedEntries(), QStringList({"New", "&1 X", "&2 W", "&3 Y", "&4 Z", "Quit"}));
}

void tst_PinnedOrder::aButtonWithoutAnEntryMovesAlone()
{
    PinMenu pins(fourPaths);
    QString path = QStringLiteral("gone");
    const std::unique_ptr<FolderPinButton> lost(RecentDocumentBrowser::CreatePinButton(nullptr, path));
    lost->setChecked(true);
    RecentDocumentBrowser::AddInToMenuPinButtonList(lost.get());
    updatePins();
    QCOMPARE(pathsOf(RecentDocumentBrowser::menuPinButtonList), QStringList({"gone", "W", "X", "Y", "Z"}));
    QCOMPARE(displayed(pins.menu),
             QStringList({"New", "---", "---", "&1 W", "&2 X", "&3 Y", "&4 Z", "Quit"}));
    pins.setPinned(2);
    updatePins();
    QCOMPARE(pathsOf(RecentDocumentBrowser::menuPinButtonList), QStringList({"gone", "Y", "W", "X", "Z"}));
    QCOMPARE(pins.displayedEntries(), QStringList({"New", "&1 Y", "&2 W", "&3 X", "&4 Z", "Quit"}));
}

void tst_PinnedOrder::withoutButtonsTheEntriesAreNumberedAndMoved()
{
    PinMenu pins(fourPaths);
    pins.setPinned(3);
    updatePins();
    const int actions = pins.menu.actions().size();
    RecentDocumentBrowser::menuPinButtonList.clear(); // the button is still checked, but nobody lists it
    updatePins();
    QCOMPARE(displayed(pins.menu),
             QStringList({"New", "---", "---", "---", "&1 W", "&2 X", "&3 Y", "&4 Z", "Quit"}));
    QCOMPARE(pins.menu.actions().size(), actions);
    QVERIFY(RecentDocumentBrowser::menuPinButtonList.isEmpty());
}

void tst_PinnedOrder::nullButtonsStandAmongTheUnpinned()
{
    PinMenu pins(fourPaths);
    const QList<FolderPinButton *> &b = pins.buttons;
    RecentDocumentBrowser::menuPinButtonList = {nullptr, b.at(0), b.at(1), nullptr, b.at(2), b.at(3)};
    pins.setPinned(1);
    updatePins();
    QCOMPARE(pathsOf(RecentDocumentBrowser::menuPinButtonList),
             QStringList({"X", "null", "W", "null", "Y", "Z"}));
    QCOMPARE(pins.displayedEntries(), QStringList({"New", "&1 X", "&2 W", "&3 Y", "&4 Z", "Quit"}));
}

void tst_PinnedOrder::aPathListedTwicePinsBothEntries()
{
    PinMenu pins({QStringLiteral("W"), QStringLiteral("X"), QStringLiteral("Y"), QStringLiteral("X")});
    pins.setPinned(3); // one button of two
    updatePins();
    QCOMPARE(pins.displayedEntries(), QStringList({"New", "&1 X", "&2 X", "&3 W", "&4 Y", "Quit"}));
    QCOMPARE(RecentDocumentBrowser::menuPinButtonList,
             QList<FolderPinButton *>(
                 {pins.buttons.at(3), pins.buttons.at(0), pins.buttons.at(1), pins.buttons.at(2)}));
    pins.setPinned(1);
    updatePins(); // each button numbers both entries: 1 and 2, then 3 and 4
    QCOMPARE(pins.displayedEntries(), QStringList({"New", "&3 X", "&4 X", "&5 W", "&6 Y", "Quit"}));
    QCOMPARE(pins.entry(1).textButton->text(), QStringLiteral("&3 X"));
    QCOMPARE(RecentDocumentBrowser::menuPinButtonList.mid(0, 2),
             QList<FolderPinButton *>({pins.buttons.at(3), pins.buttons.at(1)}));
}

void tst_PinnedOrder::aButtonListedTwiceCountsTwice()
{
    PinMenu pins(fourPaths);
    RecentDocumentBrowser::AddInToMenuPinButtonList(pins.buttons.at(0));
    pins.setPinned(0);
    updatePins();
    QCOMPARE(pathsOf(RecentDocumentBrowser::menuPinButtonList), QStringList({"W", "W", "X", "Y", "Z"}));
    QCOMPARE(pins.displayedEntries(), QStringList({"New", "&2 W", "&3 X", "&4 Y", "&5 Z", "Quit"}));
}

void tst_PinnedOrder::separatorsInTheListAreLeftAlone()
{
    PinMenu pins(fourPaths);
    QAction *separator = pins.menu.actions().at(1);
    QVERIFY(separator->isSeparator());
    RecentDocumentBrowser::recentDocActionList.insert(1, separator);
    pins.setPinned(3);
    updatePins();
    QCOMPARE(pins.menu.actions().indexOf(separator), 1);
    QCOMPARE(displayed(pins.menu),
             QStringList({"New", "---", "&1 Z", "---", "---", "&2 W", "&3 X", "&4 Y", "Quit"}));
    QCOMPARE(RecentDocumentBrowser::recentDocActionList.at(1), separator);
    QCOMPARE(separator->text(), QString());
}

void tst_PinnedOrder::withoutAMenuListsAndNumbersFollow()
{
    PinMenu pins(fourPaths);
    auto owned = std::make_unique<QMenu>();
    QAction *end = owned->addAction(QStringLiteral("Quit"));
    RecentDocumentBrowser::menuPinButtonList.clear();
    RecentDocumentBrowser::AddRecentFiles(owned.get(), end);
    RecentDocumentBrowser::menuPinButtonList.at(2)->setChecked(true);
    owned.reset(); // with the action in front of which the entries stood
    updatePins();
    QCOMPARE(pathsOf(RecentDocumentBrowser::menuPinButtonList), QStringList({"Y", "W", "X", "Z"}));
    QStringList texts;
    for (QAction *action : qAsConst(RecentDocumentBrowser::recentDocActionList))
        texts.append(qobject_cast<RecentFileAction *>(action)->textButton->text());
    QCOMPARE(texts, QStringList({"&2 W", "&3 X", "&1 Y", "&4 Z"}));
    QCOMPARE(displayed(pins.menu), // an earlier menu is no substitute
             QStringList({"New", "---", "&1 W", "&2 X", "&3 Y", "&4 Z", "---", "Quit"}));
}

void tst_PinnedOrder::beforeAnyMenuIsBuiltNothingHappens()
{
    const ModuleInHost inHost;
    QVERIFY(!RecentDocumentBrowser::recentDocMenu);
    updatePins();
    QVERIFY(RecentDocumentBrowser::menuPinButtonList.isEmpty());
    QVERIFY(RecentDocumentBrowser::recentDocActionList.isEmpty());
    QVERIFY(!RecentDocumentBrowser::recentDocMenu);
}

void tst_PinnedOrder::pathsAreComparedExactly_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("pinned");
    QTest::addColumn<bool>("isPinned");
    QTest::newRow("the same") << QStringLiteral("/d/a.dwg") << QStringLiteral("/d/a.dwg") << true;
    QTest::newRow("blanks inside") << QStringLiteral("/my d/a  b .dwg") << QStringLiteral("/my d/a  b .dwg")
                                   << true;
    QTest::newRow("only its last word")
        << QStringLiteral("/my d/a.dwg") << QStringLiteral("d/a.dwg") << false;
    QTest::newRow("other letters") << QStringLiteral("/d/a.dwg") << QStringLiteral("/d/A.dwg") << false;
    QTest::newRow("another spelling") << QStringLiteral("/d/a.dwg") << QStringLiteral("/d/./a.dwg") << false;
    QTest::newRow("a blank more") << QStringLiteral("/d/a.dwg") << QStringLiteral("/d/a.dwg ") << false;
    QTest::newRow("an ampersand and digits") << QStringLiteral("&10 a") << QStringLiteral("&10 a") << true;
    QTest::newRow("a dot that matches nothing else")
        << QStringLiteral("/d/aXdwg") << QStringLiteral("/d/a.dwg") << false;
}

void tst_PinnedOrder::pathsAreComparedExactly()
{
    QFETCH(QString, path);
    QFETCH(QString, pinned);
    QFETCH(bool, isPinned);
    PinMenu pins({QStringLiteral("W"), path});
    const std::unique_ptr<FolderPinButton> pin(RecentDocumentBrowser::CreatePinButton(nullptr, pinned));
    pin->setChecked(true);
    RecentDocumentBrowser::menuPinButtonList = {pin.get()};
    updatePins();
    const QString first = QStringLiteral("&1 ");
    const QString second = QStringLiteral("&2 ");
    QCOMPARE(pins.displayedEntries(), isPinned ? QStringList({"New", first + path, second + "W", "Quit"})
                                               : QStringList({"New", first + "W", second + path, "Quit"}));
}

void tst_PinnedOrder::theEntrysOwnTextTellsItsPath()
{
    PinMenu pins(fourPaths);
    // What is displayed does not count, and neither does the path that was handed in apart.
    pins.entry(0).textButton->setText(QStringLiteral("&1 Y"));
    pins.entries.at(1)->setText(QStringLiteral("Y"));     // no blank: the whole text
    pins.entries.at(3)->setText(QStringLiteral("any Y")); // whatever stands in front of the first blank
    pins.setPinned(2);
    updatePins();
    QCOMPARE(pins.displayedEntries(), QStringList({"New", "&1 X", "&2 Y", "&3 Z", "&4 Y", "Quit"}));
    QCOMPARE(RecentDocumentBrowser::recentDocActionList, pins.entries);
}

QTEST_MAIN(tst_PinnedOrder)
#include "tst_pinnedorder.moc"

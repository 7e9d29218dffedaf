// SPDX-License-Identifier: MIT
#include "module/HostAccess.h"
#include "module/OdRxUnixModuleRecentDocumentBrowser.h"
#include "state/FolderPinButton.h"
#include "tests/support/Browser.h"
#include "tests/support/OpeningHost.h"
#include "tests/support/TestCase.h"
#include "ui/RecentDocDialog.h"
#include "ui/RecentDocMainWindow.h"

#include <QFile>
#include <QMenu>

#include <algorithm>
#include <iterator>

//! A host that does to the module, amid the module's own work, what a host better would not.
class tst_MisbehavingHost : public TestCase
{
    Q_OBJECT

private slots:
    void whateverHappensWhileADrawingIsOpened_data();
    void whateverHappensWhileADrawingIsOpened();
    void theMainWindowMayGoUnderAnOpenPopup_data();
    void theMainWindowMayGoUnderAnOpenPopup();
    void whatOpensIsWhatTheTileSays_data();
    void whatOpensIsWhatTheTileSays();
    void aDrawingMayBeMadeWhileATileIsHeld();
    void aDrawingMayBeMadeUnderAnOpenMenu();
};

namespace {

using Way = OpeningHost::Way;

//! What happens in the host's open operation, each time.
struct Deed
{
    const char *name = nullptr;
    OpeningHost::Deed act = nullptr;
    bool ends = false; //!< nothing more can be opened then
};

const Deed deeds[] = {
    {"nothing", [](OpeningHost &) {}},
    {"it opens another drawing",
     [](OpeningHost &scene) {
         scene.host.onOpen = nullptr; // and that one is opened in peace
         HostAccess::openDocument(scene.browser.path(3));
         scene.browser.createDocument();
     }},
    {"it tells of a new drawing", [](OpeningHost &scene) { scene.browser.createDocument(); }},
    {"it runs events", [](OpeningHost &) { drainEvents(); }},
    {"it tells of a new drawing and runs events",
     [](OpeningHost &scene) {
         scene.browser.createDocument();
         drainEvents();
     }},
    {"it closes the popups",
     [](OpeningHost &) {
         const QList<RecentDocMainWindow *> popups = OpeningHost::popups();
         for (RecentDocMainWindow *popup : popups)
             popup->close();
     }},
    {"it deletes the popups", [](OpeningHost &) { qDeleteAll(OpeningHost::popups()); }},
    {"it deletes the menu", [](OpeningHost &scene) { delete scene.menu; }},
    {"it deletes the menu's entries",
     [](OpeningHost &scene) { qDeleteAll(scene.menu ? scene.menu->actions() : QList<QAction *>()); }},
    {"it deletes the main window", [](OpeningHost &scene) { scene.host.deleteMainWindow(); }},
    {"it ends the main frame",
     [](OpeningHost &scene) { scene.browser.module().mainFrameDestroyed(nullptr); }},
    {"it forgets the module",
     [](OpeningHost &scene) {
         scene.host.commands.clear();
         scene.host.documentReactors.clear();
         scene.host.editorReactors.clear();
     }},
    {"it changes its recent documents",
     [](OpeningHost &scene) {
         scene.host.setRecent({scene.browser.path(3)});
         scene.browser.createDocument();
     }},
    {"it opens the browser anew", [](OpeningHost &) { OpeningHost::runRecent(); }},
    {"its services go", [](OpeningHost &scene) { scene.host.hasServices = false; }, true},
    {"its document manager goes", [](OpeningHost &scene) { scene.host.hasDocumentManager = false; }, true},
};

} // namespace

void tst_MisbehavingHost::whateverHappensWhileADrawingIsOpened_data()
{
    QTest::addColumn<int>("deed");
    QTest::addColumn<Way>("way");
    for (std::size_t i = 0; i < std::size(deeds); ++i) {
        QTest::addRow("Enter: %s", deeds[i].name) << int(i) << Way::Enter;
        QTest::addRow("double-click: %s", deeds[i].name) << int(i) << Way::TwoClicks;
        QTest::addRow("menu entry: %s", deeds[i].name) << int(i) << Way::MenuEntry;
        QTest::addRow("a drag's end: %s", deeds[i].name) << int(i) << Way::DragOut;
    }
}

void tst_MisbehavingHost::whateverHappensWhileADrawingIsOpened()
{
    QFETCH(int, deed);
    QFETCH(Way, way);
    OpeningHost scene;
    int opening = 0;
    scene.host.onOpen = [&](const QString &) {
        ++opening;
        deeds[deed].act(scene);
    };

    QStringList expected = scene.open(way);
    if (deeds[deed].ends)
        expected = expected.mid(0, 1);
    scene.host.onOpen = nullptr;
    QStringList opened = scene.host.openedPaths();
    opened.removeAll(scene.browser.path(3)); // what the host opened of its own accord
    QCOMPARE(opened, expected);
    QVERIFY(opening > 0);
    drainEvents();
    QVERIFY(!scene.popup || way == Way::MenuEntry);
    qDeleteAll(OpeningHost::popups());

    // And everything works as before.
    scene.host.hasServices = true;
    scene.host.hasDocumentManager = true;
    scene.browser.createDocument();
    QPointer<RecentDocMainWindow> popup = OpeningHost::runRecent();
    QVERIFY(popup && !scene.browser.tiles().isEmpty());
    const QString first = scene.browser.tiles().constFirst()->path();
    QTest::keyClick(popup, Qt::Key_Return);
    QCOMPARE(scene.host.openedPaths().constLast(), first);
    drainEvents();
    QVERIFY(!popup);
    QCOMPARE(scene.host.openReferences, 0);
}

void tst_MisbehavingHost::theMainWindowMayGoUnderAnOpenPopup_data()
{
    QTest::addColumn<bool>("isTold");
    QTest::addColumn<bool>("isHeld");
    for (const bool isTold : {true, false}) {
        for (const bool isHeld : {true, false})
            QTest::addRow("%s, %s", isTold ? "told" : "untold", isHeld ? "a tile is held" : "at rest")
                << isTold << isHeld;
    }
}

void tst_MisbehavingHost::theMainWindowMayGoUnderAnOpenPopup()
{
    QFETCH(bool, isTold);
    QFETCH(bool, isHeld);
    OpeningHost scene;
    QTest::mouseMove(Browser::button(scene.tile(0), "pinButton")); // a balloon would be due soon
    if (isHeld)
        scene.hold(scene.tile(1));
    if (isTold)
        scene.browser.module().mainFrameDestroyed(&scene.host.mainWindow());
    scene.host.deleteMainWindow();
    QVERIFY(!scene.popup);
    drainEvents();
    QCOMPARE(scene.host.openedPaths(), QStringList());

    scene.browser.createDocument(); // which nobody should tell any more
    const QPointer<RecentDocMainWindow> popup = OpeningHost::runRecent();
    QVERIFY(popup && !popup->parentWidget());
    QTest::keyClick(popup, Qt::Key_Return);
    QCOMPARE(scene.host.openedPaths(), QStringList(scene.browser.path(0)));
}

void tst_MisbehavingHost::whatOpensIsWhatTheTileSays_data()
{
    using Change = OpeningHost::Deed;
    QTest::addColumn<Change>("change");
    QTest::newRow("the list is emptied") << Change([](OpeningHost &scene) { scene.host.setRecent({}); });
    QTest::newRow("the list is turned round") << Change([](OpeningHost &scene) {
        QStringList paths = scene.browser.paths();
        std::reverse(paths.begin(), paths.end());
        scene.host.setRecent(paths);
    });
    QTest::newRow("the list is another") << Change([](OpeningHost &scene) {
        scene.host.setRecent({QStringLiteral("/x.dwg"), QStringLiteral("/y.dwg")});
    });
    QTest::newRow("there is no list")
        << Change([](OpeningHost &scene) { scene.host.hasRecentFileList = false; });
    QTest::newRow("the files are gone") << Change([](OpeningHost &scene) {
        const QStringList paths = scene.browser.paths();
        for (const QString &path : paths)
            QFile::remove(path);
    });
}

void tst_MisbehavingHost::whatOpensIsWhatTheTileSays()
{
    using Change = OpeningHost::Deed;
    QFETCH(Change, change);
    for (const bool isTold : {false, true}) {
        OpeningHost scene;
        change(scene);
        if (isTold)
            scene.browser.createDocument();
        QTest::keyClick(scene.popup, Qt::Key_Right);
        QTest::keyClick(scene.popup, Qt::Key_Right, Qt::ShiftModifier);
        Browser::button(scene.tile(1), "pinButton")->click(); // whose menu entry may be another now
        QTest::keyClick(scene.popup, Qt::Key_Return);
        QCOMPARE(scene.host.openedPaths(), QStringList({scene.browser.path(1), scene.browser.path(2)}));
    }
}

//! The drag itself, which needs a display, has its tests there.
void tst_MisbehavingHost::aDrawingMayBeMadeWhileATileIsHeld()
{
    OpeningHost scene;
    const QPointer<RecentDocDialog> held = scene.tile(1);
    scene.hold(held);
    scene.host.setRecent({scene.browser.path(3)});
    scene.browser.createDocument();
    QCOMPARE(scene.popup->dragDialog.data(), held.data());
    const QStringList expected = scene.open(Way::DragOut);
    QCOMPARE(scene.host.openedPaths(), expected);
    drainEvents();
    QVERIFY(!scene.popup && !held);
}

void tst_MisbehavingHost::aDrawingMayBeMadeUnderAnOpenMenu()
{
    OpeningHost scene;
    const QList<FolderPinButton *> pins =
        scene.menu->findChildren<FolderPinButton *>(QStringLiteral("pinButton"));
    const QList<FolderPinButton *> texts =
        scene.menu->findChildren<FolderPinButton *>(QStringLiteral("menuTextButton"));
    QCOMPARE(pins.size(), 4);
    scene.browser.createDocument();
    const QList<FolderPinButton *> hiddenPins = RecentDocumentBrowser::menuPinButtonList;
    QCOMPARE(hiddenPins.size(), 4);

    QTest::mouseClick(pins.at(2), Qt::LeftButton); // of an entry that counts no longer
    QVERIFY(scene.menu->isVisible());
    QCOMPARE(RecentDocumentBrowser::menuPinButtonList, hiddenPins);
    for (const FolderPinButton *pin : hiddenPins)
        QVERIFY(!pin->isChecked());
    QTest::mouseClick(texts.at(2), Qt::LeftButton);
    QCOMPARE(scene.host.openedPaths(), QStringList(scene.browser.path(2)));
}

QTEST_MAIN(tst_MisbehavingHost)
#include "tst_misbehavinghost.moc"

// SPDX-License-Identifier: MIT
#include "state/FolderPinButton.h"
#include "tests/support/ModuleInHost.h"
#include "tests/support/TestCase.h"

#include <QMenu>
#include <QPointer>

namespace {

const QStringList recentPaths = {QStringLiteral("/drawings/c.dwg"), QStringLiteral("/drawings/a.dwg"),
                                 QStringLiteral("/drawings/b.dwg")};

QStringList pathsOf(const QList<FolderPinButton *> &buttons)
{
    QStringList paths;
    for (const FolderPinButton *button : buttons)
        paths.append(button->path());
    return paths;
}

QImage somePicture()
{
    QImage image(2, 2, QImage::Format_RGB32);
    image.fill(Qt::red);
    return image;
}

} // namespace

//! What becomes of the cache and of the hidden menu when the host tells of a drawing.
class tst_DocumentEvents : public TestCase
{
    Q_OBJECT

private slots:
    void aDocumentChangesNothingWhileNoneIsRecent_data();
    void aDocumentChangesNothingWhileNoneIsRecent();
    void aDocumentEmptiesTheCacheAndRebuildsTheEntries();
    void eachDocumentMakesAHiddenMenuOfItsOwn();
    void theOtherEventsChangeNothing();
};

void tst_DocumentEvents::aDocumentChangesNothingWhileNoneIsRecent_data()
{
    QTest::addColumn<bool>("services");
    QTest::addColumn<bool>("list");
    QTest::newRow("the list is empty") << true << true;
    QTest::newRow("there is no list") << true << false;
    QTest::newRow("there are no services") << false << true;
}

void tst_DocumentEvents::aDocumentChangesNothingWhileNoneIsRecent()
{
    QFETCH(bool, services);
    QFETCH(bool, list);
    ModuleInHost inHost;
    inHost.host.setRecent(recentPaths);
    inHost.documentReactor().DocumentCreated(nullptr);
    RecentDocumentBrowser::recentFileImageMap.insert(recentPaths.first(), somePicture());
    const QList<FolderPinButton *> pins = RecentDocumentBrowser::menuPinButtonList;
    const QList<QAction *> entries = RecentDocumentBrowser::recentDocActionList;
    const QMenu *menu = RecentDocumentBrowser::recentDocMenu;
    const int menus = parentlessMenus();

    inHost.host.setRecent({});
    inHost.host.hasServices = services;
    inHost.host.hasRecentFileList = list;
    inHost.documentReactor().DocumentCreated(nullptr);
    QCOMPARE(RecentDocumentBrowser::recentFileImageMap.keys(), recentPaths.mid(0, 1));
    QCOMPARE(RecentDocumentBrowser::menuPinButtonList, pins);
    QCOMPARE(RecentDocumentBrowser::recentDocActionList, entries);
    QCOMPARE(RecentDocumentBrowser::recentDocMenu, menu);
    QCOMPARE(parentlessMenus(), menus);
}

void tst_DocumentEvents::aDocumentEmptiesTheCacheAndRebuildsTheEntries()
{
    ModuleInHost inHost;
    inHost.host.setRecent({QStringLiteral("/drawings/former.dwg")});
    inHost.documentReactor().DocumentCreated(nullptr);
    RecentDocumentBrowser::recentFileImageMap.insert(recentPaths.first(), somePicture());

    inHost.host.setRecent(recentPaths);
    inHost.documentReactor().DocumentCreated(nullptr);
    QVERIFY(RecentDocumentBrowser::recentFileImageMap.isEmpty());
    QCOMPARE(pathsOf(RecentDocumentBrowser::menuPinButtonList), recentPaths);
    QCOMPARE(RecentDocumentBrowser::recentDocActionList.size(), recentPaths.size());
    QVERIFY(!RecentDocumentBrowser::before);
    const QList<QAction *> inMenu = RecentDocumentBrowser::recentDocMenu->actions();
    QCOMPARE(inMenu.mid(1, inMenu.size() - 2), RecentDocumentBrowser::recentDocActionList);
}

void tst_DocumentEvents::eachDocumentMakesAHiddenMenuOfItsOwn()
{
    ModuleInHost inHost;
    inHost.host.setRecent(recentPaths);
    inHost.documentReactor().DocumentCreated(nullptr);
    const QPointer<QMenu> first = RecentDocumentBrowser::recentDocMenu;
    QVERIFY(first);
    inHost.documentReactor().DocumentCreated(nullptr);
    const QPointer<QMenu> second = RecentDocumentBrowser::recentDocMenu;
    QVERIFY(second);
    QVERIFY(second != first);
    drainEvents();
    QVERIFY(first); // what was built from it may still be on the screen
    QVERIFY(!first->parent() && !second->parent());
    QVERIFY(!first->isVisible() && !second->isVisible());
    QCOMPARE(pathsOf(RecentDocumentBrowser::menuPinButtonList), recentPaths);
}

void tst_DocumentEvents::theOtherEventsChangeNothing()
{
    ModuleInHost inHost;
    inHost.host.setRecent(recentPaths);
    inHost.documentReactor().DocumentCreated(nullptr);
    RecentDocumentBrowser::recentFileImageMap.insert(recentPaths.first(), somePicture());
    const QMenu *menu = RecentDocumentBrowser::recentDocMenu;
    inHost.host.calls.clear();

    CFxDocumentManagerReactor &documents = inHost.documentReactor();
    documents.DocumentCreateStarted(nullptr);
    documents.DocumentToBeDestroyed(nullptr);
    documents.DocumentDestroyed(CFxString(recentPaths.first()));
    documents.DocumentActivated(nullptr);
    documents.DocumentBecameCurrent(nullptr);
    documents.DocumentPreOpen(CFxString(recentPaths.first()));
    CFxEditorReactor &editor = inHost.editorReactor();
    editor.appActivated();
    editor.appDeactivated();
    editor.windowStateChanged(nullptr);
    editor.cancelDwgOpen(CFxString(recentPaths.first()));
    editor.commandWillStart(L"_RECENT");
    editor.commandEnded(L"_RECENT", 5100);
    QCOMPARE(inHost.host.calls, QStringList());
    QCOMPARE(RecentDocumentBrowser::recentFileImageMap.size(), 1);
    QCOMPARE(RecentDocumentBrowser::recentDocMenu, menu);
}

QTEST_MAIN(tst_DocumentEvents)
#include "tst_documentevents.moc"

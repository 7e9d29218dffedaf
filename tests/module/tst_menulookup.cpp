// SPDX-License-Identifier: MIT
#include "module/MenuIntegration.h"
#include "tests/support/TestCase.h"
#include "tests/support/fake/FakeMenus.h"

#include <algorithm>
#include <stdexcept>

namespace {

const QString acceleratorIdentifier = "MA_RECENT_DOCUMENT_BROWSER_ACC";

CFxUIMenuItem *inGroups(const QString &id)
{
    return RecentDocumentBrowser::GetMenuItem(id);
}

CFxUIMenuItem *inStartUpMenus(const QString &id)
{
    return GetStartUpMenuItem(id);
}

} // namespace

//! How the module searches the host's menus. At its end it searches too, but removes nothing.
class tst_MenuLookup : public TestCase
{
    Q_OBJECT

private slots:
    void theFirstPrimaryGroupIsTakenInTheHostsOrder()
    {
        FakeMenus inHost;
        FakeGroup &second = inHost.menus.addGroup("SECOND", true);
        QCOMPARE(GetCommandGroup(), &inHost.primary);
        QCOMPARE(inHost.menuCalls(), primaryGroupSearch); // not the groups after it
        inHost.primary.isPrimary = false;
        QCOMPARE(GetCommandGroup(), &second);
    }

    void anExceptionOfTheHostReleasesTheEnumerator()
    {
        FakeMenus inHost;
        for (const char *where : {"primary? MAIN", "next MAIN"}) {
            inHost.menus.onCall = [where](const QString &call) {
                if (call == where)
                    throw std::runtime_error("the host refuses");
            };
            QVERIFY_EXCEPTION_THROWN(GetCommandGroup(), std::runtime_error);
            QCOMPARE(inHost.menus.enumeratorsAlive, 0);
        }
        QVERIFY_EXCEPTION_THROWN(inGroups("ID_MnFile"), std::runtime_error);
        QCOMPARE(inHost.menus.enumeratorsAlive, 0);
    }

    void theFirstMenuOfTheIdentifierIsFound()
    {
        FakeMenus inHost;
        inHost.primary.addMenu("ID_MnFile"); // after the first one of the same group
        inHost.menus.addGroup("LAST", true).addMenu("ID_MnFile");
        QCOMPARE(inGroups("ID_MnFile"), &inHost.file);
        // The host's order of groups decides, not which one is primary.
        inHost.extension.addMenu("ID_MnOther");
        FakeMenuItem &earlier = inHost.extension.addMenu("ID_MnFile");
        QCOMPARE(inGroups("ID_MnFile"), &earlier);
        inHost.startUp.addMenu("ID_MnFile");
        QCOMPARE(inStartUpMenus("ID_MnFile"), &inHost.startUpFile);
    }

    void identifiersAreComparedExactly()
    {
        const QStringList identifiers = {"ID_MNFILE", "ID_MnFil", "ID_MnFile2", " ID_MnFile ", ""};
        for (const QString &identifier : identifiers) {
            FakeMenus inHost;
            inHost.file.identifier = identifier;
            inHost.startUpFile.identifier = identifier;
            QVERIFY2(!inGroups("ID_MnFile") && !inStartUpMenus("ID_MnFile"), qPrintable(identifier));
            QCOMPARE(inGroups(identifier), &inHost.file);
            QCOMPARE(inStartUpMenus(identifier), &inHost.startUpFile);
        }
    }

    void eachSetOfMenusIsSearchedAloneAndAtItsTopLevel()
    {
        FakeMenus inHost;
        FakeMenuItem &ofGroups = inHost.primary.addMenu("ID_MnWindow");
        FakeMenuItem &ofStartUp = inHost.startUp.addMenu("ID_MnWelcome");
        QCOMPARE(inGroups("ID_MnWindow"), &ofGroups);
        QVERIFY(!inGroups("ID_MnWelcome"));
        QCOMPARE(inStartUpMenus("ID_MnWelcome"), &ofStartUp);
        QVERIFY(!inStartUpMenus("ID_MnWindow"));
        QVERIFY(!inGroups("MI_Open") && !inStartUpMenus("MI_Recent"));
    }

    void theEndSearchesForEntryAndAccelerator_data()
    {
        QTest::addColumn<QStringList>("children");
        QTest::addColumn<int>("visited");
        QTest::addColumn<QStringList>("accelerators");
        QTest::addColumn<int>("last"); // that is fetched; -1: none
        const QString other = "MI_New";
        const QString own = acceleratorIdentifier;
        const auto row = [](const char *name, const QStringList &children, int visited,
                            const QStringList &accelerators,
                            int last) { QTest::newRow(name) << children << visited << accelerators << last; };
        row("no children", {}, 0, {own}, -1);
        row("both first", {browserEntry, other, other}, 1, {own, other, other}, 0);
        row("both later", {other, other, browserEntry, other}, 3, {other, own, other}, 1);
        row("in another case", {other, browserEntry.toLower(), other}, 2, {other, own.toLower(), other}, 1);
        row("two of them", {browserEntry, browserEntry}, 1, {own, own, other}, 0);
        row("neither", {other, other, other, other}, 4, {other, own + '2'}, 1);
    }

    void theEndSearchesForEntryAndAccelerator()
    {
        QFETCH(QStringList, children);
        QFETCH(int, visited);
        QFETCH(QStringList, accelerators);
        QFETCH(int, last);
        FakeMenus inHost;
        inHost.file.children.clear();
        for (const QString &child : qAsConst(children))
            inHost.file.add(child);
        for (const QString &accelerator : qAsConst(accelerators))
            inHost.primary.addAccelerator(accelerator, QKeySequence(Qt::Key_F9));
        RecentDocumentBrowser::UnLoadMenu(&inHost.file);
        QCOMPARE(inHost.menuCalls().count("enumerate"), visited); // for the group, with each child
        QCOMPARE(childrenOf(inHost.file), children);
        QList<int> fetched = inHost.primary.acceleratorsFetched;
        std::sort(fetched.begin(), fetched.end());
        QCOMPARE(fetched.isEmpty() ? -1 : fetched.constLast(), last);
        QVERIFY(inHost.startUp.acceleratorsFetched.isEmpty());
        QVERIFY(inHost.extension.acceleratorsFetched.isEmpty());

        inHost.primary.isPrimary = false;
        RecentDocumentBrowser::UnLoadMenu(&inHost.file);
        QCOMPARE(inHost.primary.acceleratorsFetched.size(), fetched.size());
    }

    void withoutAMenuOrServicesTheHostIsNotCalled()
    {
        FakeMenus inHost;
        RecentDocumentBrowser::UnLoadMenu(nullptr);
        inHost.host.hasServices = false;
        RecentDocumentBrowser::UnLoadMenu(&inHost.file);
        QCOMPARE(inHost.host.calls, QStringList());
    }

    void mainFrameDestroyedSearchesTheStartUpMenusFirst()
    {
        FakeMenus inHost;
        inHost.editorReactor().mainFrameCreated(nullptr);
        inHost.host.calls.clear();
        inHost.editorReactor().mainFrameDestroyed(nullptr);
        QString calls = inHost.menuCalls().join(", ");
        calls.replace(primaryGroupSearch.join(", "), "group");
        // In the start-up menus the entry is the third child, in the others the fifth.
        QCOMPARE(calls, "start-up group, group, group, group, "
                        "enumerate, next EXTENSION, next MAIN, next none, enumerator released, "
                        "group, group, group, group, group");
    }

    void menusAndKeysRemainAfterTheMainFrameIsDestroyed()
    {
        FakeMenus inHost;
        inHost.module->initApp();
        inHost.editorReactor().mainFrameCreated(nullptr);
        QCOMPARE(inHost.keys(), QList<int>({0, 0, 0})); // bound on request only
        RecentDocumentBrowser::SetShortCutKey();
        const int objects = inHost.menus.objectsAlive;
        inHost.editorReactor().mainFrameDestroyed(nullptr);
        inHost.end();
        QCOMPARE(inHost.menus.objectsAlive, objects);
        QCOMPARE(inHost.entries(), QList<int>({1, 1}));
        QCOMPARE(inHost.definitions(), QList<int>({1, 1}));
        QCOMPARE(inHost.keys(), QList<int>({1, 0, 0}));
        QCOMPARE(inHost.menuCalls().count("refresh"), 1); // by mainFrameCreated()
    }
};

TEST_CLASS(tst_MenuLookup);
#include "tst_menulookup.moc"

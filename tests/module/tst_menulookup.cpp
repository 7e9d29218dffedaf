// SPDX-License-Identifier: MIT
#include "module/MenuIntegration.h"
#include "tests/support/MenusInHost.h"
#include "tests/support/TestCase.h"

#include <stdexcept>

namespace {

CFxUIMenuItem *inGroups(const char *id)
{
    return RecentDocumentBrowser::GetMenuItem(QString::fromLatin1(id));
}

CFxUIMenuItem *inStartUpMenus(const char *id)
{
    return GetStartUpMenuItem(QString::fromLatin1(id));
}

} // namespace

//! How the module finds its way in the host's menus.
class tst_MenuLookup : public TestCase
{
    Q_OBJECT

private slots:
    void theFirstPrimaryGroupIsTakenInTheHostsOrder();
    void withoutAPrimaryGroupThereIsNone_data();
    void withoutAPrimaryGroupThereIsNone();
    void theWalkEndsOnEveryWay_data();
    void theWalkEndsOnEveryWay();
    void theHostsExceptionsEndTheWalkToo_data();
    void theHostsExceptionsEndTheWalkToo();
    void theFirstMenuOfTheIdentifierIsFound();
    void groupsWithoutMenusArePassedBy();
    void identifiersAreComparedExactly_data();
    void identifiersAreComparedExactly();
    void onlyTopLevelMenusAreFound();
    void eachSetOfMenusIsSearchedAlone();
    void whereTheHostLacksThemNoMenuIsFound_data();
    void whereTheHostLacksThemNoMenuIsFound();
};

void tst_MenuLookup::theFirstPrimaryGroupIsTakenInTheHostsOrder()
{
    MenusInHost inHost;
    FakeGroup &second = inHost.menus.addGroup(QStringLiteral("SECOND"), true);
    QCOMPARE(GetCommandGroup(), &inHost.primary);
    QCOMPARE(inHost.menuCalls(), primaryGroupSearch); // the groups behind it are not asked for
    inHost.primary.isPrimary = false;
    QCOMPARE(GetCommandGroup(), &second);
}

void tst_MenuLookup::withoutAPrimaryGroupThereIsNone_data()
{
    QTest::addColumn<QString>("lack");
    QTest::newRow("no services") << QStringLiteral("services");
    QTest::newRow("no customisation") << QStringLiteral("customisation");
    QTest::newRow("no groups") << QStringLiteral("groups");
    QTest::newRow("none of them primary") << QStringLiteral("primary");
}

void tst_MenuLookup::withoutAPrimaryGroupThereIsNone()
{
    QFETCH(QString, lack);
    MenusInHost inHost;
    inHost.host.hasServices = lack != QLatin1String("services");
    inHost.host.hasCustomization = lack != QLatin1String("customisation");
    if (lack == QLatin1String("groups"))
        inHost.menus.groups.clear();
    else if (lack == QLatin1String("primary"))
        inHost.primary.isPrimary = false;
    QVERIFY(!GetCommandGroup());
}

void tst_MenuLookup::theWalkEndsOnEveryWay_data()
{
    QTest::addColumn<bool>("found");
    QTest::newRow("when there is a primary group") << true;
    QTest::newRow("when there is none") << false;
}

void tst_MenuLookup::theWalkEndsOnEveryWay()
{
    QFETCH(bool, found);
    MenusInHost inHost;
    inHost.primary.isPrimary = found;
    QCOMPARE(GetCommandGroup() != nullptr, found);
    QCOMPARE(inHost.menus.enumeratorsMade, 1);
    QCOMPARE(inHost.menus.enumeratorsAlive, 0);
    QVERIFY(inGroups("ID_MnFile"));
    QVERIFY(!inGroups("ID_MnNone"));
    QCOMPARE(inHost.menus.enumeratorsMade, 3);
    QCOMPARE(inHost.menus.enumeratorsAlive, 0);
}

void tst_MenuLookup::theHostsExceptionsEndTheWalkToo_data()
{
    QTest::addColumn<QString>("where");
    QTest::addColumn<bool>("byPrimary");
    QTest::newRow("asked whether a group is primary") << QStringLiteral("primary? MAIN") << true;
    QTest::newRow("asked for the next group, when it seeks the primary one")
        << QStringLiteral("next MAIN") << true;
    QTest::newRow("asked for the next group, when it seeks a menu") << QStringLiteral("next MAIN") << false;
}

void tst_MenuLookup::theHostsExceptionsEndTheWalkToo()
{
    QFETCH(QString, where);
    QFETCH(bool, byPrimary);
    MenusInHost inHost;
    inHost.menus.onCall = [where](const QString &call) {
        if (call == where)
            throw std::runtime_error("the host refuses");
    };
    if (byPrimary)
        QVERIFY_EXCEPTION_THROWN(GetCommandGroup(), std::runtime_error);
    else
        QVERIFY_EXCEPTION_THROWN(inGroups("ID_MnFile"), std::runtime_error);
    QCOMPARE(inHost.menus.enumeratorsMade, 1);
    QCOMPARE(inHost.menus.enumeratorsAlive, 0);
}

void tst_MenuLookup::theFirstMenuOfTheIdentifierIsFound()
{
    MenusInHost inHost;
    inHost.primary.addMenu(QStringLiteral("ID_MnFile")); // behind the one in its own group
    inHost.menus.addGroup(QStringLiteral("LAST"), true).addMenu(QStringLiteral("ID_MnFile"));
    QCOMPARE(inGroups("ID_MnFile"), &inHost.file);
    // The host's order of groups counts, and not which is primary.
    inHost.extension.addMenu(QStringLiteral("ID_MnOther"));
    FakeMenuItem &earlier = inHost.extension.addMenu(QStringLiteral("ID_MnFile"));
    QCOMPARE(inGroups("ID_MnFile"), &earlier);

    inHost.startUp.addMenu(QStringLiteral("ID_MnFile"));
    QCOMPARE(inStartUpMenus("ID_MnFile"), &inHost.startUpFile);
}

void tst_MenuLookup::groupsWithoutMenusArePassedBy()
{
    MenusInHost inHost;
    QCOMPARE(inHost.extension.GetMenuCount(), 0);
    QCOMPARE(inGroups("ID_MnFile"), &inHost.file);
    inHost.startUp.menus.clear();
    QVERIFY(!inStartUpMenus("ID_MnFile"));
    inHost.primary.menus.clear();
    QVERIFY(!inGroups("ID_MnFile"));
}

void tst_MenuLookup::identifiersAreComparedExactly_data()
{
    QTest::addColumn<QString>("identifier");
    QTest::newRow("other case") << QStringLiteral("ID_MNFILE");
    QTest::newRow("only its beginning") << QStringLiteral("ID_MnFil");
    QTest::newRow("more than it") << QStringLiteral("ID_MnFile2");
    QTest::newRow("blanks around it") << QStringLiteral(" ID_MnFile ");
    QTest::newRow("the empty identifier") << QString();
}

void tst_MenuLookup::identifiersAreComparedExactly()
{
    QFETCH(QString, identifier);
    MenusInHost inHost;
    inHost.file.identifier = identifier;
    inHost.startUpFile.identifier = identifier;
    QVERIFY(!inGroups("ID_MnFile"));
    QVERIFY(!inStartUpMenus("ID_MnFile"));
    QCOMPARE(inGroups(qPrintable(identifier)), &inHost.file);
    QCOMPARE(inStartUpMenus(qPrintable(identifier)), &inHost.startUpFile);
}

void tst_MenuLookup::onlyTopLevelMenusAreFound()
{
    MenusInHost inHost;
    inHost.file.add(QStringLiteral("ID_MnInside"));
    inHost.startUpFile.add(QStringLiteral("ID_MnInside"));
    QVERIFY(!inGroups("ID_MnInside"));
    QVERIFY(!inStartUpMenus("ID_MnInside"));
}

void tst_MenuLookup::eachSetOfMenusIsSearchedAlone()
{
    MenusInHost inHost;
    FakeMenuItem &ofGroups = inHost.primary.addMenu(QStringLiteral("ID_MnWindow"));
    FakeMenuItem &ofStartUp = inHost.startUp.addMenu(QStringLiteral("ID_MnWelcome"));
    QCOMPARE(inGroups("ID_MnWindow"), &ofGroups);
    QVERIFY(!inGroups("ID_MnWelcome"));
    QCOMPARE(inStartUpMenus("ID_MnWelcome"), &ofStartUp);
    QVERIFY(!inStartUpMenus("ID_MnWindow"));
}

void tst_MenuLookup::whereTheHostLacksThemNoMenuIsFound_data()
{
    QTest::addColumn<bool>("services");
    QTest::addColumn<bool>("customization");
    QTest::addColumn<bool>("anyGroup");
    QTest::newRow("no services") << false << true << true;
    QTest::newRow("no customisation") << true << false << true;
    QTest::newRow("no group at all") << true << true << false;
}

void tst_MenuLookup::whereTheHostLacksThemNoMenuIsFound()
{
    QFETCH(bool, services);
    QFETCH(bool, customization);
    QFETCH(bool, anyGroup);
    MenusInHost inHost;
    inHost.host.hasServices = services;
    inHost.host.hasCustomization = customization;
    if (!anyGroup) {
        inHost.menus.groups.clear();
        inHost.menus.startUp.reset();
    }
    QVERIFY(!inGroups("ID_MnFile"));
    QVERIFY(!inStartUpMenus("ID_MnFile"));
}

QTEST_MAIN(tst_MenuLookup)
#include "tst_menulookup.moc"

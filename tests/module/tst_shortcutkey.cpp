// SPDX-License-Identifier: MIT
#include "tests/support/MarkingTranslator.h"
#include "tests/support/MenusInHost.h"
#include "tests/support/TestCase.h"

//! F4, which a host may have the module bind.
class tst_ShortCutKey : public TestCase
{
    Q_OBJECT

private slots:
    void theKeyIsBoundToTheDefinition();
    void theLabelIsTranslated();
    void theModuleDoesNotBindItByItself();
    void withoutADefinitionNothingIsBound_data();
    void withoutADefinitionNothingIsBound();
    void aTakenKeyStaysWithItsOwner_data();
    void aTakenKeyStaysWithItsOwner();
    void otherGroupsKeysDoNotCount();
    void twiceIsOnce();
    void whatTheHostCannotMakeIsLeftOut();
};

void tst_ShortCutKey::theKeyIsBoundToTheDefinition()
{
    MenusInHost inHost;
    FakeCommand &definition = inHost.primary.addCommand(browserDefinition);
    inHost.primary.addAccelerator(QStringLiteral("ACC_New"), QKeySequence(QStringLiteral("Ctrl+N")));
    inHost.startUp.addCommand(browserDefinition);
    RecentDocumentBrowser::SetShortCutKey();
    QCOMPARE(inHost.menuCalls(),
             primaryGroupSearch + QStringList({
                                      "find ID_RECENT_FILES in MAIN",
                                      "make accelerator \"\" for ID_RECENT_FILES",
                                      "append accelerator \"\" \"Preview Recent Documents...\" F4 for "
                                      "ID_RECENT_FILES to MAIN",
                                  }));
    QCOMPARE(inHost.primary.GetAcceleratorCount(), 2);
    const FakeAccelerator &made = *inHost.primary.accelerators.back();
    QCOMPARE(made.command, &definition);
    QCOMPARE(made.key, QKeySequence(Qt::Key_F4));
    QCOMPARE(made.identifier, QString());
    QCOMPARE(inHost.startUp.GetAcceleratorCount(), 0);
    QCOMPARE(inHost.menus.enumeratorsAlive, 0);
}

void tst_ShortCutKey::theLabelIsTranslated()
{
    MarkingTranslator translator;
    QCoreApplication::installTranslator(&translator);
    MenusInHost inHost;
    inHost.primary.addCommand(browserDefinition);
    RecentDocumentBrowser::SetShortCutKey();
    QCoreApplication::removeTranslator(&translator);
    QCOMPARE(inHost.primary.GetAcceleratorCount(), 1);
    const FakeAccelerator &made = *inHost.primary.accelerators.front();
    QCOMPARE(made.label, QStringLiteral("QObject/Preview Recent Documents..."));
    QCOMPARE(made.key, QKeySequence(Qt::Key_F4));
    QCOMPARE(made.identifier, QString());
}

void tst_ShortCutKey::theModuleDoesNotBindItByItself()
{
    MenusInHost inHost;
    inHost.module->initApp();
    inHost.editorReactor().mainFrameCreated(nullptr);
    inHost.documentReactor().DocumentCreated(nullptr);
    inHost.editorReactor().mainFrameDestroyed(nullptr);
    QCOMPARE(inHost.primary.GetAcceleratorCount(), 0);
    QCOMPARE(inHost.startUp.GetAcceleratorCount(), 0);
}

void tst_ShortCutKey::withoutADefinitionNothingIsBound_data()
{
    QTest::addColumn<QString>("lack");
    QTest::newRow("no services") << QStringLiteral("services");
    QTest::newRow("no customisation") << QStringLiteral("customisation");
    QTest::newRow("no primary group") << QStringLiteral("primary");
    QTest::newRow("no definition in it") << QStringLiteral("definition");
    QTest::newRow("one in other letters") << QStringLiteral("letters");
}

void tst_ShortCutKey::withoutADefinitionNothingIsBound()
{
    QFETCH(QString, lack);
    MenusInHost inHost;
    inHost.extension.addCommand(browserDefinition);
    inHost.startUp.addCommand(browserDefinition);
    if (lack == QLatin1String("letters"))
        inHost.primary.addCommand(browserDefinition.toLower());
    else if (lack != QLatin1String("definition"))
        inHost.primary.addCommand(browserDefinition);
    inHost.host.hasServices = lack != QLatin1String("services");
    inHost.host.hasCustomization = lack != QLatin1String("customisation");
    inHost.primary.isPrimary = lack != QLatin1String("primary");
    RecentDocumentBrowser::SetShortCutKey();
    QCOMPARE(inHost.primary.GetAcceleratorCount(), 0);
    QCOMPARE(inHost.extension.GetAcceleratorCount(), 0);
    QCOMPARE(inHost.startUp.GetAcceleratorCount(), 0);
    QCOMPARE(inHost.menuCalls().filter(QStringLiteral("make")), QStringList());
    QCOMPARE(inHost.menus.enumeratorsAlive, 0);
}

void tst_ShortCutKey::aTakenKeyStaysWithItsOwner_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<bool>("isTaken");
    QTest::newRow("F4") << QStringLiteral("F4") << true;
    QTest::newRow("no key") << QString() << false;
    QTest::newRow("F4 with a modifier") << QStringLiteral("Ctrl+F4") << false;
    QTest::newRow("F4 as the first of two strokes") << QStringLiteral("F4, A") << false;
    QTest::newRow("another key") << QStringLiteral("F5") << false;
    QTest::newRow("a key whose name begins so") << QStringLiteral("F") << false;
}

void tst_ShortCutKey::aTakenKeyStaysWithItsOwner()
{
    QFETCH(QString, key);
    QFETCH(bool, isTaken);
    MenusInHost inHost;
    inHost.primary.addCommand(browserDefinition);
    FakeCommand &other = inHost.primary.addCommand(QStringLiteral("ID_Other"));
    inHost.primary.addAccelerator(QStringLiteral("ACC_New"), QKeySequence(QStringLiteral("Ctrl+N")));
    FakeAccelerator &owner = inHost.primary.addAccelerator(
        QStringLiteral("ACC_Other"), QKeySequence::fromString(key, QKeySequence::PortableText));
    owner.command = &other;
    owner.label = QStringLiteral("Other");
    RecentDocumentBrowser::SetShortCutKey();
    QCOMPARE(inHost.primary.GetAcceleratorCount(), isTaken ? 2 : 3);
    QCOMPARE(inHost.menuCalls().filter(QStringLiteral("make")).size(), isTaken ? 0 : 1);
    QCOMPARE(owner.key.toString(QKeySequence::PortableText), key);
    QCOMPARE(owner.command, &other);
    QCOMPARE(owner.label, QStringLiteral("Other"));
}

void tst_ShortCutKey::otherGroupsKeysDoNotCount()
{
    MenusInHost inHost;
    inHost.primary.addCommand(browserDefinition);
    inHost.extension.addAccelerator(QStringLiteral("ACC_Other"), QKeySequence(Qt::Key_F4));
    inHost.startUp.addAccelerator(QStringLiteral("ACC_Other"), QKeySequence(Qt::Key_F4));
    RecentDocumentBrowser::SetShortCutKey();
    QCOMPARE(inHost.primary.GetAcceleratorCount(), 1);
    QCOMPARE(inHost.extension.GetAcceleratorCount(), 1);
    QCOMPARE(inHost.startUp.GetAcceleratorCount(), 1);
}

void tst_ShortCutKey::twiceIsOnce()
{
    MenusInHost inHost;
    inHost.primary.addCommand(browserDefinition);
    RecentDocumentBrowser::SetShortCutKey();
    const int objects = inHost.menus.objectsAlive;
    RecentDocumentBrowser::SetShortCutKey();
    QCOMPARE(inHost.primary.GetAcceleratorCount(), 1);
    QCOMPARE(inHost.menus.objectsAlive, objects);
}

void tst_ShortCutKey::whatTheHostCannotMakeIsLeftOut()
{
    MenusInHost inHost;
    inHost.primary.addCommand(browserDefinition);
    inHost.menus.makesAccelerators = false;
    RecentDocumentBrowser::SetShortCutKey();
    QCOMPARE(inHost.menuCalls().filter(QStringLiteral("make accelerator")).size(), 1);
    QCOMPARE(inHost.primary.GetAcceleratorCount(), 0);
}

QTEST_MAIN(tst_ShortCutKey)
#include "tst_shortcutkey.moc"

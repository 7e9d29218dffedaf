// SPDX-License-Identifier: MIT
#include "host/runtime/customization/Customization.h"
#include "host/runtime/customization/UIMenuItem.h"
#include "tests/support/MenuChildren.h"
#include "tests/support/TestCase.h"

#include <QSignalSpy>

#include <memory>

using fxhost::Customization;
using fxhost::UIMenuItem;

namespace {

const char data[] = R"({
  "groups": [
    { "name": "EXTRA" },
    { "name": "MAIN", "primary": true,
      "commands": [ { "identifier": "ID_Open", "name": "Open", "macro": "^C^C_OPEN", "help": "Opens." } ],
      "menus": [ { "identifier": "ID_MnFile", "label": "&File", "items": [
        { "identifier": "MI_Open", "label": "&Open", "command": "ID_Open" },
        { "separator": true },
        { "identifier": "MI_Again", "label": "Open &Again", "command": "ID_Open" } ] } ],
      "accelerators": [
        { "identifier": "ACC_Open", "label": "Open", "key": "Ctrl+O", "command": "ID_Open" },
        { "identifier": "ACC_Recent", "key": "F4", "command": "ID_RECENT_FILES" } ] }
  ],
  "startUp": { "name": "START", "commands": [
    { "identifier": "ID_StartOpen", "name": "Open", "macro": "_OPEN" } ] }
})";

} // namespace

class TestCustomization : public TestCase
{
    Q_OBJECT

private slots:
    void groupsAreWalkedInTheDatasOrderWithoutTheStartUpGroup()
    {
        Customization customization;
        QCOMPARE(customization.load(data), QString());
        CFxUIGroupEnumerator *const groups = customization.EnumerateGroups();
        CFxUIGroup *const extra = groups->Next();
        CFxUIGroup *const main = groups->Next();
        QCOMPARE(groups->Next(), nullptr);
        QCOMPARE(groups->Next(), nullptr);
        groups->Release();
        QCOMPARE(QString(extra->GetName()), QString("EXTRA"));
        QCOMPARE(QString(main->GetName()), QString("MAIN"));
        QVERIFY(!customization.IsPrimary(extra));
        QVERIFY(customization.IsPrimary(main));
        QVERIFY(!customization.IsPrimary(customization.GetStartUpGroup()));
        QVERIFY(!customization.IsPrimary(nullptr));
    }

    void withoutDataThereIsNothing()
    {
        Customization customization;
        CFxUIGroupEnumerator *const groups = customization.EnumerateGroups();
        QCOMPARE(groups->Next(), nullptr);
        groups->Release();
        QCOMPARE(customization.GetStartUpGroup(), nullptr);
        QCOMPARE(customization.primaryGroup(), nullptr);
    }

    void damagedDataChangeNothing()
    {
        Customization customization;
        customization.load(data);
        CFxUIGroup *const main = customization.primaryGroup();
        QVERIFY(!customization.load("{}").isEmpty());
        QCOMPARE(customization.primaryGroup(), main);
    }

    void definitionsAreFoundInTheNamedGroupAlone()
    {
        Customization customization;
        customization.load(data);
        const QString open = "ID_Open";
        QCOMPARE(QString(customization.FindCommand("MAIN", open)->GetMacro()), QString("^C^C_OPEN"));
        QVERIFY(customization.FindCommand("START", "ID_StartOpen"));
        QCOMPARE(customization.FindCommand("EXTRA", open), nullptr);
        QCOMPARE(customization.FindCommand("NONE", open), nullptr);
        QCOMPARE(customization.FindCommand("MAIN", "id_open"), nullptr);
    }

    void whatIsOutOfRangeIsNull()
    {
        Customization customization;
        customization.load(data);
        const CFxUIGroup *const main = customization.primaryGroup();
        for (const int index : {-1, 3, 1000}) {
            QCOMPARE(main->GetCommand(index), nullptr);
            QCOMPARE(main->GetMenu(index), nullptr);
            QCOMPARE(main->GetAccelerator(index), nullptr);
            QCOMPARE(main->GetMenu(0)->GetChild(index), nullptr);
        }
    }

    void appendedDefinitionsBelongToTheGroup()
    {
        Customization customization;
        customization.load(data);
        CFxUIGroup *const main = customization.primaryGroup();
        CFxUICommand *const command = customization.CreateCommand("ID_New");
        command->SetName("New");
        command->SetMacro("_NEW");
        command->SetHelpString("Starts a drawing.");
        main->AppendCommand(command);
        main->AppendCommand(command); // a second time would delete it twice
        main->AppendCommand(nullptr);
        QCOMPARE(main->GetCommandCount(), 2);
        QCOMPARE(customization.FindCommand("MAIN", "ID_New"), command);
        QCOMPARE(QString(command->GetName()), QString("New"));
        QCOMPARE(QString(command->GetMacro()), QString("_NEW"));
        QCOMPARE(QString(command->GetHelpString()), QString("Starts a drawing."));
    }

    void aMadeEntryIsWhatItWasMadeOf()
    {
        Customization customization;
        customization.load(data);
        CFxUICommand *const open = customization.primaryGroup()->GetCommand(0);
        const std::unique_ptr<CFxUIMenuItem> item(
            customization.CreateMenuItem(open, "label", "help", "PMI_ITEM"));
        QCOMPARE(item->GetCommand(), open);
        QCOMPARE(QString(item->GetLabel()), QString("label"));
        QCOMPARE(QString(item->GetIdentifier()), QString("PMI_ITEM"));
        item->SetCommand(nullptr);
        item->SetLabel("other");
        QCOMPARE(item->GetCommand(), nullptr);
        QCOMPARE(QString(item->GetLabel()), QString("other"));
        QCOMPARE(item->GetChildCount(), 0);
    }

    void anEntryGoesBeforeTheReference_data()
    {
        QTest::addColumn<int>("reference");
        QTest::addColumn<QStringList>("children");
        const QStringList before = {"MI_Open", QString(), "MI_Again"};
        const auto with = [&before](int position) {
            QStringList children = before;
            children.insert(position, "NEW");
            return children;
        };
        QTest::newRow("the first") << 0 << with(0);
        QTest::newRow("the second from the end") << 1 << with(1);
        QTest::newRow("the last") << 2 << with(2);
        QTest::newRow("one too far") << 3 << before;
        QTest::newRow("negative") << -1 << before;
    }

    void anEntryGoesBeforeTheReference()
    {
        QFETCH(int, reference);
        QFETCH(QStringList, children);
        Customization customization;
        customization.load(data);
        CFxUIMenuItem *const file = customization.primaryGroup()->GetMenu(0);
        std::unique_ptr<CFxUIMenuItem> item(
            customization.CreateMenuItem(nullptr, QString(), QString(), "NEW"));
        const bool isInserted = file->InsertChild(reference, item.get());
        if (isInserted)
            static_cast<void>(item.release()); // it is the menu's now
        QCOMPARE(isInserted, children.size() == 4);
        QCOMPARE(childrenOf(*file), children);
    }

    void anEmptyMenuTakesNoReference()
    {
        UIMenuItem menu(UIMenuItem::Kind::Menu, "ID_MnEmpty", "Empty");
        UIMenuItem item(UIMenuItem::Kind::Entry, "NEW", QString());
        for (const int reference : {-2, -1, 0})
            QVERIFY(!menu.InsertChild(reference, &item));
        QCOMPARE(menu.GetChildCount(), 0);
    }

    void whatIsNoNewEntryIsNotInserted()
    {
        Customization customization;
        customization.load(data);
        CFxUIMenuItem *const file = customization.primaryGroup()->GetMenu(0);
        QVERIFY(!file->InsertChild(0, nullptr));
        QVERIFY(!file->InsertChild(0, file));
        QVERIFY(!file->InsertChild(0, file->GetChild(1)));
        QCOMPARE(file->GetChildCount(), 3);
    }

    void anAcceleratorFindsItsDefinitionOnceThereIsOne()
    {
        Customization customization;
        customization.load(data);
        CFxUIGroup *const main = customization.primaryGroup();
        const CFxUIAccelerator *const recent = main->GetAccelerator(1);
        QCOMPARE(recent->GetKey(), QKeySequence(Qt::Key_F4));
        QCOMPARE(recent->GetCommand(), nullptr);
        CFxUICommand *const command = customization.CreateCommand("ID_RECENT_FILES");
        main->AppendCommand(command);
        QCOMPARE(recent->GetCommand(), command);
    }

    void anAppendedAcceleratorBelongsToTheGroup()
    {
        Customization customization;
        customization.load(data);
        CFxUIGroup *const main = customization.primaryGroup();
        CFxUIAccelerator *const accelerator = customization.CreateAccelerator(main->GetCommand(0), QString());
        QVERIFY(accelerator->GetKey().isEmpty());
        accelerator->SetKey(QKeySequence(Qt::Key_F5));
        accelerator->SetLabel("Again");
        main->AppendAccelerator(accelerator);
        main->AppendAccelerator(accelerator);
        main->AppendAccelerator(nullptr);
        QCOMPARE(main->GetAcceleratorCount(), 3);
        QCOMPARE(main->GetAccelerator(2)->GetCommand(), main->GetCommand(0));
        QCOMPARE(QString(main->GetAccelerator(2)->GetLabel()), QString("Again"));
    }

    void refreshIsPassedOn()
    {
        Customization customization;
        QSignalSpy refreshed(&customization, &Customization::refreshed);
        customization.Refresh();
        QCOMPARE(refreshed.size(), 1);
    }
};

QTEST_GUILESS_MAIN(TestCustomization)
#include "tst_customization.moc"

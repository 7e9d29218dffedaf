// SPDX-License-Identifier: MIT
#include "tests/support/MenuChildren.h"
#include "tests/support/TestCase.h"

#include <sdkhost/Customization.h>
#include <sdkhost/UIMenuItem.h>

#include <QSignalSpy>

#include <memory>

using sdkhost::Customization;
using sdkhost::UIGroup;
using sdkhost::UIMenuItem;

namespace {

//! A service with three groups.
struct FilledCustomization : Customization
{
    FilledCustomization()
    {
        addGroup(L"EXTRA", false);
        UIGroup &group = addGroup(L"MAIN", true);
        CFxUICommand &open = group.addCommand(L"ID_Open", L"Open", L"^C^C_OPEN", L"Opens.");
        UIMenuItem &menu = group.addMenu(L"ID_MnFile", L"&File");
        menu.add(UIMenuItem::Kind::Entry, L"MI_Open", L"&Open", &open);
        menu.addSeparator();
        menu.add(UIMenuItem::Kind::Entry, L"MI_Again", L"Open &Again", &open);
        group.addKey(L"ACC_Open", L"Open", QKeySequence("Ctrl+O"), L"ID_Open");
        group.addKey(L"ACC_Recent", {}, Qt::Key_F4, L"ID_RECENT_FILES");
        addStartUpGroup(L"START").addCommand(L"ID_StartOpen", L"Open", L"_OPEN");
    }

    CFxUIGroup *main() const { return primaryGroup(); }
    CFxUIMenuItem *file() const { return main()->GetMenu(0); }
};

//! kind|identifier|label|command|help
QString described(const CFxUIMenuItem *item)
{
    static constexpr const char *kinds[] = {"entry", "menu", "separator", "recent files", "windows"};
    const auto &read = dynamic_cast<const UIMenuItem &>(*item);
    const CFxUICommand *const command = item->GetCommand();
    return QString("%1|%2|%3|%4|%5")
        .arg(kinds[static_cast<int>(read.kind())], QString(item->GetIdentifier()), QString(item->GetLabel()),
             command ? QString(command->GetIdentifier()) : QString(), read.helpString());
}

} // namespace

class tst_Customization : public TestCase
{
    Q_OBJECT

private slots:
    void groupsAreEnumeratedInOrderWithoutTheStartUpGroup()
    {
        FilledCustomization customization;
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

    void definitionsAreFoundInTheNamedGroupOnly()
    {
        const FilledCustomization customization;
        QCOMPARE(QString(customization.FindCommand(L"MAIN", L"ID_Open")->GetMacro()), QString("^C^C_OPEN"));
        QVERIFY(customization.FindCommand(L"START", L"ID_StartOpen"));
        QCOMPARE(customization.FindCommand(L"EXTRA", L"ID_Open"), nullptr);
        QCOMPARE(customization.FindCommand(L"NONE", L"ID_Open"), nullptr);
        QCOMPARE(customization.FindCommand(L"MAIN", L"id_open"), nullptr);
    }

    void indexOutOfRangeGivesNull()
    {
        const FilledCustomization customization;
        for (const int index : {-1, 3, 1000}) {
            QCOMPARE(customization.main()->GetCommand(index), nullptr);
            QCOMPARE(customization.main()->GetMenu(index), nullptr);
            QCOMPARE(customization.main()->GetAccelerator(index), nullptr);
            QCOMPARE(customization.file()->GetChild(index), nullptr);
        }
    }

    void appendedDefinitionsBelongToTheGroup()
    {
        FilledCustomization customization;
        CFxUIGroup *const main = customization.main();
        const CFxUIAccelerator *const recent = main->GetAccelerator(1);
        QCOMPARE(recent->GetKey(), QKeySequence(Qt::Key_F4));
        QCOMPARE(recent->GetCommand(), nullptr);

        CFxUICommand *const command = customization.CreateCommand(L"ID_RECENT_FILES");
        command->SetName(L"Recent");
        command->SetMacro(L"_RECENT");
        command->SetHelpString(L"Shows the recent drawings.");
        main->AppendCommand(command);
        main->AppendCommand(command); // a second time would delete it twice
        main->AppendCommand(nullptr);
        QCOMPARE(main->GetCommandCount(), 2);
        QCOMPARE(customization.FindCommand(L"MAIN", L"ID_RECENT_FILES"), command);
        QCOMPARE(QString(command->GetName()), QString("Recent"));
        QCOMPARE(QString(command->GetMacro()), QString("_RECENT"));
        QCOMPARE(QString(command->GetHelpString()), QString("Shows the recent drawings."));
        QCOMPARE(recent->GetCommand(), command); // found as soon as it exists

        CFxUIAccelerator *const accelerator = customization.CreateAccelerator(command, CFxString());
        QVERIFY(accelerator->GetKey().isEmpty());
        accelerator->SetKey(QKeySequence(Qt::Key_F5));
        accelerator->SetLabel(L"Again");
        main->AppendAccelerator(accelerator);
        main->AppendAccelerator(accelerator);
        main->AppendAccelerator(nullptr);
        QCOMPARE(main->GetAcceleratorCount(), 3);
        QCOMPARE(main->GetAccelerator(2), accelerator);
        QCOMPARE(accelerator->GetCommand(), command);
        QCOMPARE(QString(accelerator->GetLabel()), QString("Again"));
    }

    void createdEntryHasTheGivenValues()
    {
        FilledCustomization customization;
        CFxUICommand *const open = customization.main()->GetCommand(0);
        const std::unique_ptr<CFxUIMenuItem> item(
            customization.CreateMenuItem(open, L"label", L"help", L"PMI_ITEM"));
        QCOMPARE(described(item.get()), QString("entry|PMI_ITEM|label|ID_Open|help"));
        item->SetCommand(nullptr);
        item->SetLabel(L"other");
        QCOMPARE(described(item.get()), QString("entry|PMI_ITEM|other||help"));
        QCOMPARE(item->GetChildCount(), 0);
    }

    void entryIsInsertedBeforeTheReference()
    {
        const QStringList before = {"MI_Open", "", "MI_Again"};
        for (int reference = -1; reference <= before.size(); ++reference) {
            const bool isPlace = reference >= 0 && reference < before.size();
            FilledCustomization customization;
            std::unique_ptr<CFxUIMenuItem> item(
                customization.CreateMenuItem(nullptr, CFxString(), CFxString(), L"NEW"));
            QCOMPARE(customization.file()->InsertChild(reference, item.get()), isPlace);
            QStringList after = before;
            if (isPlace) {
                static_cast<void>(item.release()); // owned by the menu
                after.insert(reference, "NEW");
            }
            QCOMPARE(childrenOf(*customization.file()), after);
        }
    }

    void invalidEntriesAndReferencesAreRefused()
    {
        const FilledCustomization customization;
        CFxUIMenuItem *const file = customization.file();
        QVERIFY(!file->InsertChild(0, nullptr));
        QVERIFY(!file->InsertChild(0, file));
        QVERIFY(!file->InsertChild(0, file->GetChild(1)));
        QCOMPARE(file->GetChildCount(), 3);

        UIMenuItem empty(UIMenuItem::Kind::Menu, L"ID_MnEmpty", L"Empty");
        UIMenuItem item(UIMenuItem::Kind::Entry, L"NEW", CFxString());
        for (const int reference : {-2, -1, 0})
            QVERIFY(!empty.InsertChild(reference, &item));
        QCOMPARE(empty.GetChildCount(), 0);
    }

    void refreshEmitsASignal()
    {
        Customization customization;
        QSignalSpy refreshed(&customization, &Customization::refreshed);
        customization.Refresh();
        QCOMPARE(refreshed.size(), 1);
    }
};

CORE_TEST_CLASS(tst_Customization);
#include "tst_customization.moc"

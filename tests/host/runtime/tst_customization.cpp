// SPDX-License-Identifier: MIT
#include "host/runtime/customization/CustomizationReader.h"
#include "tests/support/MenuChildren.h"
#include "tests/support/TestCase.h"

#include <sdkhost/Customization.h>
#include <sdkhost/UIMenuItem.h>

#include <QSignalSpy>

#include <memory>

using fxhost::Customization;
using fxhost::CustomizationData;
using fxhost::readCustomization;
using fxhost::UIMenuItem;

namespace {

const char twoGroups[] = R"({
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

//! A service with these data.
struct LoadedCustomization : Customization
{
    LoadedCustomization()
    {
        const fxhost::Outcome loaded = fxhost::loadCustomization(*this, twoGroups);
        if (!loaded)
            qFatal("the test's data are damaged: %s", qPrintable(loaded.reason()));
    }

    CFxUIGroup *main() const { return primaryGroup(); }
    CFxUIMenuItem *file() const { return main()->GetMenu(0); }
};

//! Complete data with these members in the only group.
QByteArray withGroupMembers(const QByteArray &members)
{
    return R"({ "groups": [ { "name": "MAIN", "primary": true)" + (members.isEmpty() ? "" : ", " + members) +
           " } ] }";
}

QByteArray withItem(const QByteArray &item)
{
    return withGroupMembers(R"("commands": [ { "identifier": "ID_Open", "name": "Open", "macro": "_OPEN" } ],
        "menus": [ { "identifier": "M", "label": "M", "items": [ )" +
                            item + " ] } ]");
}

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
        LoadedCustomization customization;
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
        LoadedCustomization customization;
        CFxUIGroup *const main = customization.main();
        QVERIFY(!fxhost::loadCustomization(customization, "{}"));
        QCOMPARE(customization.main(), main);
    }

    void definitionsAreFoundInTheNamedGroupOnly()
    {
        const LoadedCustomization customization;
        QCOMPARE(QString(customization.FindCommand(L"MAIN", L"ID_Open")->GetMacro()), QString("^C^C_OPEN"));
        QVERIFY(customization.FindCommand(L"START", L"ID_StartOpen"));
        QCOMPARE(customization.FindCommand(L"EXTRA", L"ID_Open"), nullptr);
        QCOMPARE(customization.FindCommand(L"NONE", L"ID_Open"), nullptr);
        QCOMPARE(customization.FindCommand(L"MAIN", L"id_open"), nullptr);
    }

    void indexOutOfRangeGivesNull()
    {
        const LoadedCustomization customization;
        for (const int index : {-1, 3, 1000}) {
            QCOMPARE(customization.main()->GetCommand(index), nullptr);
            QCOMPARE(customization.main()->GetMenu(index), nullptr);
            QCOMPARE(customization.main()->GetAccelerator(index), nullptr);
            QCOMPARE(customization.file()->GetChild(index), nullptr);
        }
    }

    void appendedDefinitionsBelongToTheGroup()
    {
        LoadedCustomization customization;
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
        LoadedCustomization customization;
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
            LoadedCustomization customization;
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
        const LoadedCustomization customization;
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

    // Data as they are read.

    void everyKindOfItemIsRead()
    {
        const CustomizationData data = readCustomization(withItem(R"(
            { "identifier": "I1", "label": "&Open\u2026", "command": "ID_Open", "help": "Opens." },
            { "separator": true },
            { "identifier": "I2", "label": "Recent", "kind": "recentFiles" },
            { "identifier": "I3", "label": "Windows", "kind": "windows" },
            { "identifier": "I4", "label": "Zoom", "items": [
                { "identifier": "I5", "label": "Fit", "command": "ID_Open" } ] })"));
        QCOMPARE(data.outcome.reason(), QString());
        QCOMPARE(data.startUp, nullptr);
        QCOMPARE(data.groups.size(), std::size_t(1));
        const CFxUIMenuItem *const menu = data.groups.front()->GetMenu(0);
        QStringList items;
        for (int i = 0; i < menu->GetChildCount(); ++i)
            items.append(described(menu->GetChild(i)));
        QCOMPARE(items, QStringList({"entry|I1|&Open\u2026|ID_Open|Opens.", "separator||||",
                                     "recent files|I2|Recent||", "windows|I3|Windows||", "menu|I4|Zoom||"}));
        QCOMPARE(childrenOf(*menu->GetChild(4)), QStringList("I5"));
    }

    void damagedDataAreReportedWithThePlace_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<QString>("place");
        const auto row = [](const char *name, const QByteArray &json, const char *place) {
            QTest::newRow(name) << json << QString(place);
        };
        row("empty", "", "Line 1: ");
        row("cut off", withGroupMembers("").chopped(2), "Line 1: ");
        row("binary rubbish", QByteArray("\x00\xff\x1b", 3), "Line 1: ");
        row("a word in a list", "{\n  \"groups\": [\n    { oops }\n  ]\n}\n", "Line 3: ");
        row("a list", "[]", "The data ");
        row("an empty object", "{}", "The data ");
        row("groups that are not a list", R"({"groups": {}})", "The data ");
        row("an unknown member", R"({"groups": [], "start": {}})", "The data ");
        row("a group that is a number", R"({"groups": [ 7 ]})", "groups[0] ");

        const auto groups = [&row](const char *name, const QByteArray &members, const char *place) {
            row(name, R"({"groups": [ )" + members + "}", place);
        };
        groups("no primary group", R"({"name": "A"} ])", "The data ");
        groups("two primary groups", R"({"name": "A", "primary": true}, {"name": "B", "primary": true} ])",
               "The data ");
        groups("a group without a name", R"({"primary": true} ])", "groups[0] ");
        groups("a primary that is a text", R"({"name": "A", "primary": "yes"} ])", "groups[0] ");
        groups("two groups of one name", R"({"name": "A", "primary": true}, {"name": "A"} ])", "groups[1] ");
        groups("a start-up group that is a list", R"({"name": "A", "primary": true} ], "startUp": [])",
               "startUp ");
        groups("a start-up group with a group's name",
               R"({"name": "A", "primary": true} ], "startUp": {"name": "A"})", "startUp ");
        groups("a primary start-up group",
               R"({"name": "A", "primary": true} ], "startUp": {"name": "S", "primary": true})", "startUp ");

        const auto member = [&row](const char *name, const QByteArray &text, const char *place) {
            row(name, withGroupMembers(text), place);
        };
        member("menus that are a text", R"("menus": "File")", "groups[0] ");
        member("a command without a macro", R"("commands": [ {"identifier": "I", "name": "N"} ])",
               "groups[0].commands[0] ");
        member("a command whose name is a number",
               R"("commands": [ {"identifier": "I", "name": 1, "macro": "M"} ])", "groups[0].commands[0] ");
        member("a command twice",
               R"("commands": [ {"identifier": "I", "name": "N", "macro": "M"},
                                {"identifier": "I", "name": "N", "macro": "M"} ])",
               "groups[0].commands[1] ");
        member("a menu without a label", R"("menus": [ {"identifier": "M", "items": []} ])",
               "groups[0].menus[0] ");
        member("an accelerator without a key", R"("accelerators": [ {"identifier": "A", "command": "C"} ])",
               "groups[0].accelerators[0] ");
        member("an accelerator with an unknown key",
               R"("accelerators": [ {"identifier": "A", "command": "C", "key": "Nokey"} ])",
               "groups[0].accelerators[0] ");
        member("an accelerator without a command", R"("accelerators": [ {"identifier": "A", "key": "F4"} ])",
               "groups[0].accelerators[0] ");

        for (const auto &[name, text] : std::initializer_list<std::pair<const char *, const char *>>{
                 {"an item that is null", "null"},
                 {"an entry without a command", R"({"identifier": "I", "label": "L"})"},
                 {"an entry with an unknown command",
                  R"({"identifier": "I", "label": "L", "command": "ID_Close"})"},
                 {"a misspelled member", R"({"identifier": "I", "label": "L", "commands": "ID_Open"})"},
                 {"a separator with a label", R"({"separator": true, "label": "L"})"},
                 {"an unknown kind", R"({"identifier": "I", "label": "L", "kind": "printers"})"}})
            row(name, withItem(text), "groups[0].menus[0].items[0] ");
        row("a fault deep down",
            withItem(R"({"identifier": "I", "label": "L", "items": [ {"separator": true}, {} ]})"),
            "groups[0].menus[0].items[0].items[1] ");
        constexpr int depth = 100000;
        row("endlessly nested menus",
            withItem(QByteArray(R"({"identifier": "I", "label": "L", "items": [ )").repeated(depth) +
                     QByteArray(" ] }").repeated(depth)),
            "");
    }

    void damagedDataAreReportedWithThePlace()
    {
        QFETCH(QByteArray, json);
        QFETCH(QString, place);
        const CustomizationData data = readCustomization(json);
        QVERIFY(!data.outcome);
        QVERIFY2(data.outcome.reason().startsWith(place), qPrintable(data.outcome.reason()));
        QVERIFY(data.groups.empty());
        QCOMPARE(data.startUp, nullptr);
    }
};

CORE_TEST_CLASS(tst_Customization);
#include "tst_customization.moc"

// SPDX-License-Identifier: MIT
#include "host/runtime/customization/CustomizationReader.h"
#include "host/runtime/customization/UIMenuItem.h"
#include "tests/support/TestCase.h"

using fxhost::CustomizationData;
using fxhost::readCustomization;
using fxhost::UIMenuItem;

namespace {

//! Data that are complete but for what stands in the one group.
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

UIMenuItem::Kind kindOf(const CFxUIMenuItem *item)
{
    return dynamic_cast<const UIMenuItem &>(*item).kind();
}

} // namespace

class TestCustomizationReader : public TestCase
{
    Q_OBJECT

private slots:
    void everyKindOfItemIsRead()
    {
        const CustomizationData data = readCustomization(withItem(R"(
            { "identifier": "I1", "label": "&Open\u2026", "command": "ID_Open", "help": "Opens." },
            { "separator": true },
            { "identifier": "I2", "label": "Recent", "kind": "recentFiles" },
            { "identifier": "I3", "label": "Windows", "kind": "windows" },
            { "identifier": "I4", "label": "Zoom", "items": [
                { "identifier": "I5", "label": "Fit", "command": "ID_Open" } ] })"));
        QCOMPARE(data.error, QString());
        const CFxUIMenuItem *const menu = data.groups.front()->GetMenu(0);
        QCOMPARE(menu->GetChildCount(), 5);
        QCOMPARE(kindOf(menu->GetChild(0)), UIMenuItem::Kind::Entry);
        QCOMPARE(QString(menu->GetChild(0)->GetLabel()), QString("&Open\u2026"));
        QCOMPARE(menu->GetChild(0)->GetCommand(), data.groups.front()->GetCommand(0));
        QCOMPARE(QString(dynamic_cast<const UIMenuItem *>(menu->GetChild(0))->helpString()),
                 QString("Opens."));
        QCOMPARE(kindOf(menu->GetChild(1)), UIMenuItem::Kind::Separator);
        QCOMPARE(kindOf(menu->GetChild(2)), UIMenuItem::Kind::RecentFiles);
        QCOMPARE(kindOf(menu->GetChild(3)), UIMenuItem::Kind::Windows);
        QCOMPARE(kindOf(menu->GetChild(4)), UIMenuItem::Kind::Menu);
        QCOMPARE(QString(menu->GetChild(4)->GetChild(0)->GetIdentifier()), QString("I5"));
    }

    void theSmallestDataAreOneGroup()
    {
        const CustomizationData data = readCustomization(withGroupMembers(QByteArray()));
        QCOMPARE(data.error, QString());
        QCOMPARE(data.groups.size(), std::size_t(1));
        QCOMPARE(data.startUp, nullptr);
    }

    void aSyntaxErrorNamesItsLine()
    {
        const CustomizationData data = readCustomization("{\n  \"groups\": [\n    { oops }\n  ]\n}\n");
        QVERIFY2(data.error.startsWith("Line 3: "), qPrintable(data.error));
        QVERIFY(data.groups.empty());
    }

    void damagedDataNameThePlace_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<QString>("place");
        const QString top = "The data ";
        const QString group = "groups[0] ";
        const QString item = "groups[0].menus[0].items[0] ";
        const QString command = "groups[0].commands[0] ";
        const QString accelerator = "groups[0].accelerators[0] ";

        QTest::newRow("empty") << QByteArray() << "Line 1: ";
        QTest::newRow("cut off") << withGroupMembers(QByteArray()).chopped(2) << "Line 1: ";
        QTest::newRow("binary rubbish") << QByteArray("\x00\xff\x1b", 3) << "Line 1: ";
        QTest::newRow("a list") << QByteArray("[]") << top;
        QTest::newRow("an empty object") << QByteArray("{}") << top;
        QTest::newRow("groups that are no list") << QByteArray(R"({"groups": {}})") << top;
        QTest::newRow("an unknown member") << QByteArray(R"({"groups": [], "start": {}})") << top;
        QTest::newRow("no primary group") << QByteArray(R"({"groups": [ {"name": "A"} ]})") << top;
        QTest::newRow("two primary groups")
            << QByteArray(R"({"groups": [ {"name": "A", "primary": true}, {"name": "B", "primary": true} ]})")
            << top;
        QTest::newRow("a group that is a number") << QByteArray(R"({"groups": [ 7 ]})") << group;
        QTest::newRow("a group without a name")
            << QByteArray(R"({"groups": [ {"primary": true} ]})") << group;
        QTest::newRow("a primary that is a text")
            << QByteArray(R"({"groups": [ {"name": "A", "primary": "yes"} ]})") << group;
        QTest::newRow("two groups of one name")
            << QByteArray(R"({"groups": [ {"name": "A", "primary": true}, {"name": "A"} ]})") << "groups[1] ";
        QTest::newRow("a start-up group that is a list")
            << QByteArray(R"({"groups": [ {"name": "A", "primary": true} ], "startUp": []})") << "startUp ";
        QTest::newRow("a start-up group with a group's name")
            << QByteArray(R"({"groups": [ {"name": "A", "primary": true} ], "startUp": {"name": "A"}})")
            << "startUp ";
        QTest::newRow("a primary start-up group")
            << QByteArray(R"({"groups": [ {"name": "A", "primary": true} ],
                              "startUp": {"name": "S", "primary": true}})")
            << "startUp ";
        QTest::newRow("menus that are a text") << withGroupMembers(R"("menus": "File")") << group;
        QTest::newRow("a command without a macro")
            << withGroupMembers(R"("commands": [ {"identifier": "I", "name": "N"} ])") << command;
        QTest::newRow("a command whose name is a number")
            << withGroupMembers(R"("commands": [ {"identifier": "I", "name": 1, "macro": "M"} ])") << command;
        QTest::newRow("a command twice")
            << withGroupMembers(R"("commands": [ {"identifier": "I", "name": "N", "macro": "M"},
                                                 {"identifier": "I", "name": "N", "macro": "M"} ])")
            << "groups[0].commands[1] ";
        QTest::newRow("a menu without a label")
            << withGroupMembers(R"("menus": [ {"identifier": "M", "items": []} ])") << "groups[0].menus[0] ";
        QTest::newRow("an item that is null") << withItem("null") << item;
        QTest::newRow("an entry without a command")
            << withItem(R"({"identifier": "I", "label": "L"})") << item;
        QTest::newRow("an entry with an unknown command")
            << withItem(R"({"identifier": "I", "label": "L", "command": "ID_Close"})") << item;
        QTest::newRow("a misspelled member")
            << withItem(R"({"identifier": "I", "label": "L", "commands": "ID_Open"})") << item;
        QTest::newRow("a separator with a label") << withItem(R"({"separator": true, "label": "L"})") << item;
        QTest::newRow("an unknown kind")
            << withItem(R"({"identifier": "I", "label": "L", "kind": "printers"})") << item;
        QTest::newRow("a fault deep down")
            << withItem(R"({"identifier": "I", "label": "L", "items": [ {"separator": true}, {} ]})")
            << "groups[0].menus[0].items[0].items[1] ";
        QTest::newRow("an accelerator without a key")
            << withGroupMembers(R"("accelerators": [ {"identifier": "A", "command": "C"} ])") << accelerator;
        QTest::newRow("an accelerator with an unknown key")
            << withGroupMembers(R"("accelerators": [ {"identifier": "A", "command": "C", "key": "Nokey"} ])")
            << accelerator;
        QTest::newRow("an accelerator without a command")
            << withGroupMembers(R"("accelerators": [ {"identifier": "A", "key": "F4"} ])") << accelerator;
    }

    void damagedDataNameThePlace()
    {
        QFETCH(QByteArray, json);
        QFETCH(QString, place);
        const CustomizationData data = readCustomization(json);
        QVERIFY2(data.error.startsWith(place), qPrintable(data.error));
        QVERIFY(data.groups.empty());
        QCOMPARE(data.startUp, nullptr);
    }

    void menusInMenusWithoutEndAreRefused()
    {
        constexpr int depth = 100000;
        const QByteArray deep =
            QByteArray(R"({"identifier": "I", "label": "L", "items": [ )").repeated(depth) +
            QByteArray(" ] }").repeated(depth);
        QVERIFY(!readCustomization(withItem(deep)).error.isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestCustomizationReader)
#include "tst_customizationreader.moc"

// SPDX-License-Identifier: MIT
#include "host/runtime/commands/CommandStack.h"
#include "tests/support/TestCase.h"

#include <CFxCommand.h>

using fxhost::CommandStack;

namespace {

class CountedCommand : public CFxCommand
{
public:
    CountedCommand(const OdChar *globalName, const OdChar *localName, const OdChar *group = L"FX_COMMANDS")
        : m_globalName(globalName), m_localName(localName), m_group(group)
    {
    }

    OdString groupName() const override { return m_group; }
    OdString globalName() const override { return m_globalName; }
    OdString localName() const override { return m_localName; }
    int Execute(CFxCommandContext *) override { return normalCompletion; }
    void undefine() override { ++undefined; }
    void addRef() override { ++references; }
    void release() override { --references; }
    int numRefs() const override { return references; }

    int references = 1;
    int undefined = 0;

private:
    OdString m_globalName;
    OdString m_localName;
    OdString m_group;
};

constexpr int bothNames = OdEdCommandStack::GlobalNames | OdEdCommandStack::LocalNames;

} // namespace

class TestCommandStack : public TestCase
{
    Q_OBJECT

private slots:
    void aCommandIsFoundByItsNames_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("flags");
        QTest::addColumn<QString>("group");
        QTest::addColumn<bool>("found");
        const QString anyGroup;
        const QString global = QStringLiteral("_CIRCLE");
        const QString local = QStringLiteral("KREIS");
        QTest::newRow("global name") << global << 1 << anyGroup << true;
        QTest::newRow("local name") << local << 2 << anyGroup << true;
        QTest::newRow("either name") << local << 3 << anyGroup << true;
        QTest::newRow("any case") << QStringLiteral("_Circle") << 3 << anyGroup << true;
        QTest::newRow("global name among local ones") << global << 2 << anyGroup << false;
        QTest::newRow("local name among global ones") << local << 1 << anyGroup << false;
        QTest::newRow("no kind of name") << global << 0 << anyGroup << false;
        QTest::newRow("the right group") << global << 3 << QStringLiteral("fx_commands") << true;
        QTest::newRow("another group") << global << 3 << QStringLiteral("OTHER") << false;
        QTest::newRow("another name") << QStringLiteral("_LINE") << 3 << anyGroup << false;
        QTest::newRow("an empty name") << QString() << 3 << anyGroup << false;
    }

    void aCommandIsFoundByItsNames()
    {
        QFETCH(QString, name);
        QFETCH(int, flags);
        QFETCH(QString, group);
        QFETCH(bool, found);
        CountedCommand circle(L"_CIRCLE", L"KREIS");
        CommandStack stack;
        stack.addCommand(&circle);
        OdEdCommand *const command =
            stack.lookupCommand(OdString(name.toStdWString()), flags, OdString(group.toStdWString()));
        QCOMPARE(command != nullptr, found);
        QCOMPARE(circle.references, found ? 3 : 2); // the test's, the stack's, and what lookup gave
    }

    void removingIsByNamesNotByIdentity()
    {
        CountedCommand circle(L"_CIRCLE", L"KREIS");
        CountedCommand key(L"_circle", L"kreis");
        CommandStack stack;
        stack.addCommand(&circle);
        stack.removeCommand(&key);
        QVERIFY(stack.commands().empty());
        QCOMPARE(circle.references, 1);
        QCOMPARE(circle.undefined, 1);
        QCOMPARE(key.undefined, 0);
    }

    void removingWhatIsNotThereDoesNothing()
    {
        CountedCommand circle(L"_CIRCLE", L"KREIS");
        CountedCommand sameGlobalName(L"_CIRCLE", L"CERCLE");
        CountedCommand otherGroup(L"_CIRCLE", L"KREIS", L"OTHER");
        CommandStack stack;
        stack.addCommand(&circle);
        stack.removeCommand(&sameGlobalName);
        stack.removeCommand(&otherGroup);
        QCOMPARE(stack.commands(), std::vector<OdEdCommand *>{&circle});
    }

    void theSameNameReplacesTheFormerCommand()
    {
        CountedCommand former(L"_CIRCLE", L"KREIS");
        CountedCommand next(L"_circle", L"CERCLE");
        CommandStack stack;
        stack.addCommand(&former);
        stack.addCommand(&next);
        QCOMPARE(stack.commands(), std::vector<OdEdCommand *>{&next});
        QCOMPARE(former.references, 1);
        QCOMPARE(former.undefined, 1);
        QCOMPARE(next.references, 2);
    }

    void theSameNameInAnotherGroupIsAnotherCommand()
    {
        CountedCommand first(L"_CIRCLE", L"KREIS");
        CountedCommand second(L"_CIRCLE", L"KREIS", L"OTHER");
        CommandStack stack;
        stack.addCommand(&first);
        stack.addCommand(&second);
        QCOMPARE(stack.lookupCommand(L"_CIRCLE", bothNames, L"OTHER"), &second);
        QCOMPARE(stack.lookupCommand(L"_CIRCLE", bothNames, L""), &first);
    }
};

QTEST_GUILESS_MAIN(TestCommandStack)
#include "tst_commandstack.moc"

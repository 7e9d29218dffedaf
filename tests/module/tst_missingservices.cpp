// SPDX-License-Identifier: MIT
#include "tests/support/TestCase.h"
#include "tests/support/fake/FakeLife.h"

#include <stdexcept>
#include <utility>

using Switch = FakeLife::Switch;
Q_DECLARE_METATYPE(Switch)
Q_DECLARE_METATYPE(LifeReport)

namespace {

//! The report of a host that lacks nothing.
const LifeReport wholeLife = {
    {"created", "yes"},
    {"started", "yes"},
    {"registered", "_RECENT documents editor"},
    {"notified of the window", "yes"},
    {"registered with a window", "_RECENT _RHELP documents editor"},
    {"menu entries", "file: yes, start-up: yes"},
    {"menus refreshed", "yes"},
    {"notified of a document", "yes"},
    {"pins", "2"},
    {"command", "5100"},
    {"popup", "of the main window"},
    {"tiles", "2"},
    {"pictures", "2"},
    {"Right leads to", "b.dwg"},
    {"Control+click leads to", "a.dwg b.dwg"},
    {"pinned", "b.dwg"},
    {"Enter opens", "a.dwg b.dwg"},
    {"popup after Enter", "closed"},
    {"help runs", "_RHELP"},
    {"popup after help", "closed"},
    {"popup after the folder", "closed"},
    {"double-click opens", "b.dwg"},
    {"popup after the double-click", "closed"},
    {"notified of the window's end", "yes"},
    {"registered at the end", ""},
    {"ended", "yes"},
    {"left behind", "nothing"},
    {"references kept", "0"},
};

LifeReport operator+(LifeReport report, const LifeReport &other)
{
    for (auto line = other.begin(); line != other.end(); ++line)
        report.insert(line.key(), line.value());
    return report;
}

//! Without popups there are no lines on their use.
LifeReport withoutPopup(LifeReport report)
{
    report["popup"] = "none";
    for (const char *line : {"tiles", "pictures", "Right leads to", "Control+click leads to", "pinned",
                             "Enter opens", "popup after Enter", "help runs", "popup after help",
                             "popup after the folder", "double-click opens", "popup after the double-click"})
        report.remove(line);
    return report;
}

const LifeReport noEntries = {{"menu entries", "file: no, start-up: no"}};
const LifeReport noMenus = noEntries + LifeReport{{"menus refreshed", "no"}};
//! A popup with only a header, of which the help icon works.
const LifeReport noTiles = {{"pins", "0"},
                            {"tiles", "0"},
                            {"Right leads to", ""},
                            {"Control+click leads to", ""},
                            {"pinned", ""},
                            {"Enter opens", ""},
                            {"popup after Enter", "open"},
                            {"popup after the folder", "open"},
                            {"double-click opens", ""},
                            {"popup after the double-click", "open"}};
//! The module is never notified of a main window.
const LifeReport noWindow = noMenus + LifeReport{{"registered with a window", "_RECENT documents"},
                                                 {"registered", "_RECENT documents"},
                                                 {"registered at the end", "_RECENT documents"}};
const LifeReport noDocuments = {{"registered", "_RECENT editor"},
                                {"registered with a window", "_RECENT _RHELP editor"}};

//! The host lacks one thing.
Switch without(bool FakeHost::*what)
{
    return [what](FakeLife &life, bool has) { life.host.*what = has; };
}

//! An operation of the host throws once it has recorded its line.
template<class Exception>
Switch throwing(std::function<void()> FakeHost::*hook, const char *line, Exception exception)
{
    return [=](FakeLife &life, bool has) {
        FakeHost &host = life.host;
        host.*hook = nullptr;
        if (!has) {
            host.*hook = [&host, line, exception] {
                if (host.calls.constLast().startsWith(QLatin1String(line)))
                    throw exception;
            };
        }
    };
}

const std::runtime_error refusal("the host refuses");

void row(const char *name, const Switch &missing, const LifeReport &changes)
{
    QTest::newRow(name) << missing << Switch() << wholeLife + changes;
}

void rowsOfServices()
{
    row("nothing", {}, {});
    const auto withoutList = [](const char *name, const Switch &missing, const LifeReport &changes) {
        const LifeReport noPins = {{"pins", "0"}};
        QTest::newRow(name) << missing << Switch() << withoutPopup(wholeLife + noPins + changes);
    };
    withoutList("services", without(&FakeHost::hasServices), noMenus + noDocuments);
    withoutList("application", without(&FakeHost::hasApplication), noEntries);
    withoutList("user profile", without(&FakeHost::hasUserProfile), noEntries);
    withoutList("recent-file list", without(&FakeHost::hasRecentFileList), noEntries);
    const Switch forgets = [](FakeLife &life, bool) { life.host.setRecent({}); };
    row("recent documents", forgets, noEntries + noTiles + LifeReport{{"pictures", "0"}});
    row("main frame object", without(&FakeHost::hasMainFrame), {{"popup", "alone"}});
    row("main window", without(&FakeHost::hasMainWindow), {{"popup", "alone"}});
    row("document manager", without(&FakeHost::hasDocumentManager), noTiles + noDocuments);
    row("drawings that can be opened", without(&FakeHost::opensDocuments), {});
    row("handle to a command's run", without(&FakeHost::runCommandGivesHandle), {});
    const Switch isFull = [](FakeLife &, bool has) { FakeMemory::isOut = !has; };
    QTest::newRow("memory") << isFull << Switch()
                            << LifeReport{{"created", "threw"},
                                          {"left behind", "nothing"},
                                          {"references kept", "0"}};
}

void rowsOfMenus()
{
    const auto lost = [](void (*loss)(FakeLife &)) {
        return Switch([loss](FakeLife &life, bool) { loss(life); });
    };
    const LifeReport onlyFile = {{"menu entries", "file: yes, start-up: no"}};
    const LifeReport onlyStartUp = {{"menu entries", "file: no, start-up: yes"}};
    row("customisation", without(&FakeHost::hasCustomization), noMenus);
    row("enumerator of the groups", lost([](FakeLife &life) { life.menus.makesEnumerators = false; }),
        noMenus);
    row("groups", lost([](FakeLife &life) { life.takenOut = std::move(life.menus.groups); }), noMenus);
    row("primary group", lost([](FakeLife &life) { life.primary.isPrimary = false; }), noMenus);
    row("start-up group",
        lost([](FakeLife &life) { life.takenOut.push_back(std::move(life.menus.startUp)); }),
        onlyFile + LifeReport{{"menus refreshed", "no"}});
    row("File menu", lost([](FakeLife &life) { life.file.identifier = "ID_MnEdit"; }), onlyStartUp);
    row("entries of the File menu", lost([](FakeLife &life) { life.file.children.clear(); }), onlyStartUp);
    row("start-up File menu", lost([](FakeLife &life) { life.startUpFile.identifier = "ID_Mn"; }), onlyFile);
    row("definitions", lost([](FakeLife &life) { life.menus.makesCommands = false; }), noEntries);
    row("menu entries", lost([](FakeLife &life) { life.menus.makesMenuItems = false; }), noEntries);
}

void rowsOfTheEngine()
{
    row("command stack", without(&FakeHost::hasCommandStack),
        {{"registered", "documents editor"}, {"registered with a window", "documents editor"}});
    row("editor", without(&FakeHost::hasEditor), noWindow);
    row("addition to the stack", throwing(&FakeHost::onCommandStack, "stack add _RECENT", refusal),
        noMenus + noTiles +
            LifeReport{{"started", "threw"}, {"registered", ""}, {"registered with a window", ""}});
    const LifeReport noHelp = {{"notified of the window", "threw"},
                               {"registered with a window", "_RECENT documents editor"}};
    const LifeReport noEnd = {{"notified of the window's end", "threw"}};
    row("addition to the stack for help", throwing(&FakeHost::onCommandStack, "stack add _RHELP", 7), noHelp);
    row("lookup on the stack", throwing(&FakeHost::onCommandStack, "stack lookup", refusal), noHelp + noEnd);
    row("removal from the stack", throwing(&FakeHost::onCommandStack, "stack remove _RECENT", refusal),
        noEnd + LifeReport{{"registered at the end", "_RECENT _RHELP documents editor"}});
    row("removal from the stack for help", throwing(&FakeHost::onCommandStack, "stack remove _RHELP", 7),
        noEnd + LifeReport{{"registered at the end", "_RHELP"}});
    row("addition to the editor", throwing(&FakeHost::onEditor, "editor add", refusal),
        noWindow + LifeReport{{"started", "threw"}});
    row("removal from the editor", throwing(&FakeHost::onEditor, "editor remove", 7),
        noEnd + LifeReport{{"registered at the end", "_RHELP editor"}});
}

template<class Exception>
void rowsOfReaders(const char *kind, Exception exception)
{
    for (const char *step : {"create", "load", "validate", "convert"}) {
        const Switch gives = [=](FakeLife &life, bool) {
            life.host.onPreviewStep = [=](const QString &now) {
                if (now == step)
                    throw exception;
            };
        };
        row(qPrintable(QString("previews: %1 at %2").arg(kind, step)), gives, {{"pictures", "0"}});
    }
}

void rowsOfPreviews()
{
    row("preview objects", without(&FakeHost::previewFactoryGivesObjects), {{"pictures", "0"}});
    row("valid previews", without(&FakeHost::previewsAreValid), {{"pictures", "0"}});
    rowsOfReaders("a std::exception", refusal);
    rowsOfReaders("a number", 7);
}

//! Missing only while a popup is open.
void rowsWithAPopup()
{
    const auto lost = [](const char *name, bool FakeHost::*what, const LifeReport &changes = {}) {
        QTest::addRow("with a popup: %s", name) << Switch() << without(what) << wholeLife + changes;
    };
    const LifeReport nothingOpens = {{"Enter opens", ""}, {"double-click opens", ""}};
    lost("services", &FakeHost::hasServices, nothingOpens + LifeReport{{"help runs", ""}});
    lost("application", &FakeHost::hasApplication);
    lost("user profile", &FakeHost::hasUserProfile);
    lost("recent-file list", &FakeHost::hasRecentFileList);
    lost("main frame object", &FakeHost::hasMainFrame);
    lost("main window", &FakeHost::hasMainWindow);
    lost("document manager", &FakeHost::hasDocumentManager, nothingOpens);
    lost("customisation", &FakeHost::hasCustomization);
    lost("command stack", &FakeHost::hasCommandStack);
    lost("editor", &FakeHost::hasEditor);
}

//! Readable in a failure.
QStringList linesOf(const LifeReport &report)
{
    QStringList lines;
    for (auto line = report.begin(); line != report.end(); ++line)
        lines.append(line.key() + ": " + line.value());
    return lines;
}

} // namespace

class tst_MissingServices : public TestCase
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        qputenv("PATH", "/nowhere"); // no file manager starts
    }

    void theRestWorks_data()
    {
        QTest::addColumn<Switch>("missing");
        QTest::addColumn<Switch>("missingWithPopup");
        QTest::addColumn<LifeReport>("report");
        rowsOfServices();
        rowsOfMenus();
        rowsOfTheEngine();
        rowsOfPreviews();
        rowsWithAPopup();
    }

    void theRestWorks()
    {
        QFETCH(Switch, missing);
        QFETCH(Switch, missingWithPopup);
        QFETCH(LifeReport, report);
        FakeMemory::isOut = false;
        FakeLife life;
        QCOMPARE(linesOf(life.live(missing, missingWithPopup)), linesOf(report));
    }
};

TEST_CLASS(tst_MissingServices);
#include "tst_missingservices.moc"

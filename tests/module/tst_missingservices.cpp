// SPDX-License-Identifier: MIT
#include "tests/support/TestCase.h"
#include "tests/support/WholeLife.h"

#include <OdRxAlloc.h>

#include <cstdlib>
#include <stdexcept>
#include <utility>

using Switch = WholeLife::Switch;
Q_DECLARE_METATYPE(Switch)
Q_DECLARE_METATYPE(LifeReport)

namespace {
bool hasMemory = true;
}

// In place of the runtime library's own, in this program alone.

void *odrxAlloc(std::size_t size)
{
    return hasMemory ? std::malloc(size) : nullptr;
}

void odrxFree(void *memory)
{
    std::free(memory);
}

//! What the module does, from its creation to its deletion, in a host that lacks one thing.
class tst_MissingServices : public TestCase
{
    Q_OBJECT

private slots:
    void initTestCase();
    void theRestWorks_data();
    void theRestWorks();
};

namespace {

//! The whole life in a host that lacks nothing.
const LifeReport wholeLife = {
    {"created", "yes"},
    {"started", "yes"},
    {"registered", "_RECENT documents editor"},
    {"window told", "yes"},
    {"registered with a window", "_RECENT _RHELP documents editor"},
    {"menu entries", "file: yes, start-up: yes"},
    {"menus refreshed", "yes"},
    {"document told", "yes"},
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
    {"window's end told", "yes"},
    {"registered at the end", ""},
    {"told the end", "yes"},
    {"left behind", "nothing"},
    {"references kept", "0"},
};

LifeReport operator+(LifeReport report, const LifeReport &other)
{
    for (auto line = other.begin(); line != other.end(); ++line)
        report.insert(line.key(), line.value());
    return report;
}

//! Without popups there is no line of what is done with them.
LifeReport withoutPopup(LifeReport report)
{
    report.insert("popup", "none");
    for (const char *line : {"tiles", "pictures", "Right leads to", "Control+click leads to", "pinned",
                             "Enter opens", "popup after Enter", "help runs", "popup after help",
                             "popup after the folder", "double-click opens", "popup after the double-click"})
        report.remove(line);
    return report;
}

const LifeReport noEntries = {{"menu entries", "file: no, start-up: no"}, {"menus refreshed", "no"}};
//! A popup with a header alone. Only its help icon is of use.
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
const LifeReport nothingOpens = {{"Enter opens", ""}, {"double-click opens", ""}};
//! Who never hears of a main window.
const LifeReport noWindow = noEntries + LifeReport{{"registered with a window", "_RECENT documents"},
                                                   {"registered", "_RECENT documents"},
                                                   {"registered at the end", "_RECENT documents"}};

//! The host loses one of what it says it has.
Switch without(bool FakeHost::*what)
{
    return [what](WholeLife &life, bool has) { life.host.*what = has; };
}

//! An operation of the host throws when its line is written, until it is done with.
template<class Exception>
Switch throwing(std::function<void()> FakeHost::*hook, const char *line, Exception exception)
{
    return [=](WholeLife &life, bool has) {
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

void row(const char *name, const Switch &missing, const LifeReport &report, const Switch &withPopup = {})
{
    QTest::newRow(name) << missing << withPopup << report;
}

void rowsOfServices()
{
    row("nothing", {}, wholeLife);
    const LifeReport noList =
        withoutPopup(wholeLife + LifeReport{{"menu entries", "file: no, start-up: no"}, {"pins", "0"}});
    row("services", without(&FakeHost::hasServices),
        withoutPopup(wholeLife + noEntries +
                     LifeReport{{"registered", "_RECENT editor"},
                                {"registered with a window", "_RECENT _RHELP editor"},
                                {"pins", "0"}}));
    row("application", without(&FakeHost::hasApplication), noList);
    row("user profile", without(&FakeHost::hasUserProfile), noList);
    row("recent-file list", without(&FakeHost::hasRecentFileList), noList);
    row(
        "recent documents", [](WholeLife &life, bool) { life.host.setRecent({}); },
        wholeLife + noTiles + LifeReport{{"menu entries", "file: no, start-up: no"}, {"pictures", "0"}});
    row("main frame object", without(&FakeHost::hasMainFrame), wholeLife + LifeReport{{"popup", "alone"}});
    row("main window", without(&FakeHost::hasMainWindow), wholeLife + LifeReport{{"popup", "alone"}});
    row("document manager", without(&FakeHost::hasDocumentManager),
        wholeLife + noTiles +
            LifeReport{{"registered", "_RECENT editor"},
                       {"registered with a window", "_RECENT _RHELP editor"}});
    row("drawings that can be opened", without(&FakeHost::opensDocuments), wholeLife);
    row("handle to a command's run", without(&FakeHost::runCommandGivesHandle), wholeLife);
    row("memory", [](WholeLife &, bool has) { hasMemory = has; },
        {{"created", "threw"}, {"left behind", "nothing"}, {"references kept", "0"}});
}

void rowsOfMenus()
{
    row("customisation", without(&FakeHost::hasCustomization), wholeLife + noEntries);
    row(
        "customisation groups", [](WholeLife &life, bool) { life.takenOut = std::move(life.menus.groups); },
        wholeLife + noEntries);
    row(
        "primary group", [](WholeLife &life, bool) { life.menus.groups.front()->isPrimary = false; },
        wholeLife + noEntries);
    row(
        "start-up group",
        [](WholeLife &life, bool) { life.takenOut.push_back(std::move(life.menus.startUp)); },
        wholeLife + LifeReport{{"menu entries", "file: yes, start-up: no"}, {"menus refreshed", "no"}});
    row(
        "File menu", [](WholeLife &life, bool) { life.file.identifier = QStringLiteral("ID_MnEdit"); },
        wholeLife + LifeReport{{"menu entries", "file: no, start-up: yes"}});
    row(
        "entries of the File menu", [](WholeLife &life, bool) { life.file.children.clear(); },
        wholeLife + LifeReport{{"menu entries", "file: no, start-up: yes"}});
    row(
        "start-up File menu",
        [](WholeLife &life, bool) { life.startUpFile.identifier = QStringLiteral("ID_MnEdit"); },
        wholeLife + LifeReport{{"menu entries", "file: yes, start-up: no"}});
    row(
        "definitions", [](WholeLife &life, bool) { life.menus.makesCommands = false; },
        wholeLife + LifeReport{{"menu entries", "file: no, start-up: no"}});
    row(
        "menu entries", [](WholeLife &life, bool) { life.menus.makesMenuItems = false; },
        wholeLife + LifeReport{{"menu entries", "file: no, start-up: no"}});
}

void rowsOfTheEngine()
{
    const LifeReport noCommands = {{"registered", "documents editor"},
                                   {"registered with a window", "documents editor"}};
    row("command stack", without(&FakeHost::hasCommandStack), wholeLife + noCommands);
    row("editor", without(&FakeHost::hasEditor), wholeLife + noWindow);
    row("place on the stack", throwing(&FakeHost::onCommandStack, "stack add _RECENT", refusal),
        wholeLife + noEntries + noTiles +
            LifeReport{{"started", "threw"}, {"registered", ""}, {"registered with a window", ""}});
    row("place on the stack for help", throwing(&FakeHost::onCommandStack, "stack add _RHELP", 7),
        wholeLife +
            LifeReport{{"window told", "threw"}, {"registered with a window", "_RECENT documents editor"}});
    row("look at the stack", throwing(&FakeHost::onCommandStack, "stack lookup", refusal),
        wholeLife + LifeReport{{"window told", "threw"},
                               {"registered with a window", "_RECENT documents editor"},
                               {"window's end told", "threw"}});
    row("way off the stack", throwing(&FakeHost::onCommandStack, "stack remove _RECENT", refusal),
        wholeLife + LifeReport{{"window's end told", "threw"},
                               {"registered at the end", "_RECENT _RHELP documents editor"}});
    row("way off the stack for help", throwing(&FakeHost::onCommandStack, "stack remove _RHELP", 7),
        wholeLife + LifeReport{{"window's end told", "threw"}, {"registered at the end", "_RHELP"}});
    row("place at the editor", throwing(&FakeHost::onEditor, "editor add", refusal),
        wholeLife + noWindow + LifeReport{{"started", "threw"}});
    row("way off the editor", throwing(&FakeHost::onEditor, "editor remove", 7),
        wholeLife + LifeReport{{"window's end told", "threw"}, {"registered at the end", "_RHELP editor"}});
}

void rowsOfPreviews()
{
    const LifeReport noPictures = wholeLife + LifeReport{{"pictures", "0"}};
    row("preview objects", without(&FakeHost::previewFactoryGivesObjects), noPictures);
    row("valid previews", without(&FakeHost::previewsAreValid), noPictures);
    for (const char *step : {"create", "load", "validate", "convert"}) {
        row(
            qPrintable(QStringLiteral("previews: a std::exception at ") + QLatin1String(step)),
            [step](WholeLife &life, bool) {
                life.host.onPreviewStep = [step](const QString &now) {
                    if (now == QLatin1String(step))
                        throw std::runtime_error("the reader gives up");
                };
            },
            noPictures);
        row(
            qPrintable(QStringLiteral("previews: a number thrown at ") + QLatin1String(step)),
            [step](WholeLife &life, bool) {
                life.host.onPreviewStep = [step](const QString &now) {
                    if (now == QLatin1String(step))
                        throw 7;
                };
            },
            noPictures);
    }
}

//! What goes while a popup is up, and comes back.
void rowsWithAPopup()
{
    const auto goes = [](const char *name, bool FakeHost::*what, const LifeReport &changes = {}) {
        row(name, {}, wholeLife + changes, without(what));
    };
    goes("with a popup: services", &FakeHost::hasServices, nothingOpens + LifeReport{{"help runs", ""}});
    goes("with a popup: application", &FakeHost::hasApplication);
    goes("with a popup: user profile", &FakeHost::hasUserProfile);
    goes("with a popup: recent-file list", &FakeHost::hasRecentFileList);
    goes("with a popup: main frame object", &FakeHost::hasMainFrame);
    goes("with a popup: main window", &FakeHost::hasMainWindow);
    goes("with a popup: document manager", &FakeHost::hasDocumentManager, nothingOpens);
    goes("with a popup: customisation", &FakeHost::hasCustomization);
    goes("with a popup: command stack", &FakeHost::hasCommandStack);
    goes("with a popup: editor", &FakeHost::hasEditor);
}

//! A line for each line of the report, so that a difference is seen in words.
QStringList linesOf(const LifeReport &report)
{
    QStringList lines;
    for (auto line = report.begin(); line != report.end(); ++line)
        lines.append(line.key() + QStringLiteral(": ") + line.value());
    return lines;
}

} // namespace

void tst_MissingServices::initTestCase()
{
    qputenv("PATH", "/nowhere"); // no file manager comes up
}

void tst_MissingServices::theRestWorks_data()
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

void tst_MissingServices::theRestWorks()
{
    QFETCH(Switch, missing);
    QFETCH(Switch, missingWithPopup);
    QFETCH(LifeReport, report);
    hasMemory = true;
    WholeLife life;
    QCOMPARE(linesOf(life.live(missing, missingWithPopup)), linesOf(report));
}

QTEST_MAIN(tst_MissingServices)
#include "tst_missingservices.moc"

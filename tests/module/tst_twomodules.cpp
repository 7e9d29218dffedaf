// SPDX-License-Identifier: MIT
#include "host/runtime/commands/CommandRunner.h"
#include "host/runtime/documents/DocumentManager.h"
#include "host/runtime/modules/ModuleManager.h"
#include "host/runtime/recent/RecentFiles.h"
#include "tests/support/TestCase.h"
#include "tests/support/TestModules.h"
#include "tests/support/real/RealBrowser.h"
#include "tests/support/real/RealHost.h"

#include <QDialog>
#include <QMainWindow>

namespace {

const QString browserModule = MODULE_FILE;

//! A host with a window and two recent drawings.
class TwoModulesHost : public RealHost
{
public:
    TwoModulesHost()
    {
        window.setGeometry(0, 0, 1300, 800);
        window.show();
        host.recentFiles().setPaths({makeDrawing("a.dwg"), makeDrawing("b.dwg")});
        takeCalls();
    }
    ~TwoModulesHost() { host.setMainWindow(nullptr); }
    Q_DISABLE_COPY(TwoModulesHost)

    //! Which parts of the browser work: its command, its reactors, its popup.
    QStringList ofBrowser()
    {
        QStringList works;
        host.documents().newDocument();
        if (runs("_RECENT"))
            works << "command";
        const QList<QDialog *> popups = RealBrowser::popups();
        for (QDialog *popup : popups) {
            // Its tiles are those of the menu that is built when a drawing is created.
            works << QString("popup of %1").arg(RealBrowser::tiles(popup).size());
            QTest::keyClick(popup, Qt::Key_Escape);
        }
        if (runs("_RHELP"))
            works << "help";
        drainEvents();
        return works;
    }

    //! Which parts of the other module work: its command, both its reactors, its panel.
    QStringList ofCompanion()
    {
        takeCalls();
        runs("_COMPANION");
        host.documents().newDocument();
        window.setWindowState(window.windowState() ^ Qt::WindowMaximized);
        drainEvents();
        QStringList works = takeCalls();
        const auto *panel = window.findChild<QWidget *>("companionPanel");
        if (panel && panel->isVisible())
            works << "panel";
        return works;
    }

    QMainWindow window;

private:
    bool runs(const QString &line)
    {
        host.commands().runLine(line);
        return logged().constLast() == QString("command %1 5100").arg(line);
    }
};

const QStringList allOfBrowser = {"command", "popup of 2", "help"};
const QStringList allOfCompanion = {"companion Execute", "companion DocumentCreated",
                                    "companion windowStateChanged", "panel"};

} // namespace

//! The built module and another one, loaded and unloaded in any order.
class tst_TwoModules : public TestCase
{
    Q_OBJECT

private slots:
    void eachModuleWorksWhileItIsLoaded_data()
    {
        QTest::addColumn<QString>("sequence");
        // b: the browser is loaded or unloaded, c: the companion is, w: the main window is set or cleared.
        // Some are loaded again, some are unloaded with the host.
        for (const char *sequence :
             {"wbcbc", "wbccb", "wcbbc", "wcbcb", "bcwbc", "bcwcb", "bwccb", "bwcbc", "cwbcb", "cwbbc",
              "bcwwbc", "bcwwcb", "cbwwbc", "wbcbbbccb", "wcbcccbbc", "wbcb", "wbcc", "bcw"})
            QTest::newRow(sequence) << sequence;
    }

    void eachModuleWorksWhileItIsLoaded()
    {
        QFETCH(QString, sequence);
        TwoModulesHost running;
        const QString companionModule = modulePath("companion");
        fxhost::ModuleManager &modules = running.host.modules();
        QStringList loaded;
        const auto toggle = [&](const QString &module) {
            const bool wasLoaded = loaded.removeOne(module);
            if (!wasLoaded)
                loaded.append(module);
            return wasLoaded ? modules.unload(module) : modules.load(module);
        };
        QString windowSteps; // commands work only while it has one step
        for (const QChar step : qAsConst(sequence)) {
            if (step == 'w') {
                windowSteps += step;
                running.host.setMainWindow(windowSteps.size() % 2 ? &running.window : nullptr);
            } else {
                QVERIFY(toggle(step == 'b' ? browserModule : companionModule));
            }
            QCOMPARE(modules.loaded(), loaded);
            if (windowSteps.size() == 1) {
                QCOMPARE(running.ofBrowser(), loaded.contains(browserModule) ? allOfBrowser : QStringList());
                QCOMPARE(running.ofCompanion(),
                         loaded.contains(companionModule) ? allOfCompanion : QStringList());
            }
        }
        QCOMPARE(isMapped(browserModule), loaded.contains(browserModule));
        QCOMPARE(isMapped(companionModule), loaded.contains(companionModule));
        QCOMPARE(running.messages.filter(QRegularExpression("module")), QStringList());
    }
};

TEST_CLASS(tst_TwoModules);
#include "tst_twomodules.moc"

// SPDX-License-Identifier: MIT
#include "host/runtime/FxHost.h"
#include "host/runtime/documents/DocumentManager.h"
#include "host/runtime/modules/ModuleManager.h"
#include "tests/support/LoadedBalloon.h"
#include "tests/support/RealBrowser.h"
#include "tests/support/TestCase.h"

#include <QApplication>
#include <QCursor>
#include <QDialog>
#include <QMenu>
#include <QProcess>
#include <QSet>
#include <QTemporaryDir>
#include <QToolButton>

#include <dlfcn.h>

//! The built library comes, is used and goes while the program runs, over and over.
class tst_ModuleLife : public TestCase
{
    Q_OBJECT

private slots:
    void twoHundredLivesLeaveNothingBehind();
    void aHostMayBeAStaticObject_data();
    void aHostMayBeAStaticObject();
};

namespace {

const QRect usualFrame(0, 0, 1300, 800);
//! Where the pointer may be without the popups' closing when they lose the focus.
const QPoint overPopups(320, 320);
const QString moduleFile = QStringLiteral(MODULE_FILE);

bool libraryIsLoaded()
{
    void *library = dlopen(MODULE_FILE, RTLD_NOW | RTLD_NOLOAD);
    if (library)
        dlclose(library);
    return library != nullptr;
}

//! What is up when the module goes. Rounds go through all combinations.
struct Scene
{
    enum class State { Never, Closed, Open };
    static constexpr int states = 3;

    explicit Scene(int round)
        : popup(State(round % states)), balloon(State(round / states % states)),
          menu(State(round / (states * states) % states)), eventsAreDelivered(round % 2)
    {
    }

    State popup;
    State balloon;
    State menu;
    bool eventsAreDelivered; //!< else the module goes amid what the closing has left to do
};

void hover(QWidget *widget)
{
    QTest::mouseMove(widget);
    drainEvents();
}

//! Fills a menu as a host's own and pins a drawing in it.
void useMenu(RealBrowser &browser, QMenu &menu, Scene::State state)
{
    browser.addRecentFiles(&menu, nullptr);
    menu.popup(overPopups);
    const QList<QToolButton *> buttons = menu.findChildren<QToolButton *>();
    for (QToolButton *button : buttons) {
        if (button->objectName() != QLatin1String("menuTextButton"))
            hover(button);
        if (button->objectName() == QLatin1String("pinButton"))
            button->click();
    }
    if (state == Scene::State::Closed)
        menu.close();
}

void usePopups(RealBrowser &browser, Scene::State state)
{
    QDialog *older = browser.openPopup();
    QVERIFY(older && older->geometry().contains(overPopups));
    QCursor::setPos(overPopups);
    QDialog *popup = browser.openPopup();
    QVERIFY(popup && older != popup);
    const QList<QDialog *> tiles = RealBrowser::tiles(popup);
    QCOMPARE(tiles.size(), 2);
    for (QDialog *tile : tiles) {
        hover(tile);
        hover(RealBrowser::button(tile, "pinButton"));
        RealBrowser::button(tile, "pinButton")->click();
    }
    QTest::keyClick(popup, Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(RealBrowser::highlighted(tiles), QList<int>({0, 1}));
    if (state == Scene::State::Closed) {
        older->close();
        QTest::keyClick(popup, Qt::Key_Escape);
    }
}

//! One life, from the loading to just before the end.
void live(RealBrowser &browser, QMenu &menu, const Scene &scene)
{
    QVERIFY(browser.host().modules().loaded().contains(moduleFile) ||
            browser.host().modules().load(moduleFile));
    browser.host().documents().newDocument();
    if (scene.popup != Scene::State::Never)
        usePopups(browser, scene.popup);
    if (scene.balloon != Scene::State::Never) {
        LoadedBalloon::show(QStringLiteral("title"));
        QVERIFY(LoadedBalloon::isVisible());
    }
    if (scene.balloon == Scene::State::Closed)
        LoadedBalloon::close();
    if (scene.menu != Scene::State::Never)
        useMenu(browser, menu, scene.menu); // last: it closes when another window comes up
    if (scene.balloon == Scene::State::Open && !LoadedBalloon::isVisible())
        LoadedBalloon::show(QStringLiteral("again")); // leaving a button has hidden it
    if (scene.eventsAreDelivered) {
        drainEvents();
        browser.host().documents().newDocument(); // what is up has entries and tiles that count no longer
    }
    QCOMPARE(RealBrowser::popups().size(), scene.popup == Scene::State::Open ? 2 : 0);
    QCOMPARE(LoadedBalloon::isVisible(), scene.balloon == Scene::State::Open);
    QCOMPARE(menu.isVisible(), scene.menu == Scene::State::Open);
}

QSet<QWidget *> allWidgets()
{
    const QWidgetList widgets = QApplication::allWidgets();
    return QSet<QWidget *>(widgets.begin(), widgets.end());
}

//! Whatever of the module were left would hear of these, in code that is gone.
void restyle(int round)
{
    QFont font = QApplication::font();
    font.setPointSize(10 + round % 3);
    QApplication::setFont(font);
    QApplication::setPalette(QPalette(round % 2 ? Qt::lightGray : Qt::darkGray));
    qApp->setStyleSheet(QStringLiteral("QWidget { color: black; }"));
    drainEvents();
    qApp->setStyleSheet(QString());
    drainEvents();
}

} // namespace

void tst_ModuleLife::twoHundredLivesLeaveNothingBehind()
{
    constexpr int lives = 200;
    const Scene everythingOpen(Scene::states * Scene::states * Scene::states - 1);
    const QFont font = QApplication::font();
    const QPalette palette = QApplication::palette();
    {
        RealBrowser browser(2, usualFrame);
        {
            QMenu menu;
            live(browser, menu, everythingOpen); // in which Qt makes what it makes once
        }
        QVERIFY(browser.host().modules().unload(moduleFile));
        restyle(0);
        const QSet<QWidget *> hostsOwn = allWidgets();
        for (int round = 0; round < lives; ++round) {
            {
                QMenu menu;
                live(browser, menu, Scene(round));
                QVERIFY2(!QTest::currentTestFailed(), qPrintable(QString::number(round)));
                QVERIFY(browser.host().modules().unload(moduleFile));
                QVERIFY(!libraryIsLoaded());
                restyle(round);
            }
            QCOMPARE(allWidgets(), hostsOwn);
            browser.host().documents().closeAll();
        }
        QCOMPARE(browser.log().filter(QStringLiteral("unloaded")).size(), lives + 1);
        // The last one goes with the host.
        QMenu menu;
        live(browser, menu, everythingOpen);
    }
    QVERIFY(!libraryIsLoaded());
    restyle(lives);
    QApplication::setFont(font);
    QApplication::setPalette(palette);
}

void tst_ModuleLife::aHostMayBeAStaticObject_data()
{
    QTest::addColumn<QString>("end");
    QTest::addColumn<bool>("hasDrawing");
    QTest::addColumn<bool>("isEarly");
    for (const char *end : {"delete", "keep"}) {
        for (const bool isEarly : {false, true}) {
            const char *when = isEarly ? "loaded before main()" : "loaded in main()";
            QTest::addRow("%s, %s", end, when) << QString::fromLatin1(end) << false << isEarly;
            QTest::addRow("%s, %s, with a recent document", end, when)
                << QString::fromLatin1(end) << true << isEarly;
        }
    }
}

void tst_ModuleLife::aHostMayBeAStaticObject()
{
    QFETCH(QString, end);
    QFETCH(bool, hasDrawing);
    QFETCH(bool, isEarly);
    const QTemporaryDir folder;
    QStringList arguments{moduleFile, folder.filePath(QStringLiteral("profile")), end};
    QFile drawing(folder.filePath(QStringLiteral("plan.dwg")));
    QVERIFY(drawing.open(QIODevice::WriteOnly) && drawing.write(RealBrowser::drawingBytes(1)) > 0);
    drawing.close();
    if (hasDrawing)
        arguments.append(drawing.fileName());
    QProcess program;
    program.setProcessChannelMode(QProcess::ForwardedChannels);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    if (isEarly)
        environment.insert(QStringLiteral("EARLY_MODULE"), moduleFile);
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(STATIC_HOST), arguments);
    QVERIFY(program.waitForFinished(-1));
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 0);
}

QTEST_MAIN(tst_ModuleLife)
#include "tst_modulelife.moc"

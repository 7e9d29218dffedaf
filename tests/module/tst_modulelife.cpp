// SPDX-License-Identifier: MIT
#include "host/runtime/commands/CommandRunner.h"
#include "host/runtime/documents/DocumentManager.h"
#include "host/runtime/modules/ModuleManager.h"
#include "tests/support/TestCase.h"
#include "tests/support/real/RealBrowser.h"

#include <QApplication>
#include <QCursor>
#include <QDialog>
#include <QMenu>
#include <QToolButton>

#include <dlfcn.h>

#include <algorithm>
#include <random>

namespace {

//! With the pointer over them, popups stay open when they lose the focus.
const QRect mainWindow(0, 0, 1300, 800);
const QPoint overPopups(320, 320); // in it

bool libraryIsLoaded(const char *name = MODULE_FILE)
{
    void *library = dlopen(name, RTLD_NOW | RTLD_NOLOAD);
    if (library)
        dlclose(library);
    return library != nullptr;
}

bool imagesAreThere()
{
    return QFile::exists(":/Images/Resources/VELA_DWG.png");
}

//! The function's offset in the library, in bytes.
std::ptrdiff_t offsetOfShowBalloon()
{
    QProcess nm;
    nm.start(NM_PROGRAM, {MODULE_FILE});
    if (!nm.waitForFinished())
        qFatal("%s cannot be run", NM_PROGRAM);
    const QList<QByteArray> lines = nm.readAllStandardOutput().split('\n');
    for (const QByteArray &line : lines) {
        if (line.endsWith(" _ZN11QBalloonTip11showBalloonERK6QImageRK7QStringS5_RK6QPointib"))
            return line.left(line.indexOf(' ')).toLongLong(nullptr, 16);
    }
    qFatal("the module has no balloon");
}

//! The library's address in memory.
char *addressOfModule()
{
    void *library = dlopen(MODULE_FILE, RTLD_NOW | RTLD_NOLOAD);
    Dl_info object;
    if (!library || dladdr(dlsym(library, "odrxGetAPIVersion"), &object) == 0)
        qFatal("the module is not loaded");
    dlclose(library); // the host holds it
    return static_cast<char *>(object.dli_fbase);
}

QWidget *balloon()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (window->inherits("QBalloonTip") && window->isVisible())
            return window;
    }
    return nullptr;
}

//! Shows the balloon inside the loaded module. The module itself shows none, and the library does not export
//! the function, so it is found by its offset in the file's symbol table.
void showBalloon(const QString &title)
{
    static const std::ptrdiff_t offset = offsetOfShowBalloon();
    using ShowBalloon = void (*)(const QImage &, const QString &, const QString &, const QPoint &, int, bool);
    QImage picture(20, 10, QImage::Format_RGB32);
    picture.fill(Qt::blue);
    reinterpret_cast<ShowBalloon>(addressOfModule() + offset)(picture, title, "text", QPoint(10, 10), -1,
                                                              true);
}

//! What is open when the module is unloaded. The rounds cover all combinations.
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
    bool eventsAreDelivered; //!< otherwise events of the closing are pending
};
using State = Scene::State;

void hover(QWidget *widget)
{
    QTest::mouseMove(widget);
    drainEvents();
}

//! Fills a menu of the host and pins a drawing in it.
void useMenu(RealBrowser &browser, QMenu &menu, State state)
{
    browser.addRecentFiles(&menu, nullptr);
    menu.popup(overPopups);
    const QList<QToolButton *> buttons = menu.findChildren<QToolButton *>();
    for (QToolButton *button : buttons) {
        if (button->objectName() != "menuTextButton")
            hover(button);
        if (button->objectName() == "pinButton")
            button->click();
    }
    if (state == State::Closed)
        menu.close();
}

void usePopups(RealBrowser &browser, State state)
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
    if (state == State::Closed) {
        older->close();
        QTest::keyClick(popup, Qt::Key_Escape);
    }
}

//! Loads the module and uses it.
void use(RealBrowser &browser, QMenu &menu, const Scene &scene)
{
    fxhost::ModuleManager &modules = browser.host().modules();
    QVERIFY(modules.loaded().contains(MODULE_FILE) || modules.load(MODULE_FILE));
    QVERIFY(imagesAreThere());
    browser.host().documents().newDocument();
    if (scene.popup != State::Never)
        usePopups(browser, scene.popup);
    if (scene.balloon != State::Never) {
        showBalloon("title");
        QVERIFY(balloon());
    }
    if (scene.balloon == State::Closed)
        balloon()->close();
    if (scene.menu != State::Never)
        useMenu(browser, menu, scene.menu); // last: it closes when another window opens
    if (scene.balloon == State::Open && !balloon())
        showBalloon("again"); // leaving a button has hidden it
    if (scene.eventsAreDelivered) {
        drainEvents();
        browser.host()
            .documents()
            .newDocument(); // entries and tiles on screen are not in the registry any longer
    }
    QCOMPARE(RealBrowser::popups().size(), scene.popup == State::Open ? 2 : 0);
    QCOMPARE(balloon() != nullptr, scene.balloon == State::Open);
    QCOMPARE(menu.isVisible(), scene.menu == State::Open);
}

QSet<QWidget *> allWidgets()
{
    const QWidgetList widgets = QApplication::allWidgets();
    return QSet<QWidget *>(widgets.begin(), widgets.end());
}

//! Notifies every widget, which would crash in a widget of the unloaded module.
void restyle(int round)
{
    QFont font = QApplication::font();
    font.setPointSize(10 + round % 3);
    QApplication::setFont(font);
    QApplication::setPalette(QPalette(round % 2 ? Qt::lightGray : Qt::darkGray));
    qApp->setStyleSheet("QWidget { color: black; }");
    drainEvents();
    qApp->setStyleSheet(QString());
    drainEvents();
}

constexpr int tilesOfEach = 3;

using PopupEnd = void (*)(QDialog *popup);
const PopupEnd popupEnds[] = {
    [](QDialog *popup) { popup->close(); },
    [](QDialog *popup) { QTest::keyClick(popup, Qt::Key_Escape); },
    [](QDialog *popup) { popup->deleteLater(); },
    [](QDialog *popup) { delete popup; },
    [](QDialog *popup) {
        popup->close();
        popup->deleteLater();
    },
};

//! A popup and all its children.
QVector<QPointer<QWidget>> partsOf(QDialog *popup)
{
    QVector<QPointer<QWidget>> parts{popup};
    const QList<QWidget *> children = popup->findChildren<QWidget *>();
    std::copy(children.begin(), children.end(), std::back_inserter(parts));
    return parts;
}

//! What the user does with another popup meanwhile.
void useTile(QWidget *popup, unsigned choice)
{
    QDialog *tile = RealBrowser::tiles(popup).at(static_cast<int>(choice % tilesOfEach));
    QTest::mouseMove(tile);
    QTest::mouseClick(tile, Qt::LeftButton, choice % 2 ? Qt::ControlModifier : Qt::NoModifier, QPoint(5, 5));
    QTest::keyClick(popup, Qt::Key_Right);
    RealBrowser::button(tile, "pinButton")->click();
}

} // namespace

//! The built library is loaded, used and unloaded again and again; and many popups are closed in any order
//! and in every way.
class tst_ModuleLife : public TestCase
{
    Q_OBJECT

private slots:
    void twoHundredLoadsLeaveNothingBehind()
    {
        constexpr int rounds = 200;
        const Scene everythingOpen(Scene::states * Scene::states * Scene::states - 1);
        const QFont font = QApplication::font();
        const QPalette palette = QApplication::palette();
        {
            RealBrowser browser(2, mainWindow);
            {
                QMenu menu;
                use(browser, menu, everythingOpen); // Qt's objects of first use
            }
            QVERIFY(browser.host().modules().unload(MODULE_FILE));
            restyle(0);
            const QSet<QWidget *> ofHost = allWidgets();
            for (int round = 0; round < rounds; ++round) {
                {
                    QMenu menu;
                    use(browser, menu, Scene(round));
                    QVERIFY2(!QTest::currentTestFailed(), qPrintable(QString::number(round)));
                    QVERIFY(browser.host().modules().unload(MODULE_FILE));
                    QVERIFY(!libraryIsLoaded() && !imagesAreThere());
                    restyle(round);
                }
                QCOMPARE(allWidgets(), ofHost);
                browser.host().documents().closeAll();
            }
            QCOMPARE(browser.log().filter("unloaded").size(), rounds + 1);
            // The last one is unloaded with the host.
            QMenu menu;
            use(browser, menu, everythingOpen);
        }
        QVERIFY(!libraryIsLoaded());
        // Only the module uses this here, and a worker thread may still be returning from it.
        QVERIFY(libraryIsLoaded("libQt5Concurrent.so.5"));
        restyle(rounds);
        QApplication::setFont(font);
        QApplication::setPalette(palette);
    }

    void aHostMayBeAStaticObject_data()
    {
        QTest::addColumn<QString>("end");
        QTest::addColumn<bool>("hasDrawing");
        QTest::addColumn<bool>("isEarly");
        for (int i = 0; i < 8; ++i) {
            const char *end = i & 4 ? "delete" : "keep";
            QTest::addRow("%s%s%s", end, i & 2 ? ", with a recent document" : "",
                          i & 1 ? ", loaded before main()" : "")
                << end << bool(i & 2) << bool(i & 1);
        }
    }

    void aHostMayBeAStaticObject()
    {
        QFETCH(QString, end);
        QFETCH(bool, hasDrawing);
        QFETCH(bool, isEarly);
        const QTemporaryDir folder;
        QStringList arguments{MODULE_FILE, folder.filePath("profile"), end};
        QFile drawing(folder.filePath("plan.dwg"));
        QVERIFY(drawing.open(QIODevice::WriteOnly) && drawing.write(RealBrowser::drawingBytes(1)) > 0);
        drawing.close();
        if (hasDrawing)
            arguments.append(drawing.fileName());
        QProcess program;
        program.setProcessChannelMode(QProcess::ForwardedChannels);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        if (isEarly)
            environment.insert("EARLY_MODULE", MODULE_FILE);
        program.setProcessEnvironment(environment);
        program.start(STATIC_HOST, arguments);
        QVERIFY(program.waitForFinished(-1));
        QCOMPARE(program.exitStatus(), QProcess::NormalExit);
        QCOMPARE(program.exitCode(), 0);
    }

    void eachOfManyPopupsIsDeletedWithItsChildren()
    {
        for (unsigned seed = 1; seed <= 3; ++seed) {
            constexpr int popupCount = 50;
            std::mt19937 random(seed); // the same numbers everywhere
            const auto below = [&random](int end) { return static_cast<int>(random() % unsigned(end)); };
            RealBrowser browser(tilesOfEach, mainWindow);
            QVERIFY(browser.openPopup());
            QCursor::setPos(overPopups);
            for (int i = 1; i < popupCount; ++i)
                browser.host().commands().runLine("_RECENT");
            drainEvents();

            QVector<QVector<QPointer<QWidget>>> popups;
            const QList<QDialog *> opened = RealBrowser::popups();
            for (QDialog *popup : opened)
                popups.append(partsOf(popup));
            QCOMPARE(popups.size(), popupCount);
            const auto partCount = popups.first().size();

            for (int i = popupCount - 1; i > 0; --i)
                std::swap(popups[i], popups[below(i + 1)]);
            while (!popups.isEmpty()) {
                const QVector<QPointer<QWidget>> ended = popups.takeLast();
                QVERIFY(ended.first());
                if (popups.size() % 7 == 0)
                    browser.host().documents().newDocument();
                popupEnds[below(std::size(popupEnds))](qobject_cast<QDialog *>(ended.first()));
                drainEvents();
                QCOMPARE(ended.count(nullptr), partCount);
                for (const QVector<QPointer<QWidget>> &other : qAsConst(popups))
                    QCOMPARE(other.count(nullptr), 0);
                if (!popups.isEmpty())
                    useTile(popups.at(below(popups.size())).first(), static_cast<unsigned>(random()));
            }
            QVERIFY(RealBrowser::popups().isEmpty());
            QCOMPARE(browser.log().filter("open "), QStringList());
            QVERIFY(browser.openPopup()); // the next one works
            QCOMPARE(RealBrowser::tiles(RealBrowser::popups().constFirst()).size(), tilesOfEach);
        }
    }
};

TEST_CLASS(tst_ModuleLife);
#include "tst_modulelife.moc"

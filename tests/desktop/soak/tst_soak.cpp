// SPDX-License-Identifier: MIT
#include "host/runtime/commands/CommandRunner.h"
#include "host/runtime/documents/DocumentManager.h"
#include "tests/desktop/soak/SoakHost.h"
#include "tests/desktop/soak/SoakPlan.h"
#include "tests/support/DragHand.h"
#include "tests/support/Hand.h"
#include "tests/support/RealBrowser.h"
#include "tests/support/TestCase.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QThread>

#include <sys/stat.h>
#include <unistd.h>

//! A long day: random input, drawings, files, screens, and the module coming and going, with what must always
//! hold looked at after each step. From the environment: SOAK_SECONDS, how long (20); SOAK_SEED, which day;
//! SOAK_STEPS, after how many steps to end at the latest, so that a day that ended badly can be had again.
class tst_Soak : public TestCase
{
    Q_OBJECT

private slots:
    void aLongDay();
};

namespace {

//! How long something may take that comes by itself, in milliseconds, on a busy machine too.
constexpr int patience = 20000;

//! How long a day is in a run of all tests.
constexpr int usualSeconds = 20;

int fromEnvironment(const char *name, int usual)
{
    bool ok = false;
    const int value = qEnvironmentVariableIntValue(name, &ok);
    return ok ? value : usual;
}

//! The person at the display. In a thread of its own, because a drag keeps the GUI thread in its own loop.
class Person : public QThread
{
public:
    Person(SoakHost &soak, quint32 seed) : m_soak(soak), m_plan(seed) {}

    int seconds = 0;
    int mostSteps = 0;

    int steps = 0;
    int events = 0; //!< of input: keys, buttons and moves
    int drags = 0;
    int openings = 0; //!< of drawings, refused ones too
    QString problem;

protected:
    void run() override;

private:
    //! Runs something on the GUI thread, between its events, and waits for it.
    template<class Work>
    static void gui(Work work)
    {
        QMetaObject::invokeMethod(qApp, work, Qt::BlockingQueuedConnection);
    }
    //! The same until it says true. \return whether it did
    template<class Condition>
    static bool guiUntil(Condition condition)
    {
        QElapsedTimer waiting;
        waiting.start();
        bool holds = false;
        for (gui([&] { holds = condition(); }); !holds && !waiting.hasExpired(patience);
             gui([&] { holds = condition(); }))
            msleep(5);
        return holds;
    }
    //! Waits until the GUI thread has had what the display has.
    static void settle()
    {
        for (int i = 0; i < 3; ++i)
            gui([] { QCoreApplication::sendPostedEvents(); });
    }
    //! Waits until a popup that has just come has the keyboard, or is gone again.
    void welcomePopup();

    QPoint place(double x, double y) const;
    void perform(const SoakStep &step);
    void key(int choice);
    void click(const SoakStep &step);
    void drag(const SoakStep &step);
    void command(int choice);
    void file(int choice) const;
    void screen(int choice);
    void pressed(int count) { events += count; }
    bool popupHasTheKeyboard();

    SoakHost &m_soak;
    SoakPlan m_plan;
    QStringList m_mayOpen;     //!< what this step may open, in this order
    bool m_mustOpen = false;   //!< all of it
    bool m_mayOpenAny = false; //!< or any one of it
};

void Person::run()
{
    QFile log(QStringLiteral("soak.log"));
    if (!log.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered))
        qFatal("soak.log cannot be written");
    QElapsedTimer day;
    day.start();
    while (problem.isEmpty() && !day.hasExpired(qint64(seconds) * 1000) &&
           (mostSteps == 0 || steps < mostSteps)) {
        const SoakStep step = m_plan.next();
        ++steps;
        log.write(QStringLiteral("%1 %2\n").arg(steps).arg(step.text()).toUtf8());
        m_mayOpen.clear();
        m_mustOpen = m_mayOpenAny = false;
        perform(step);
        settle();
        welcomePopup();
        if (problem.isEmpty())
            gui([&] { problem = m_soak.problem(); });
        if (problem.isEmpty() && !guiUntil([&] { return !m_soak.isWaitingForDeletion(); }))
            problem = QStringLiteral("a closed popup's widgets are still there");
        QStringList opened;
        const auto isAsItShould = [&] {
            opened += m_soak.takeOpened();
            if (m_mustOpen)
                return opened == m_mayOpen;
            if (m_mayOpenAny)
                return opened.size() <= 1 && (opened.isEmpty() || m_mayOpen.contains(opened.constFirst()));
            return opened.isEmpty();
        };
        if (problem.isEmpty() && !guiUntil(isAsItShould)) {
            problem = QStringLiteral("opened: %1; highlighted: %2")
                          .arg(opened.join(QLatin1String(", ")), m_mayOpen.join(QLatin1String(", ")));
        }
        openings += opened.size();
        // A desk that is full.
        gui([&] {
            if (m_soak.host().documents().documents().size() > 20)
                m_soak.host().documents().closeAll();
        });
        if (!problem.isEmpty()) {
            log.write(problem.toUtf8() + '\n');
            gui([] { Hand::keepScreenshot(QStringLiteral("soak-problem")); });
        }
    }
}

QPoint Person::place(double x, double y) const
{
    QRect target;
    gui([&] { target = m_soak.target(); });
    return target.topLeft() + QPoint(int(x * target.width()), int(y * target.height()));
}

void Person::perform(const SoakStep &step)
{
    switch (step.kind) {
    case SoakStep::Kind::Key:
        key(step.choice);
        break;
    case SoakStep::Kind::Click:
        click(step);
        break;
    case SoakStep::Kind::ClickTwice:
        gui([&] { m_mayOpen = m_soak.shown(); });
        m_mayOpenAny = true;
        Hand::moveTo(place(step.x, step.y));
        Hand::doubleClick();
        pressed(5);
        break;
    case SoakStep::Kind::Hover:
        Hand::moveTo(place(step.x, step.y));
        pressed(1);
        break;
    case SoakStep::Kind::Drag:
        drag(step);
        break;
    case SoakStep::Kind::Command:
        command(step.choice);
        break;
    case SoakStep::Kind::File:
        file(step.choice);
        break;
    case SoakStep::Kind::Module:
        gui([&] { m_soak.toggleModule(); });
        break;
    case SoakStep::Kind::Screen:
        screen(step.choice);
        break;
    }
}

void Person::welcomePopup()
{
    const bool isSettled = guiUntil([&] {
        const QDialog *popup = m_soak.popup();
        return !popup || m_soak.isKnown(popup) || QApplication::activeWindow() == popup;
    });
    if (!isSettled)
        problem = QStringLiteral("a popup does not get the keyboard");
}

//! Whether a popup gets the next key. The window manager may be about to give the keyboard to somebody else,
//! so this waits until the display and the program agree on who has it.
bool Person::popupHasTheKeyboard()
{
    bool isPopup = false;
    const bool agreed = guiUntil([&] {
        QWidget *active = QApplication::activeWindow();
        QProcess xdotool;
        xdotool.start(QStringLiteral("xdotool"), {QStringLiteral("getwindowfocus")});
        xdotool.waitForFinished();
        const WId focus = xdotool.readAllStandardOutput().trimmed().toULongLong();
        const QList<QDialog *> popups = RealBrowser::popups();
        isPopup = active && popups.contains(qobject_cast<QDialog *>(active));
        return active && active->winId() == focus;
    });
    return agreed && isPopup;
}

void Person::key(int choice)
{
    static const char *const keys[] = {
        "Right", "Right",       "Left",       "Down",       "Up",           "Tab", "Tab",    "shift+Right",
        "space", "shift+Right", "shift+Left", "ctrl+Right", "control+Left", "F4",  "Escape", "Return",
        "F4",    "F4",          "F6",         "x",          "Home",         "F4",  "Next",   "BackSpace"};
    const char *key = keys[std::size_t(choice) % std::size(keys)];
    if (qstrcmp(key, "Return") == 0 && popupHasTheKeyboard()) {
        gui([&] { m_mayOpen = m_soak.highlighted(); });
        m_mustOpen = true;
    }
    Hand::key(QLatin1String(key));
    pressed(2);
}

void Person::click(const SoakStep &step)
{
    static const char *const modifiers[] = {"", "", "", "ctrl", "shift"};
    const QString modifier = QLatin1String(modifiers[std::size_t(step.choice) % std::size(modifiers)]);
    const int button = step.choice % 11 == 0 ? 3 : step.choice % 13 == 0 ? 2 : 1;
    Hand::moveTo(place(step.x, step.y));
    // Two clicks at one place in a moment are a double-click.
    gui([&] { m_mayOpen = m_soak.shown(); });
    m_mayOpenAny = true;
    if (!modifier.isEmpty())
        Hand::holdKey(modifier);
    Hand::click(button);
    if (!modifier.isEmpty())
        Hand::releaseKey(modifier);
    pressed(modifier.isEmpty() ? 3 : 5);
}

void Person::drag(const SoakStep &step)
{
    constexpr int strides = 24;
    QRect tile;
    QRect area;
    gui([&] {
        tile = m_soak.tile(step.choice);
        area = m_soak.area();
    });
    const QPoint from = tile.topLeft() + QPoint(int(step.x * tile.width()), int(step.y * tile.height()));
    const QPoint to = area.topLeft() + QPoint(int(step.toX * area.width()), int(step.toY * area.height()));
    Hand::moveTo(from);
    Hand::press();
    for (int i = 1; i <= strides; ++i) {
        Hand::moveTo(from + (to - from) * i / strides);
        settle();
    }
    gui([&] {
        m_mayOpen = m_soak.highlighted();
        drags += DragHand::isDragging();
    });
    if (step.choice % 4 == 0)
        Hand::key(QStringLiteral("Escape"));
    Hand::release();
    pressed(strides + 3);
    if (!guiUntil([] { return !DragHand::isDragging(); }))
        problem = QStringLiteral("a drag does not end");
    settle();
    // Whether it went out of the popup, and not within or from something else, is the popup's to say.
    QStringList opened;
    gui([&] { opened = m_soak.takeOpened(); });
    openings += opened.size();
    if (!opened.isEmpty() && opened != m_mayOpen) {
        problem = QStringLiteral("a drag opened: %1; highlighted: %2")
                      .arg(opened.join(QLatin1String(", ")), m_mayOpen.join(QLatin1String(", ")));
    }
    m_mayOpen.clear();
}

void Person::command(int choice)
{
    const QStringList paths = m_soak.paths();
    const QString &path = paths.at(choice / 16 % paths.size());
    QString line;
    switch (choice % 16) {
    case 0:
    case 1:
    case 2:
    case 3:
        line = QStringLiteral("_OPEN ") + path;
        m_mayOpen = QStringList(path);
        m_mustOpen = true;
        break;
    case 4:
    case 5:
        line = QStringLiteral("_CLOSE");
        break;
    case 6:
        line = QStringLiteral("_NEW");
        break;
    case 7:
        line = QStringLiteral("_CASCADE");
        break;
    case 8:
        line = QStringLiteral("_RECENTLIMIT %1").arg(1 + choice / 16 % 24);
        break;
    case 9:
        line = QStringLiteral("_RECENTADD ") + path + QStringLiteral(" (not there)");
        break;
    case 10:
        line = QStringLiteral("_RHELP");
        break;
    case 11:
        line = QStringLiteral("^C^C_TILE");
        break;
    default:
        line = QStringLiteral("^C^C_RECENT");
        break;
    }
    gui([&] { m_soak.host().commands().runLine(line); });
}

void Person::file(int choice) const
{
    const QStringList paths = m_soak.paths();
    const QString &path = paths.at(choice / 16 % paths.size());
    const QByteArray name = QFile::encodeName(path);
    const auto write = [&](const QByteArray &bytes) {
        QFile file(path);
        if (file.open(QIODevice::WriteOnly))
            file.write(bytes);
    };
    ::unlink(name.constData());
    ::rmdir(name.constData());
    const QByteArray bytes = SoakHost::drawingBytes(choice);
    switch (choice % 16) {
    case 0:
        break; // it has vanished
    case 1:
        write(bytes.left(choice % bytes.size()));
        break;
    case 2:
        write(QByteArray(1000, char(choice)));
        break;
    case 3:
        ::mkfifo(name.constData(), S_IRUSR | S_IWUSR);
        break;
    case 4:
        ::mkdir(name.constData(), S_IRWXU);
        break;
    case 5:
        if (::symlink(name.constData(), name.constData()) != 0) // to itself
            write({});
        break;
    case 6:
        write({});
        break;
    default:
        write(bytes);
        break;
    }
}

void Person::screen(int choice)
{
    const char *mode = choice % 2 ? "soak" : "1920x1200";
    QProcess::execute(QStringLiteral("xrandr"), {QStringLiteral("--output"), QStringLiteral("screen"),
                                                 QStringLiteral("--mode"), QLatin1String(mode)});
}

} // namespace

void tst_Soak::aLongDay()
{
    // A smaller screen for now and then; its numbers are those of any 1024x768 screen.
    QProcess::execute(QStringLiteral("sh"),
                      {QStringLiteral("-c"),
                       QStringLiteral("xrandr --newmode soak 63.5 1024 1072 1176 1328 768 771 775 798 &&"
                                      "xrandr --addmode screen soak")});
    const auto seed = quint32(fromEnvironment("SOAK_SEED", 20261121));
    SoakHost soak;
    Person person(soak, seed);
    person.seconds = fromEnvironment("SOAK_SECONDS", usualSeconds);
    person.mostSteps = fromEnvironment("SOAK_STEPS", 0);
    QEventLoop day;
    connect(&person, &QThread::finished, &day, &QEventLoop::quit);
    person.start();
    day.exec();
    person.wait();
    qInfo("seed %u: %d steps, %d input events, %d popups, %d drags, %d drawings opened or refused", seed,
          person.steps, person.events, soak.popupsSeen(), person.drags, person.openings);
    QVERIFY2(person.problem.isEmpty(),
             qPrintable(QStringLiteral("step %1: %2").arg(person.steps).arg(person.problem)));
    QVERIFY(person.events > 0 && soak.popupsSeen() > 0);
}

QTEST_MAIN(tst_Soak)
#include "tst_soak.moc"

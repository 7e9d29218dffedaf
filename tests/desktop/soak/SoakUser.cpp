// SPDX-License-Identifier: MIT
#include "tests/desktop/soak/SoakUser.h"

#include "host/app/HelpWindow.h"
#include "host/runtime/commands/CommandRunner.h"
#include "host/runtime/documents/DocumentManager.h"
#include "tests/desktop/Hand.h"
#include "tests/desktop/HandDrag.h"
#include "tests/support/real/RealBrowser.h"

#include <QApplication>
#include <QPointer>
#include <QProcess>

#include <algorithm>
#include <utility>

#include <sys/stat.h>
#include <unistd.h>

namespace {

//! Whether the help window that was just opened has the keyboard; true without one.
bool helpHasTheKeyboard()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto help = std::find_if(windows.begin(), windows.end(), [](const QWidget *window) {
        return window->isVisible() && qobject_cast<const fxhost::HelpWindow *>(window);
    });
    return help == windows.end() || (*help)->isActiveWindow();
}

} // namespace

bool SoakUser::guiUntil(const std::function<bool()> &condition, int limit)
{
    constexpr int pause = 5; // ms
    QElapsedTimer waiting;
    waiting.start();
    bool holds = false;
    for (gui([&] { holds = condition(); }); !holds && !waiting.hasExpired(limit);
         gui([&] { holds = condition(); }))
        msleep(pause);
    return holds;
}

void SoakUser::settle()
{
    for (int i = 0; i < 3; ++i)
        gui([] { QCoreApplication::sendPostedEvents(); });
}

void SoakUser::awaitInput(const std::function<bool()> &arrived)
{
    constexpr int moment = 1000; // ms
    unreceived += !guiUntil(arrived, m_isDragging ? patience : moment);
}

void SoakUser::moveTo(const QPoint &place)
{
    Hand::moveTo(place);
    ++events;
    awaitInput([&] {
        const bool wasDragging = std::exchange(m_isDragging, HandDrag::isDragging());
        if (!m_isDragging)
            return m_arrivals.pointer() == place || !QApplication::topLevelAt(place);
        if (!wasDragging)
            m_hotSpot = place - HandDrag::pictureAt();
        return HandDrag::pictureAt() + m_hotSpot == place;
    });
}

void SoakUser::input(int releases, const std::function<void()> &action)
{
    int before = 0;
    gui([&] { before = m_arrivals.releases(); });
    action();
    events += 2 * releases;
    awaitInput([&] { return m_arrivals.releases() >= before + releases; });
}

void SoakUser::writeLog(const QString &text)
{
    m_log.write(QString("  ").append(text).append('\n').toUtf8());
}

void SoakUser::expectDoubleClick(const QPoint &place)
{
    const bool isSoon =
        m_sincePress.isValid() && !m_sincePress.hasExpired(qint64(2) * QApplication::doubleClickInterval());
    constexpr int near = 20; // pixels; Qt's own distance is less
    m_mayOpenAny = isSoon && (place - m_lastPress).manhattanLength() < near;
    if (m_mayOpenAny)
        gui([&] { m_mayOpen = m_soak.shown(); });
    m_lastPress = place;
    m_sincePress.start();
}

void SoakUser::run()
{
    m_log.setFileName("soak.log");
    if (!m_log.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered))
        qFatal("soak.log cannot be written");
    QElapsedTimer day;
    day.start();
    while (problem.isEmpty() && (seconds == 0 || !day.hasExpired(qint64(seconds) * 1000)) &&
           (mostSteps == 0 || steps < mostSteps)) {
        const Action &action = nextAction();
        const SoakStep step = nextStep();
        ++steps;
        m_log.write(QString::asprintf("%d %s %d at %.2f,%.2f to %.2f,%.2f\n", steps, action.name, step.choice,
                                      step.x, step.y, step.toX, step.toY)
                        .toUtf8());
        m_mayOpen.clear();
        m_mustOpen = m_mayOpenAny = false;
        (this->*action.run)(step);
        settle();
        awaitPopup();
        if (problem.isEmpty())
            gui([&] { problem = m_soak.problem(); });
        if (problem.isEmpty() && !guiUntil([&] { return !m_soak.isWaitingForDeletion(); }))
            problem = "a closed popup's widgets are still there";
        checkOpened();
        // Keeps the number of open drawings bounded.
        gui([&] {
            if (m_soak.host().documents().documents().size() > 20)
                m_soak.host().documents().closeAll();
        });
        if (!problem.isEmpty()) {
            m_log.write(problem.toUtf8() + '\n');
            gui([] { Hand::keepScreenshot("soak-problem"); });
        }
    }
}

void SoakUser::checkOpened()
{
    QStringList opened;
    const auto isAsExpected = [&] {
        opened += m_soak.takeOpened();
        if (m_mustOpen)
            return opened == m_mayOpen;
        if (m_mayOpenAny)
            return opened.size() <= 1 && (opened.isEmpty() || m_mayOpen.contains(opened.constFirst()));
        return opened.isEmpty();
    };
    if (problem.isEmpty() && !guiUntil(isAsExpected)) {
        problem = QString("opened: %1; highlighted: %2").arg(opened.join(", "), m_mayOpen.join(", "));
    }
    openings += opened.size();
    for (const QString &path : qAsConst(opened))
        writeLog(QString("opened ") + path);
}

const SoakUser::Action SoakUser::actions[] = {
    {"key", 40, &SoakUser::key},
    {"click", 16, &SoakUser::click},
    {"double-click", 3, &SoakUser::clickTwice},
    {"hover", 14, &SoakUser::hover},
    {"drag", 6, &SoakUser::drag},
    {"command", 18, &SoakUser::command},
    {"file", 8, &SoakUser::file},
    {"module", 1, &SoakUser::module},
    {"screen", 1, &SoakUser::screen},
};

const SoakUser::Action &SoakUser::nextAction()
{
    int sum = 0;
    for (const Action &action : actions)
        sum += action.weight;
    const Action *action = actions;
    for (int left = m_random.bounded(sum); left >= action->weight; ++action)
        left -= action->weight;
    return *action;
}

SoakStep SoakUser::nextStep()
{
    constexpr int choices = 100000;
    SoakStep step{};
    step.choice = m_random.bounded(choices);
    for (double *number : {&step.x, &step.y, &step.toX, &step.toY})
        *number = m_random.generateDouble();
    return step;
}

QPoint SoakUser::place(const SoakStep &step) const
{
    QRect target;
    gui([&] { target = m_soak.target(); });
    return target.topLeft() + QPoint(int(step.x * target.width()), int(step.y * target.height()));
}

void SoakUser::awaitPopup()
{
    const bool isSettled = guiUntil([&] {
        const QDialog *popup = m_soak.popup();
        return !popup || m_soak.isKnown(popup) || QApplication::activeWindow() == popup;
    });
    if (!isSettled)
        problem = "a popup does not get the keyboard";
}

//! Whether a popup gets the next key. The window manager may be about to move the focus, so this waits until
//! the display and the program agree on the window that has it.
bool SoakUser::popupHasTheKeyboard()
{
    bool isPopup = false;
    const bool agreed = guiUntil([&] {
        QWidget *active = QApplication::activeWindow();
        const WId focus = Hand::ask({"getwindowfocus"}).toULongLong();
        const QList<QDialog *> popups = RealBrowser::popups();
        isPopup = active && popups.contains(qobject_cast<QDialog *>(active));
        return active && active->winId() == focus;
    });
    return agreed && isPopup;
}

void SoakUser::key(const SoakStep &step)
{
    static const char *const keys[] = {
        "Right", "Right",       "Left",       "Down",       "Up",           "Tab", "Tab",    "shift+Right",
        "space", "shift+Right", "shift+Left", "ctrl+Right", "control+Left", "F4",  "Escape", "Return",
        "F4",    "F4",          "F6",         "x",          "Home",         "F4",  "Next",   "BackSpace"};
    const char *key = keys[std::size_t(step.choice) % std::size(keys)];
    if (qstrcmp(key, "Return") == 0 && popupHasTheKeyboard()) {
        gui([&] { m_mayOpen = m_soak.highlighted(); });
        m_mustOpen = true;
    }
    writeLog(QString("key ") + QLatin1String(key));
    const int releases = QLatin1String(key).contains('+') ? 2 : 1;
    input(releases, [&] { Hand::key(QLatin1String(key)); });
}

void SoakUser::click(const SoakStep &step)
{
    static const char *const modifiers[] = {"", "", "", "ctrl", "shift"};
    const QString modifier = QLatin1String(modifiers[std::size_t(step.choice) % std::size(modifiers)]);
    const int button = step.choice % 11 == 0 ? 3 : step.choice % 13 == 0 ? 2 : 1;
    const QPoint where = place(step);
    moveTo(where);
    expectDoubleClick(where);
    writeLog(QString("button %1 %2").arg(button).arg(modifier));
    input(modifier.isEmpty() ? 1 : 2, [&] {
        if (!modifier.isEmpty())
            Hand::holdKey(modifier);
        Hand::click(button);
        if (!modifier.isEmpty())
            Hand::releaseKey(modifier);
    });
}

void SoakUser::clickTwice(const SoakStep &step)
{
    const QPoint where = place(step);
    moveTo(where);
    expectDoubleClick(where);
    gui([&] {
        const QString path = m_soak.tileAt(where);
        m_mustOpen = !path.isEmpty();
        m_mayOpenAny = !m_mustOpen; // a disabled button passes the click to its tile
        m_mayOpen = m_mustOpen ? QStringList(path) : m_soak.shown();
    });
    writeLog(QString("double-click on ") + (m_mustOpen ? m_mayOpen.constFirst() : "no tile"));
    input(2, [] { Hand::doubleClick(); });
}

void SoakUser::drag(const SoakStep &step)
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
    moveTo(from);
    expectDoubleClick(from);
    QPointer<QWidget> held; // the upper one of two popups may be the older one
    gui([&] { held = QApplication::topLevelAt(from); });
    Hand::press();
    for (int i = 1; i <= strides; ++i)
        moveTo(from + (to - from) * i / strides);
    gui([&] {
        if (!m_isDragging)
            return;
        ++drags;
        // The popup decides whether the pointer is outside: then it is a strip.
        constexpr int strip = 32; // pixels
        const bool isOutside = held && held->height() == strip;
        m_mayOpenAny = false;
        m_mustOpen = true;
        m_mayOpen = isOutside ? m_soak.highlighted() : QStringList();
    });
    writeLog(QString("dragged ") + (m_mustOpen ? m_mayOpen.join(", ") : "nothing"));
    if (m_isDragging && step.choice % 4 == 0)
        Hand::key("Escape");
    Hand::release();
    events += 4;
    if (!guiUntil([] { return !HandDrag::isDragging(); }))
        problem = "a drag does not end";
    m_isDragging = false;
}

void SoakUser::command(const SoakStep &step)
{
    const int number = step.choice / 16;
    const QString path = m_soak.paths().at(number % m_soak.paths().size());
    const QString open = QString("_OPEN ") + path;
    const QStringList others{
        "_CLOSE",
        "_CLOSE",
        "_NEW",
        "_CASCADE",
        QString("_RECENTLIMIT %1").arg(1 + number % 24),
        QString("_RECENTADD %1 (missing)").arg(path),
        "_RHELP",
        "^C^C_TILE",
    };
    const int kind = step.choice % 16;
    constexpr int opens = 4; // of 16
    const QString line = kind < opens ? open : others.value(kind - opens, "^C^C_RECENT");
    m_mustOpen = kind < opens;
    if (m_mustOpen)
        m_mayOpen = QStringList(path);
    writeLog(line);
    bool givesHelp = false;
    gui([&] {
        givesHelp = line == "_RHELP" && m_soak.hasModule(); // it is the module's command
        m_soak.host().commands().runLine(line);
    });
    // Otherwise the next key might still reach the popup.
    if (givesHelp && !guiUntil(helpHasTheKeyboard))
        problem = "the help does not get the keyboard";
}

void SoakUser::file(const SoakStep &step)
{
    const int choice = step.choice;
    const QString path = m_soak.paths().at(choice / 16 % m_soak.paths().size());
    const QByteArray name = QFile::encodeName(path);
    const auto write = [&](const QByteArray &bytes) {
        QFile file(path);
        if (file.open(QIODevice::WriteOnly))
            file.write(bytes);
    };
    ::unlink(name.constData());
    ::rmdir(name.constData());
    const QByteArray bytes = RealBrowser::drawingBytes(choice);
    switch (choice % 16) {
    case 0:
        break; // deleted
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

void SoakUser::module(const SoakStep & /*step*/)
{
    gui([&] { problem = m_soak.toggleModule(); });
}

void SoakUser::screen(const SoakStep &step)
{
    const char *mode = step.choice % 2 ? "soak" : "1920x1200";
    if (QProcess::execute("xrandr", {"--output", "screen", "--mode", QLatin1String(mode)}) != 0)
        problem = "the screen cannot be resized";
    ++screens;
}

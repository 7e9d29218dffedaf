// SPDX-License-Identifier: MIT
// The user's actions besides input: commands, changed files, screens of another size.
#include "tests/desktop/soak/SoakPerson.h"

#include "host/app/HelpWindow.h"
#include "host/runtime/commands/CommandRunner.h"
#include "tests/support/real/RealBrowser.h"

#include <QApplication>
#include <QFile>
#include <QProcess>

#include <algorithm>

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

void SoakPerson::command(const SoakStep &step)
{
    const int number = step.choice / 16;
    const QString path = m_soak.paths().at(number % m_soak.paths().size());
    const QString open = QStringLiteral("_OPEN ") + path;
    const QStringList others{
        QStringLiteral("_CLOSE"),
        QStringLiteral("_CLOSE"),
        QStringLiteral("_NEW"),
        QStringLiteral("_CASCADE"),
        QStringLiteral("_RECENTLIMIT %1").arg(1 + number % 24),
        QStringLiteral("_RECENTADD %1 (missing)").arg(path),
        QStringLiteral("_RHELP"),
        QStringLiteral("^C^C_TILE"),
    };
    const int kind = step.choice % 16;
    constexpr int opens = 4; // of 16
    const QString line = kind < opens ? open : others.value(kind - opens, QStringLiteral("^C^C_RECENT"));
    m_mustOpen = kind < opens;
    if (m_mustOpen)
        m_mayOpen = QStringList(path);
    writeLog(line);
    bool givesHelp = false;
    gui([&] {
        givesHelp = line == QLatin1String("_RHELP") && m_soak.hasModule(); // it is the module's command
        m_soak.host().commands().runLine(line);
    });
    // Otherwise the next key might still reach the popup.
    if (givesHelp && !guiUntil(helpHasTheKeyboard))
        problem = QStringLiteral("the help does not get the keyboard");
}

void SoakPerson::file(const SoakStep &step)
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

void SoakPerson::module(const SoakStep & /*step*/)
{
    gui([&] { problem = m_soak.toggleModule(); });
}

void SoakPerson::screen(const SoakStep &step)
{
    const char *mode = step.choice % 2 ? "soak" : "1920x1200";
    if (QProcess::execute(QStringLiteral("xrandr"), {QStringLiteral("--output"), QStringLiteral("screen"),
                                                     QStringLiteral("--mode"), QLatin1String(mode)}) != 0)
        problem = QStringLiteral("the screen cannot be resized");
    ++screens;
}

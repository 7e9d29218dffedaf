// SPDX-License-Identifier: MIT
// What a person does besides the display's input: typed commands, files that change, screens of another size.
#include "tests/desktop/soak/SoakPerson.h"

#include "host/app/HelpWindow.h"
#include "host/runtime/commands/CommandRunner.h"
#include "tests/support/RealBrowser.h"

#include <QApplication>
#include <QFile>
#include <QProcess>

#include <algorithm>

#include <sys/stat.h>
#include <unistd.h>

namespace {

//! Whether the help window has it that has just been asked for; true where there is none.
bool helpHasTheKeyboard()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto help = std::find_if(windows.begin(), windows.end(), [](const QWidget *window) {
        return window->isVisible() && qobject_cast<const fxhost::HelpWindow *>(window);
    });
    return help == windows.end() || (*help)->isActiveWindow();
}

} // namespace

void SoakPerson::command(int choice)
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
    say(line);
    bool givesHelp = false;
    gui([&] {
        givesHelp = line == QLatin1String("_RHELP") && m_soak.hasModule(); // whose command that is
        m_soak.host().commands().runLine(line);
    });
    // Else the next key could still go to the popup, or not.
    if (givesHelp && !guiUntil(helpHasTheKeyboard))
        problem = QStringLiteral("the help does not get the keyboard");
}

void SoakPerson::file(int choice) const
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
    const QByteArray bytes = RealBrowser::drawingBytes(choice);
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

void SoakPerson::screen(int choice)
{
    const char *mode = choice % 2 ? "soak" : "1920x1200";
    if (QProcess::execute(QStringLiteral("xrandr"), {QStringLiteral("--output"), QStringLiteral("screen"),
                                                     QStringLiteral("--mode"), QLatin1String(mode)}) != 0)
        problem = QStringLiteral("the screen cannot be resized");
    ++screens;
}

// SPDX-License-Identifier: MIT
#include "tests/support/process/ProgramOnScreen.h"

#include "samples/SampleSet.h"
#include "tests/desktop/Hand.h"
#include "tests/support/Patience.h"
#include "tests/support/real/RealBrowser.h"

#include <QDir>
#include <QRegularExpression>

#include <csignal>

#include <unistd.h>

namespace {

const QString popupTitle = "RecentDocMainWindow";

} // namespace

ProgramOnScreen::ProgramOnScreen(const QStringList &names, const QString &folder)
{
    const QDir place(m_home.path(folder));
    for (const QString &name : names)
        m_paths.append(m_home.write(place.filePath(name), RealBrowser::drawingBytes(m_paths.size())));
}

ProgramOnScreen::ProgramOnScreen(int samples)
{
    for (const fxsamples::Sample &sample : fxsamples::sampleSet()) {
        if (m_paths.size() < samples)
            m_paths.append(
                m_home.write(sample.fileName.toString(),
                             fxsamples::drawingFile(fxsamples::paintPreview(sample), sample.form)));
    }
}

ProgramOnScreen::~ProgramOnScreen()
{
    if (m_process.processId() > 0)
        kill(-static_cast<pid_t>(m_process.processId()), SIGKILL);
    m_process.waitForFinished();
}

void ProgramOnScreen::Group::setupChildProcess()
{
    setpgid(0, 0);
}

bool ProgramOnScreen::start(const QStringList &script, const QStringList &around)
{
    Hand::moveTo(QPoint(0, 0));
    QStringList lines{"_DELAY 1"}; // the script starts when the program has the focus
    for (const QString &path : qAsConst(m_paths))
        lines.prepend(QString("_RECENTADD ") + path);
    lines.append(script);
    QStringList more{"--no-document"};
    if (!geometry.isEmpty())
        more << "--geometry" << geometry;
    m_home.start(m_process, {}, lines, more, around);
    const auto ranScript = [&] { return log().filter("command ").size() >= lines.size(); };
    // The program waits for the focus for a limited time only, which may not do on a busy machine.
    const auto hasKeyboard = [] { return activeTitle() == popupTitle || activeTitle().startsWith("fxhost"); };
    return m_process.waitForStarted() && waitUntil(ranScript) && waitUntil(hasKeyboard);
}

QStringList ProgramOnScreen::freshSession(const QString &name)
{
    const QDir home(QDir::current().filePath(name));
    QDir(home).removeRecursively();
    home.mkpath(".");
    QStringList session{"env"};
    for (const char *variable : {"HOME=", "XDG_RUNTIME_DIR=", "XDG_CACHE_HOME="})
        session.append(QLatin1String(variable) + home.path());
    return session << "dbus-run-session"
                   << "--";
}

void ProgramOnScreen::type(const QString &command)
{
    Hand::ask({"type", command});
    Hand::key("Return");
}

bool ProgramOnScreen::quit()
{
    type("_QUIT");
    return m_process.waitForFinished(patience) && m_process.exitStatus() == QProcess::NormalExit &&
           m_process.exitCode() == 0;
}

QStringList ProgramOnScreen::opened() const
{
    QStringList paths;
    const QStringList lines = log().filter(QRegularExpression("^open .* ok$"));
    for (const QString &line : lines)
        paths.append(line.mid(5, line.size() - 8));
    return paths;
}

WId ProgramOnScreen::findWindow(const QString &pattern)
{
    return Hand::ask({"search", "--onlyvisible", "--name", pattern}).toULongLong();
}

WId ProgramOnScreen::popup()
{
    return findWindow(QLatin1Char('^') + popupTitle + QLatin1Char('$'));
}

bool ProgramOnScreen::popupOpens()
{
    return waitUntil([] { return activeTitle() == popupTitle; });
}

bool ProgramOnScreen::popupCloses()
{
    return waitUntil([] { return popup() == 0; });
}

QString ProgramOnScreen::activeTitle()
{
    return Hand::ask({"getactivewindow", "getwindowname"});
}

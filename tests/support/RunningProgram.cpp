// SPDX-License-Identifier: MIT
#include "tests/support/RunningProgram.h"

#include "samples/SampleSet.h"
#include "tests/support/Hand.h"
#include "tests/support/Patience.h"

#include <QDir>
#include <QFile>
#include <QImage>

#include <csignal>

#include <unistd.h>

namespace {

// The grid as the popup lays it out under a header of two lines, in pixels.
constexpr int columnWidth = 181;
constexpr int tileMiddle = 91;
constexpr int firstRowMiddle = 130;

QString outputOf(const QStringList &arguments)
{
    QProcess tool;
    tool.start(QStringLiteral("xdotool"), arguments);
    tool.waitForFinished();
    return QString::fromUtf8(tool.readAllStandardOutput()).trimmed();
}

} // namespace

RunningProgram::RunningProgram(const QStringList &names, const QString &folder)
{
    const QDir dir(m_folder.filePath(folder));
    dir.mkpath(QStringLiteral("."));
    for (const QString &name : names) {
        QImage picture(180, 112, QImage::Format_RGB32);
        picture.fill(QColor::fromHsv((m_paths.size() * 67 + 180) % 360, 150, 200));
        makeDrawing(dir.filePath(name), fxsamples::drawingFile(picture, {}));
    }
}

RunningProgram::RunningProgram(int samples)
{
    for (const fxsamples::Sample &sample : fxsamples::sampleSet()) {
        if (m_paths.size() < samples)
            makeDrawing(m_folder.filePath(sample.fileName.toString()),
                        fxsamples::drawingFile(fxsamples::paintPreview(sample), sample.form));
    }
}

void RunningProgram::makeDrawing(const QString &path, const QByteArray &bytes)
{
    QFile drawing(path);
    if (!drawing.open(QIODevice::WriteOnly) || drawing.write(bytes) < 0)
        qFatal("cannot make %s", qPrintable(path));
    m_paths.append(path);
}

RunningProgram::~RunningProgram()
{
    if (m_process.processId() > 0)
        kill(-static_cast<pid_t>(m_process.processId()), SIGKILL);
    m_process.waitForFinished();
}

void RunningProgram::Group::setupChildProcess()
{
    setpgid(0, 0);
}

bool RunningProgram::start(const QStringList &script, const QStringList &around)
{
    Hand::moveTo(QPoint(0, 0));
    QStringList lines;
    for (int i = m_paths.size() - 1; i >= 0; --i)
        lines.append(QStringLiteral("_RECENTADD ") + m_paths.at(i));
    lines.append(script);
    QFile file(m_folder.filePath(QStringLiteral("script")));
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.write(lines.join(QLatin1Char('\n')).toUtf8() + '\n');
    file.close();

    QStringList command = around;
    command << QStringLiteral(FXHOST_FILE) << QStringLiteral("--profile")
            << m_folder.filePath(QStringLiteral("profile")) << QStringLiteral("--script") << file.fileName()
            << QStringLiteral("--log") << m_folder.filePath(QStringLiteral("log"))
            << QStringLiteral("--no-document");
    if (!geometry.isEmpty())
        command << QStringLiteral("--geometry") << geometry;
    const QString program = command.takeFirst();
    m_process.setProcessChannelMode(QProcess::ForwardedChannels);
    m_process.start(program, command);
    const auto ranScript = [&] { return log().filter(QStringLiteral("command ")).size() >= lines.size(); };
    return m_process.waitForStarted() && waitUntil(ranScript);
}

void RunningProgram::type(const QString &command)
{
    outputOf({QStringLiteral("type"), command});
    Hand::key(QStringLiteral("Return"));
}

bool RunningProgram::quit()
{
    type(QStringLiteral("_QUIT"));
    return m_process.waitForFinished(patience) && m_process.exitStatus() == QProcess::NormalExit &&
           m_process.exitCode() == 0;
}

QStringList RunningProgram::log() const
{
    QFile file(m_folder.filePath(QStringLiteral("log")));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

QStringList RunningProgram::opened() const
{
    QStringList paths;
    const QStringList lines = log().filter(QRegularExpression(QStringLiteral("^open .* ok$")));
    for (const QString &line : lines)
        paths.append(line.mid(5, line.size() - 8));
    return paths;
}

WId RunningProgram::findWindow(const QString &pattern)
{
    return outputOf(
               {QStringLiteral("search"), QStringLiteral("--onlyvisible"), QStringLiteral("--name"), pattern})
        .toULongLong();
}

WId RunningProgram::popup()
{
    return findWindow(QLatin1Char('^') + popupTitle() + QLatin1Char('$'));
}

QString RunningProgram::activeTitle()
{
    return outputOf({QStringLiteral("getactivewindow"), QStringLiteral("getwindowname")});
}

QPoint RunningProgram::tile(int column)
{
    return popupPlace.topLeft() + QPoint(tileMiddle + column * columnWidth, firstRowMiddle);
}

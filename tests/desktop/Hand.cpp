// SPDX-License-Identifier: MIT
#include "tests/desktop/Hand.h"

#include "tests/support/TestCase.h"

#include <QDir>
#include <QGuiApplication>
#include <QPixmap>
#include <QProcess>
#include <QRegularExpression>
#include <QScreen>
#include <QWidget>

namespace {

//! Runs a tool of the display to its end. \return what it printed
QString run(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        qFatal("%s failed: %s", qPrintable(program), process.readAllStandardError().constData());
    return QString::fromLocal8Bit(process.readAllStandardOutput());
}

//! \param words the arguments, with blanks between them
void xdotool(const QString &words)
{
    run(QStringLiteral("xdotool"), words.split(QLatin1Char(' ')));
}

} // namespace

void Hand::moveTo(const QPoint &global)
{
    const QPoint pixel = global * qGuiApp->devicePixelRatio(); // the server counts physical pixels
    // A negative number must not be taken for an option.
    xdotool(QStringLiteral("mousemove -- %1 %2").arg(pixel.x()).arg(pixel.y()));
}

void Hand::moveTo(const QWidget *widget, const QPoint &local)
{
    moveTo(widget->mapToGlobal(local));
}

void Hand::moveTo(const QWidget *widget)
{
    moveTo(widget, widget->rect().center());
}

void Hand::stepAside()
{
    moveTo(QPoint(1900, 1190));
}

void Hand::click(int button)
{
    xdotool(QStringLiteral("click %1").arg(button));
}

void Hand::doubleClick(int button)
{
    xdotool(QStringLiteral("click --repeat 2 --delay 30 %1").arg(button));
}

void Hand::press(int button)
{
    xdotool(QStringLiteral("mousedown %1").arg(button));
}

void Hand::release(int button)
{
    xdotool(QStringLiteral("mouseup %1").arg(button));
}

void Hand::key(const QString &key)
{
    xdotool(QStringLiteral("key ") + key);
}

void Hand::keys(const QStringList &keys)
{
    key(keys.join(QLatin1Char(' ')));
}

void Hand::holdKey(const QString &key)
{
    xdotool(QStringLiteral("keydown ") + key);
}

void Hand::releaseKey(const QString &key)
{
    xdotool(QStringLiteral("keyup ") + key);
}

QString Hand::ask(const QStringList &arguments)
{
    QProcess process;
    process.start(QStringLiteral("xdotool"), arguments);
    process.waitForFinished();
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

QRect Hand::realGeometry(WId window)
{
    const QString facts = run(QStringLiteral("xwininfo"), {QStringLiteral("-id"), QString::number(window)});
    const auto number = [&facts](const char *label) {
        const QRegularExpression pattern(QLatin1String(label) + QStringLiteral(":\\s*(-?\\d+)"));
        return pattern.match(facts).captured(1).toInt();
    };
    return QRect(number("Absolute upper-left X"), number("Absolute upper-left Y"), number("Width"),
                 number("Height"));
}

void Hand::keepScreenshot(const QString &name)
{
    keepScreenshot(name, QGuiApplication::primaryScreen()->virtualGeometry());
}

void Hand::keepScreenshot(const QString &name, const QRect &part)
{
    drainEvents(); // paints what has been mapped
    QDir().mkpath(QStringLiteral("screenshots"));
    QScreen *screen = QGuiApplication::primaryScreen();
    const QPoint corner = part.topLeft() - screen->geometry().topLeft();
    const QPixmap picture = screen->grabWindow(0, corner.x(), corner.y(), part.width(), part.height());
    QString file = name; // may be a row's name
    file.replace(QRegularExpression(QStringLiteral("[^A-Za-z0-9]+")), QStringLiteral("-"));
    if (!picture.save(QStringLiteral("screenshots/%1.png").arg(file)))
        qFatal("cannot keep a screenshot");
}

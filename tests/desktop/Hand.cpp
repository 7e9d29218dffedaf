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
    run("xdotool", words.split(' '));
}

} // namespace

void Hand::moveTo(const QPoint &global)
{
    const QPoint pixel = global * qGuiApp->devicePixelRatio(); // the server counts physical pixels
    // A negative number must not be taken for an option.
    xdotool(QString("mousemove -- %1 %2").arg(pixel.x()).arg(pixel.y()));
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
    xdotool(QString("click %1").arg(button));
}

void Hand::click(const QPoint &global)
{
    moveTo(global);
    click();
}

void Hand::click(const QWidget *widget)
{
    click(widget->mapToGlobal(widget->rect().center()));
}

void Hand::doubleClick(int button)
{
    xdotool(QString("click --repeat 2 --delay 30 %1").arg(button));
}

void Hand::press(int button)
{
    xdotool(QString("mousedown %1").arg(button));
}

void Hand::release(int button)
{
    xdotool(QString("mouseup %1").arg(button));
}

void Hand::key(const QString &key)
{
    xdotool(QString("key ") + key);
}

void Hand::keys(const QStringList &keys)
{
    key(keys.join(' '));
}

void Hand::holdKey(const QString &key)
{
    xdotool(QString("keydown ") + key);
}

void Hand::releaseKey(const QString &key)
{
    xdotool(QString("keyup ") + key);
}

QString Hand::ask(const QStringList &arguments)
{
    QProcess process;
    process.start("xdotool", arguments);
    process.waitForFinished();
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

QRect Hand::realGeometry(WId window)
{
    const QString facts = run("xwininfo", {"-id", QString::number(window)});
    const auto number = [&facts](const char *label) {
        const QRegularExpression pattern(QLatin1String(label) + ":\\s*(-?\\d+)");
        return pattern.match(facts).captured(1).toInt();
    };
    return QRect(number("Absolute upper-left X"), number("Absolute upper-left Y"), number("Width"),
                 number("Height"));
}

void Hand::keepScreenshot(const QString &name, const QRect &part)
{
    drainEvents(); // paints what has been mapped
    QDir().mkpath("screenshots");
    QScreen *screen = QGuiApplication::primaryScreen();
    const QRect area = part.isNull() ? screen->virtualGeometry() : part;
    const QPoint corner = area.topLeft() - screen->geometry().topLeft();
    const QPixmap picture = screen->grabWindow(0, corner.x(), corner.y(), area.width(), area.height());
    QString file = name; // may be a row's name
    static const QRegularExpression others("[^A-Za-z0-9]+");
    file.replace(others, "-");
    if (!picture.save(QString("screenshots/%1.png").arg(file)))
        qFatal("cannot keep a screenshot");
}

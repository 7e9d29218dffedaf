// SPDX-License-Identifier: MIT
#include "tests/support/Hand.h"

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

void xdotool(const QStringList &arguments)
{
    run(QStringLiteral("xdotool"), arguments);
}

int numberIn(const QString &text, const QString &label)
{
    const QRegularExpression pattern(QRegularExpression::escape(label) + QStringLiteral("\\s*(-?\\d+)"));
    return pattern.match(text).captured(1).toInt();
}

} // namespace

void Hand::moveTo(const QPoint &global)
{
    const QPoint pixel = global * qGuiApp->devicePixelRatio(); // the server counts the screen's own pixels
    // A negative number must not be taken for an option.
    xdotool({QStringLiteral("mousemove"), QStringLiteral("--"), QString::number(pixel.x()),
             QString::number(pixel.y())});
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
    xdotool({QStringLiteral("click"), QString::number(button)});
}

void Hand::doubleClick(int button)
{
    xdotool({QStringLiteral("click"), QStringLiteral("--repeat"), QStringLiteral("2"),
             QStringLiteral("--delay"), QStringLiteral("30"), QString::number(button)});
}

void Hand::press(int button)
{
    xdotool({QStringLiteral("mousedown"), QString::number(button)});
}

void Hand::release(int button)
{
    xdotool({QStringLiteral("mouseup"), QString::number(button)});
}

void Hand::key(const QString &key)
{
    keys({key});
}

void Hand::keys(const QStringList &keys)
{
    xdotool(QStringList(QStringLiteral("key")) + keys);
}

void Hand::holdKey(const QString &key)
{
    xdotool({QStringLiteral("keydown"), key});
}

void Hand::releaseKey(const QString &key)
{
    xdotool({QStringLiteral("keyup"), key});
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
    return QRect(numberIn(facts, QStringLiteral("Absolute upper-left X:")),
                 numberIn(facts, QStringLiteral("Absolute upper-left Y:")),
                 numberIn(facts, QStringLiteral("Width:")), numberIn(facts, QStringLiteral("Height:")));
}

void Hand::keepScreenshot(const QString &name)
{
    keepScreenshot(name, QGuiApplication::primaryScreen()->virtualGeometry());
}

void Hand::keepScreenshot(const QString &name, const QRect &part)
{
    drainEvents(); // what has been mapped is painted then
    QDir().mkpath(QStringLiteral("screenshots"));
    QScreen *screen = QGuiApplication::primaryScreen();
    const QPoint corner = part.topLeft() - screen->geometry().topLeft();
    const QPixmap picture = screen->grabWindow(0, corner.x(), corner.y(), part.width(), part.height());
    QString file = name; // may be a row's name
    file.replace(QRegularExpression(QStringLiteral("[^A-Za-z0-9]+")), QStringLiteral("-"));
    if (!picture.save(QStringLiteral("screenshots/%1.png").arg(file)))
        qFatal("cannot keep a screenshot");
}

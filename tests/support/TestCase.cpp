// SPDX-License-Identifier: MIT
#include "tests/support/TestCase.h"

#include <QFont>
#include <QGuiApplication>
#include <QMutex>
#include <QMutexLocker>

namespace {

QMutex mutex; // warnings may come from any thread
QStringList allowed;
QStringList unexpected;
QtMessageHandler previousHandler = nullptr;

//! What the platforms of the tests print, whatever the program does.
const char *const harmless[] = {
    "This plugin does not support propagateSizeHints()", // offscreen: no window manager to notify
    "This plugin does not support raise()",              // offscreen: no window manager to ask
    "This plugin does not support grabbing the keyboard",
    "This plugin does not support setting window masks", // balloons set one
    "XDG_RUNTIME_DIR not set",                           // a build machine has no session
};

//! As on most desktops, in points: the platform without a display has larger text.
constexpr int usualTextSize = 9;

bool isHarmless(const QString &text)
{
    for (const char *part : harmless) {
        if (text.contains(QLatin1String(part)))
            return true;
    }
    for (const QString &part : qAsConst(allowed)) {
        if (text.contains(part))
            return true;
    }
    return false;
}

void noteMessage(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    {
        const QMutexLocker lock(&mutex);
        if ((type == QtWarningMsg || type == QtCriticalMsg) && !isHarmless(text))
            unexpected.append(text);
    }
    previousHandler(type, context, text);
}

} // namespace

TestCase::TestCase()
{
    // Qt Test ends a test function after five minutes, less than ten times what the longest takes beside busy
    // programs.
    const char *const limit = "QTEST_FUNCTION_TIMEOUT";
    if (!qEnvironmentVariableIsSet(limit))
        qputenv(limit, QByteArray::number(30 * patience));
}

TestCase::~TestCase() = default;

void TestCase::allowWarning(const QString &text)
{
    const QMutexLocker lock(&mutex);
    allowed.append(text);
}

void TestCase::init()
{
    const QMutexLocker lock(&mutex);
    if (!previousHandler)
        previousHandler = qInstallMessageHandler(noteMessage); // called before Qt Test's own
    allowed.clear();
    unexpected.clear();
    if (qobject_cast<QGuiApplication *>(QCoreApplication::instance())) {
        QFont font = QGuiApplication::font();
        font.setPointSize(usualTextSize);
        QGuiApplication::setFont(font);
    }
}

void TestCase::cleanup()
{
    QStringList warnings;
    {
        const QMutexLocker lock(&mutex);
        warnings.swap(unexpected);
    }
    QVERIFY2(warnings.isEmpty(),
             qPrintable(QLatin1String("unexpected warnings:\n") + warnings.join(QLatin1Char('\n'))));
}

void drainEvents()
{
    // Delivering one event may post the next; widgets' deletion, painting and activation settle in a few
    // rounds.
    constexpr int rounds = 10;
    for (int i = 0; i < rounds; ++i) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

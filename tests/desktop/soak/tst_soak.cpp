// SPDX-License-Identifier: MIT
#include "tests/desktop/soak/SoakHost.h"
#include "tests/desktop/soak/SoakUser.h"
#include "tests/support/TestCase.h"

namespace {

//! In a run of all tests: the same on every machine.
constexpr int usualSteps = 200;

int fromEnvironment(const char *name, int usual)
{
    bool ok = false;
    const int value = qEnvironmentVariableIntValue(name, &ok);
    return ok ? value : usual;
}

} // namespace

//! Random input, commands, files and screens, and the module loaded and unloaded, with a check after each
//! step of what must always hold. From the environment: SOAK_SECONDS, the duration; SOAK_SEED, the seed of
//! the random numbers; SOAK_STEPS, the maximum number of steps, to repeat a run that failed.
class tst_Soak : public TestCase
{
    Q_OBJECT

private slots:
    void randomActions()
    {
        // A smaller mode of the screen, with the usual timings of 1024x768.
        QCOMPARE(
            QProcess::execute("sh", {"-c", "xrandr --newmode soak 63.5 1024 1072 1176 1328 768 771 775 798 &&"
                                           "xrandr --addmode screen soak"}),
            0);
        const auto seed = quint32(fromEnvironment("SOAK_SEED", 20261121));
        SoakHost soak;
        SoakUser user(soak, seed);
        user.seconds = fromEnvironment("SOAK_SECONDS", 0);
        user.mostSteps = fromEnvironment("SOAK_STEPS", user.seconds == 0 ? usualSteps : 0);
        QEventLoop loop;
        connect(&user, &QThread::finished, &loop, &QEventLoop::quit);
        user.start();
        loop.exec();
        user.wait();
        qInfo("seed %u: %d steps, %d input events (%d not received), %d popups, %d drags, %d drawings opened "
              "or "
              "refused, "
              "%d screens, module loaded %d times more",
              seed, user.steps, user.events, user.unreceived, soak.popupsSeen(), user.drags, user.openings,
              user.screens, soak.modulesLoaded());
        QVERIFY2(user.problem.isEmpty(),
                 qPrintable(QString("step %1: %2").arg(user.steps).arg(user.problem)));
        QVERIFY(user.events > 0 && soak.popupsSeen() > 0);
    }
};

TEST_CLASS(tst_Soak);
#include "tst_soak.moc"

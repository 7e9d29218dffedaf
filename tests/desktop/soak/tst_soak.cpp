// SPDX-License-Identifier: MIT
#include "tests/desktop/soak/SoakHost.h"
#include "tests/desktop/soak/SoakPerson.h"
#include "tests/support/TestCase.h"

#include <QEventLoop>
#include <QProcess>

namespace {

//! How long a day is in a run of all tests: the same on every machine.
constexpr int usualSteps = 200;

int fromEnvironment(const char *name, int usual)
{
    bool ok = false;
    const int value = qEnvironmentVariableIntValue(name, &ok);
    return ok ? value : usual;
}

} // namespace

//! A long day: random input, drawings, files, screens, and the module coming and going, with what must always
//! hold looked at after each step. From the environment: SOAK_SECONDS, how long (20); SOAK_SEED, which day;
//! SOAK_STEPS, after how many steps to end at the latest, so that a day that ended badly can be had again.
class tst_Soak : public TestCase
{
    Q_OBJECT

private slots:
    void aLongDay()
    {
        // A smaller screen for now and then; its numbers are those of any 1024x768 screen.
        QCOMPARE(QProcess::execute(
                     QStringLiteral("sh"),
                     {QStringLiteral("-c"),
                      QStringLiteral("xrandr --newmode soak 63.5 1024 1072 1176 1328 768 771 775 798 &&"
                                     "xrandr --addmode screen soak")}),
                 0);
        const auto seed = quint32(fromEnvironment("SOAK_SEED", 20261121));
        SoakHost soak;
        SoakPerson person(soak, seed);
        person.seconds = fromEnvironment("SOAK_SECONDS", 0);
        person.mostSteps = fromEnvironment("SOAK_STEPS", person.seconds == 0 ? usualSteps : 0);
        QEventLoop day;
        connect(&person, &QThread::finished, &day, &QEventLoop::quit);
        person.start();
        day.exec();
        person.wait();
        qInfo("seed %u: %d steps, %d input events (%d unheard), %d popups, %d drags, %d drawings opened or "
              "refused, "
              "%d screens, module loaded %d times more",
              seed, person.steps, person.events, person.unheard, soak.popupsSeen(), person.drags,
              person.openings, person.screens, soak.modulesLoaded());
        QVERIFY2(person.problem.isEmpty(),
                 qPrintable(QStringLiteral("step %1: %2").arg(person.steps).arg(person.problem)));
        QVERIFY(person.events > 0 && soak.popupsSeen() > 0);
    }
};

TEST_CLASS(tst_Soak);
#include "tst_soak.moc"

// SPDX-License-Identifier: MIT
#include "host/runtime/modules/ModuleManager.h"
#include "tests/support/Memory.h"
#include "tests/support/TestCase.h"
#include "tests/support/real/RealBrowser.h"

#include <QDialog>
#include <QMenu>
#include <QToolButton>
#include <QWidgetAction>

#include <algorithm>

namespace {

const QRect tallFrame(0, 0, 1300, 1000);

void openAndClose(RealBrowser &browser)
{
    if (QDialog *popup = browser.openPopup())
        popup->close();
    drainEvents();
}

//! Enough for all that is created at first use and kept.
constexpr int warmUp = 50;

//! Repeats an action. \return the growth of allocated or of resident memory, whichever is more, from a tenth
//! of the repetitions to the end, in percent \param known what each repetition is known to allocate and keep,
//! in bytes
template<class Action>
double growthOf(int times, qint64 known, const Action &action)
{
    const int early = qMax(times / 10, warmUp);
    qint64 allocated = 0;
    qint64 resident = 0;
    for (int i = 1; i <= times; ++i) {
        action();
        if (i == early) {
            allocated = memory::allocated();
            resident = memory::resident();
        }
    }
    memory::print("allocated early on", allocated);
    memory::print("allocated at the end", memory::allocated());
    memory::print("resident early on", resident);
    memory::print("resident at the end", memory::resident());
    if (!memory::isMeasurable)
        return 0;
    const qint64 added = known * (times - early);
    const auto percentOf = [](qint64 last, qint64 first) {
        return 100.0 * double(last - first) / double(first);
    };
    return qMax(percentOf(memory::allocated() - added, allocated), percentOf(memory::resident(), resident));
}

void send(QWidget *widget, QEvent::Type type)
{
    QEvent event(type);
    QCoreApplication::sendEvent(widget, &event);
}

} // namespace

//! The built library in long use: repeated actions need no more memory in the end.
class tst_SteadyMemory : public TestCase
{
    Q_OBJECT

private slots:
    void reopeningThePopupKeepsMemorySteady_data()
    {
        QTest::addColumn<int>("documents");
        QTest::addColumn<int>("numbers");
        QTest::newRow("10 documents") << 10 << 0;
        // From the eleventh on an entry's number gets one digit more each time.
        QTest::newRow("50 documents") << 50 << 40;
    }

    void reopeningThePopupKeepsMemorySteady()
    {
        QFETCH(int, documents);
        QFETCH(int, numbers);
        // A string grows by as much again as it holds.
        const qint64 digits = qint64(2) * numbers * qint64(sizeof(QChar));
        RealBrowser browser(documents, tallFrame);
        const int openings = memory::rounds(1000);
        int shown = 0;
        const double percent = growthOf(openings, digits, [&] {
            if (QDialog *popup = browser.openPopup()) {
                shown += RealBrowser::tiles(popup).size();
                popup->close();
            }
            drainEvents();
        });
        QCOMPARE(shown, documents * openings);
        QVERIFY2(percent < 1, qPrintable(QString::number(percent)));
    }

    void openingWithAPinAddsOneSeparator()
    {
        RealBrowser browser(3, tallFrame);
        QDialog *popup = browser.openPopup();
        QVERIFY(popup);
        RealBrowser::button(RealBrowser::tiles(popup).constFirst(), "pinButton")->click();
        popup->close();
        openAndClose(browser);
        const int separators = browser.menuLines().count("-");
        const int openings = memory::rounds(1000);
        const qint64 before = memory::allocated();
        for (int i = 0; i < openings; ++i)
            openAndClose(browser);
        const qint64 eachOne = (memory::allocated() - before) / openings;
        QCOMPARE(browser.menuLines().count("-"), separators + openings);
        memory::print("an opening", eachOne);
        QVERIFY(!memory::isMeasurable || eachOne < 2000);
    }

    void movingTheHighlightKeepsMemorySteady()
    {
        for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Down}) { // along the row and the column
            RealBrowser browser(50, tallFrame);
            QDialog *popup = browser.openPopup();
            QVERIFY(popup);
            const QList<QDialog *> tiles = RealBrowser::tiles(popup);
            const int objects = popup->findChildren<QObject *>().size();
            const double percent = growthOf(memory::rounds(100000), 0, [&] {
                QTest::keyClick(popup, key);
                QCoreApplication::processEvents(); // paints
            });
            QCOMPARE(RealBrowser::highlighted(tiles).size(), 1);
            QCOMPARE(popup->findChildren<QObject *>().size(), objects);
            QVERIFY2(percent < 1, qPrintable(QString::number(percent)));
        }
    }

    void aHoverLeavesOneStoppedTimer_data()
    {
        QTest::addColumn<bool>("inMenu");
        QTest::addColumn<QString>("name");
        QTest::newRow("a tile's pin") << false << "pinButton";
        QTest::newRow("a tile's folder") << false << "folderButton";
        QTest::newRow("a menu entry's pin") << true << "pinButton";
        QTest::newRow("a menu entry's folder") << true << "folderButton";
        QTest::newRow("a menu entry's text") << true << "menuTextButton";
    }

    void aHoverLeavesOneStoppedTimer()
    {
        QFETCH(bool, inMenu);
        QFETCH(QString, name);
        const int hovers = memory::rounds(10000);
        RealBrowser browser(3, tallFrame);
        QMenu menu;
        browser.addRecentFiles(&menu, nullptr);
        QDialog *popup = browser.openPopup();
        QVERIFY(popup);
        QWidget *parent = RealBrowser::tiles(popup).constFirst();
        if (inMenu)
            parent = qobject_cast<QWidgetAction *>(menu.actions().constLast())->defaultWidget();
        QToolButton *button = RealBrowser::button(parent, qPrintable(name));
        QVERIFY(button);
        const int objects = parent->findChildren<QObject *>().size();

        const qint64 before = memory::allocated();
        for (int i = 0; i < hovers; ++i) {
            send(button, QEvent::Enter);
            send(button, QEvent::Leave);
        }
        memory::print("for all hovers", memory::allocated() - before);
        drainEvents();
        const QList<QTimer *> timers = button->findChildren<QTimer *>();
        QCOMPARE(timers.size(), hovers);
        QCOMPARE(parent->findChildren<QObject *>().size(), objects + hovers);
        QVERIFY(std::none_of(timers.begin(), timers.end(),
                             [](const QTimer *timer) { return timer->isActive(); }));

        const QPointer<QTimer> first = timers.first();
        const QPointer<QTimer> last = timers.last();
        popup->close();
        drainEvents();
        QCOMPARE(first.isNull(), !inMenu);
        browser.host().setMainWindow(nullptr);
        browser.host().modules().unload(MODULE_FILE);
        QVERIFY(!first && !last);
    }
};

TEST_CLASS(tst_SteadyMemory);
#include "tst_steadymemory.moc"

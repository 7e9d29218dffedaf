// SPDX-License-Identifier: MIT
#include "host/runtime/FxHost.h"
#include "host/runtime/commands/CommandRunner.h"
#include "host/runtime/documents/DocumentManager.h"
#include "tests/support/RealBrowser.h"
#include "tests/support/TestCase.h"

#include <QApplication>
#include <QCursor>
#include <QDialog>
#include <QPointer>
#include <QToolButton>

#include <algorithm>
#include <random>

//! More popups than anybody opens, closed in any order and in every way.
class tst_ManyPopups : public TestCase
{
    Q_OBJECT

private slots:
    void eachGoesWithAllThatIsItsOwn_data();
    void eachGoesWithAllThatIsItsOwn();
};

namespace {

constexpr int popupCount = 50;
constexpr int tileCount = 3;

//! The ways to end a popup.
constexpr int ways = 5;
void end(QDialog *popup, int way)
{
    switch (way) {
    case 0:
        popup->close();
        break;
    case 1:
        QTest::keyClick(popup, Qt::Key_Escape);
        break;
    case 2:
        popup->deleteLater();
        break;
    case 3:
        delete popup;
        break;
    default: // twice
        popup->close();
        popup->deleteLater();
        break;
    }
}

//! Everything that a popup is made of.
QVector<QPointer<QWidget>> partsOf(QDialog *popup)
{
    QVector<QPointer<QWidget>> parts{popup};
    const QList<QWidget *> children = popup->findChildren<QWidget *>();
    for (QWidget *child : children)
        parts.append(child);
    return parts;
}

//! What a person does with one of the others meanwhile.
void use(QDialog *popup, unsigned choice)
{
    QDialog *tile = RealBrowser::tiles(popup).at(static_cast<int>(choice % tileCount));
    QTest::mouseMove(tile);
    QTest::mouseClick(tile, Qt::LeftButton, choice % 2 ? Qt::ControlModifier : Qt::NoModifier, QPoint(5, 5));
    QTest::keyClick(popup, Qt::Key_Right);
    RealBrowser::button(tile, "pinButton")->click();
}

} // namespace

void tst_ManyPopups::eachGoesWithAllThatIsItsOwn_data()
{
    QTest::addColumn<unsigned>("seed");
    for (unsigned seed = 1; seed <= 3; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void tst_ManyPopups::eachGoesWithAllThatIsItsOwn()
{
    QFETCH(unsigned, seed);
    std::mt19937 random(seed); // the same numbers everywhere
    RealBrowser browser(tileCount, QRect(0, 0, 1300, 800));
    QDialog *const first = browser.openPopup();
    QVERIFY(first);
    QCursor::setPos(first->geometry().center()); // lest they close when the focus goes
    for (int i = 1; i < popupCount; ++i)
        browser.host().commands().runLine(QStringLiteral("_RECENT"));
    drainEvents();

    QVector<QVector<QPointer<QWidget>>> popups;
    const QList<QDialog *> opened = RealBrowser::popups();
    for (QDialog *popup : opened)
        popups.append(partsOf(popup));
    QCOMPARE(popups.size(), popupCount);
    const auto partCount = popups.first().size();

    for (int i = popupCount - 1; i > 0; --i)
        std::swap(popups[i], popups[static_cast<int>(random() % unsigned(i + 1))]);
    while (!popups.isEmpty()) {
        const QVector<QPointer<QWidget>> ended = popups.takeLast();
        QVERIFY(ended.first());
        if (popups.size() % 7 == 0)
            browser.host().documents().newDocument();
        end(qobject_cast<QDialog *>(ended.first()), static_cast<int>(random() % ways));
        drainEvents();
        QCOMPARE(ended.count(nullptr), partCount);
        for (const QVector<QPointer<QWidget>> &other : qAsConst(popups))
            QCOMPARE(other.count(nullptr), 0);
        if (!popups.isEmpty()) {
            QWidget *other = popups.at(static_cast<int>(random() % unsigned(popups.size()))).first();
            use(qobject_cast<QDialog *>(other), static_cast<unsigned>(random()));
        }
    }
    QVERIFY(RealBrowser::popups().isEmpty());
    QCOMPARE(browser.log().filter(QStringLiteral("open ")), QStringList());
    QVERIFY(browser.openPopup()); // and the next one is as any other
    QCOMPARE(RealBrowser::tiles(RealBrowser::popups().constFirst()).size(), tileCount);
}

QTEST_MAIN(tst_ManyPopups)
#include "tst_manypopups.moc"

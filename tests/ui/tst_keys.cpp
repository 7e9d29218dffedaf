// SPDX-License-Identifier: MIT
#include "tests/ui/OpenGrid.h"

#include <QKeySequence>
#include <QPushButton>
#include <QSignalSpy>

using KeySteps = QList<QPair<QString, QString>>;
Q_DECLARE_METATYPE(KeySteps)

namespace {

//! Presses a key by its name as Qt writes it; "Num" is the keypad.
//! \return whether the key was accepted
bool pressNamed(const OpenGrid &grid, const QString &name)
{
    const int key = QKeySequence(name)[0];
    constexpr int held = static_cast<int>(Qt::KeyboardModifierMask);
    return grid.press(key & ~held, QFlag(key & held));
}

} // namespace

//! Keys in the popup by example, and what the random sequences of tst_highlightproperties do not see:
//! effects, painting, which object gets a key, and incomplete popups.
class tst_Keys : public TestCase
{
    Q_OBJECT

private slots:
    void movesAndRuns_data()
    {
        QTest::addColumn<Indices>("before");
        QTest::addColumn<KeySteps>("steps");
        QTest::addColumn<Indices>("listed");
        const auto row = [](const char *name, const Indices &before, const KeySteps &steps,
                            const Indices &listed = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9}) {
            QTest::newRow(name) << before << steps << listed;
        };
        // Ten tiles in rows of 4, 4 and 2. After each key: the highlighted tiles, and the one that the path
        // line shows newly.
        row("round the ends", {9}, {{"Right", "0: 0"}, {"Left", "9: 9"}, {"Down", "1: 1"}, {"Up", "9: 9"}});
        row("a highlighted tile leaves the path line", {0, 4}, {{"Down", "4: "}});
        row("a run grows, shrinks at its end, then at its start", {0},
            {{"Shift+Right", "0 1: 1"},
             {"Ctrl+Right", "0 1 2: 2"},
             {"Shift+Left", "0 1: 2"},
             {"Ctrl+Right", "1: 2"},
             {"Shift+Right", "1 2: 2"}});
        // Tiles 0 and 8 have one path, and so have 1 and 6. A row move goes by the path, so it starts from
        // the first of the two and leaves the other as it is.
        const Indices twins = {0, 1, 2, 3, 4, 5, 1, 7, 0, 9};
        row("Down from the second of one path", {8}, {{"Down", "4 8: 4"}}, twins);
        row("Up from the second, onto it", {8}, {{"Up", "8: "}}, twins);
        row("Up from the second in another column", {6}, {{"Up", "6 9: 9"}}, twins);
        row("Right goes by the tile", {6}, {{"Right", "7: 7"}}, twins);
    }

    void movesAndRuns()
    {
        QFETCH(Indices, before);
        QFETCH(KeySteps, steps);
        QFETCH(Indices, listed);
        OpenGrid grid(10, listed);
        grid.highlight(before);
        for (const auto &step : qAsConst(steps)) {
            QVERIFY(pressNamed(grid, step.first)); // accepted, with or without an effect
            QStringList highlighted;
            const Indices indices = grid.highlighted();
            for (const int index : indices)
                highlighted.append(QString::number(index));
            QString shown;
            for (int i = 0; i < 10; ++i) {
                if (grid.line() == grid.lineOf(i))
                    shown = QString::number(i);
            }
            QCOMPARE(step.first + " > " + highlighted.join(' ') + ": " + shown,
                     step.first + " > " + step.second);
        }
        QVERIFY(grid.popup && grid.popup->isVisible());
    }

    void changedTilesAloneArePaintedAndHighlightedAgain_data()
    {
        QTest::addColumn<int>("documents");
        QTest::addColumn<QString>("key");
        QTest::addColumn<Indices>("before");
        QTest::addColumn<Indices>("cleared");
        QTest::addColumn<Indices>("replaced");
        const auto row = [](const char *name, int documents, const char *key, const Indices &before,
                            const Indices &cleared, const Indices &replaced) {
            QTest::newRow(name) << documents << QString(key) << before << cleared << replaced;
        };
        row("Right", 10, "Right", {5}, {5}, {6});
        row("Left", 10, "Left", {5}, {5}, {4});
        row("Down", 10, "Down", {5}, {5}, {9});
        row("Up", 10, "Up", {5}, {5}, {1});
        row("Right on a run", 10, "Right", {1, 2}, {1, 2}, {3});
        row("Down onto a highlighted tile", 10, "Down", {0, 4}, {0}, {});
        row("growing forward", 10, "Shift+Right", {5}, {}, {6});
        row("growing back", 10, "Shift+Left", {5}, {}, {4});
        row("shrinking at the start", 10, "Shift+Right", {5, 6}, {5}, {});
        row("shrinking at the end", 10, "Shift+Left", {5, 6}, {6}, {});
        row("Right on the only tile", 1, "Right", {0}, {0}, {0});
        row("Left on the only tile", 1, "Left", {0}, {0}, {0});
        row("Down in the only row", 4, "Down", {2}, {2}, {2});
        row("Up in a column of one", 5, "Up", {2}, {2}, {2});
    }

    void changedTilesAloneArePaintedAndHighlightedAgain()
    {
        QFETCH(int, documents);
        QFETCH(QString, key);
        QFETCH(Indices, before);
        QFETCH(Indices, cleared);
        QFETCH(Indices, replaced);
        OpenGrid grid(documents);
        QVERIFY(waitForExposed(grid.popup));
        for (RecentDocDialog *tile : qAsConst(grid.tiles))
            tile->highlight(); // so that each has an effect, which gets the resting colour next
        grid.highlight(before);
        drainEvents();
        ReceiversOf painted(QEvent::Paint);
        QList<QPointer<QGraphicsEffect>> effects;
        for (RecentDocDialog *tile : qAsConst(grid.tiles)) {
            tile->installEventFilter(&painted);
            effects.append(tile->graphicsEffect());
        }
        QVERIFY(pressNamed(grid, key));
        drainEvents();
        for (int i = 0; i < documents; ++i) {
            const QGraphicsEffect *effect = grid.tiles.at(i)->graphicsEffect();
            const bool isReplaced = replaced.contains(i);
            const bool isHighlighted = isReplaced || (before.contains(i) && !cleared.contains(i));
            QCOMPARE(effect != effects.at(i), isReplaced); // a replaced one is deleted
            QCOMPARE(effect->property("color").value<QColor>(),
                     isHighlighted ? QColor(0, 0, 150, 100) : QColor(248, 248, 248, 255));
            QCOMPARE(effect->property("offset").toPointF(), QPointF(2.5, 2.5));
            QCOMPARE(painted.receivers.contains(grid.tiles.at(i)), isReplaced || cleared.contains(i));
        }
    }

    void askingForARunDirectlyKeepsTheOtherDirection()
    {
        OpenGrid grid(5);
        grid.highlight({1});
        grid.popup->selectForwardMultiDoc();
        QCOMPARE(grid.highlighted(), Indices({1, 2}));
        grid.popup->selectBackwardMultiDoc(); // the direction back is not remembered yet: shrinks
        QCOMPARE(grid.highlighted(), Indices({1}));
        grid.popup->selectBackwardMultiDoc();
        QCOMPARE(grid.highlighted(), Indices({0, 1}));
        grid.popup->selectForwardMultiDoc(); // and the one forward still is: grows
        QCOMPARE(grid.highlighted(), Indices({0, 1, 2}));
    }

    void baseDialogGetsKeysOnlyWhileATileIsHeld()
    {
        OpenGrid grid(10);
        for (const char *key : {"Tab", "Shift+Backtab", "Right", "Shift+Left", "Up", "Shift+Up", "A"}) {
            for (const bool held : {false, true, false}) {
                grid.popup->dragDialog = held ? grid.tiles.at(2) : nullptr;
                QCOMPARE(pressNamed(grid, key), !held); // the base dialog ignores what it does not use
            }
        }
    }

    void baseDialogNeverGetsEnter()
    {
        OpenGrid grid(4);
        auto *button = new QPushButton(grid.popup); // which a base dialog would click
        button->setDefault(true);
        button->show();
        const QSignalSpy clicked(button, &QPushButton::clicked);
        grid.highlight({});
        grid.popup->dragDialog = grid.tiles.at(2);
        for (const int key : {Qt::Key_Return, Qt::Key_Enter})
            QVERIFY(grid.press(key));
        grid.highlight({1});
        QVERIFY(grid.press(Qt::Key_Enter, Qt::ShiftModifier)); // which the base dialog would ignore
        QCOMPARE(clicked.count(), 0);
        QCOMPARE(grid.browser.host.openedPaths(), QStringList(grid.browser.path(1)));
    }

    void escapeFinishesTwiceWhileATileIsHeld()
    {
        for (const bool held : {false, true}) {
            OpenGrid grid(4);
            grid.popup->dragDialog = held ? grid.tiles.at(2) : nullptr;
            const QSignalSpy finished(grid.popup, &QDialog::finished);
            QVERIFY(pressNamed(grid, "Esc") || held);
            // Once from the popup, once from the base dialog, which is asked to reject.
            QCOMPARE(finished.mid(0), QList<QVariantList>({{0}, {0}}).mid(held ? 0 : 1));
            drainEvents();
            QVERIFY(!grid.popup);
        }
    }

    void keysInTheOlderPopupMoveTheNewersHighlight()
    {
        TwoPopups two(10);
        QVERIFY(two.older.popup && two.newer);
        const auto inNewer = [&two] {
            return qMakePair(highlightedIn(two.newerTiles), two.newer->main_label_path->text());
        };
        two.older.press(Qt::Key_Right);
        QCOMPARE(inNewer(), qMakePair(Indices({1}), two.older.browser.path(1)));
        two.older.press(Qt::Key_Right, Qt::ShiftModifier);
        QCOMPARE(inNewer(), qMakePair(Indices({1, 2}), two.older.browser.path(2)));
        QVERIFY(two.older.popup->forwardSelectionActive); // the direction is each popup's own
        QVERIFY(!two.newer->forwardSelectionActive);
        QCOMPARE(two.older.highlighted(), Indices({0}));
        QCOMPARE(two.older.line(), two.older.browser.path(0));

        // A row move goes by the path of the newer's highlight in the grid of the popup that got the key.
        two.older.press(Qt::Key_Down);
        QCOMPARE(two.older.highlighted(), Indices({0, 5}));
        QCOMPARE(inNewer(), qMakePair(Indices({1, 2}), two.older.browser.path(5)));

        two.older.press(Qt::Key_Return);
        QCOMPARE(two.older.browser.host.openedPaths(), two.older.browser.paths().mid(1, 2));
        drainEvents();
        QVERIFY(!two.older.popup);
        QVERIFY(two.newer);
    }
};

TEST_CLASS(tst_Keys);
#include "tst_keys.moc"

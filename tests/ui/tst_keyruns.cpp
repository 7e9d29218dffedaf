// SPDX-License-Identifier: MIT
#include "tests/support/OpenGrid.h"

Q_DECLARE_METATYPE(Qt::KeyboardModifiers)

namespace {

//! Five tiles in two rows, so that a run goes round the end of a row.
constexpr int tileCount = 5;

//! What came of a step: the highlighted tiles, the tile in the path line, the direction that is remembered.
struct Outcome
{
    Indices highlighted;
    int shown;
    QString direction;
};

QString directionOf(const RecentDocMainWindow *popup)
{
    if (popup->forwardSelectionActive && popup->backwardSelectionActive)
        return QStringLiteral("both");
    if (popup->forwardSelectionActive)
        return QStringLiteral("forward");
    return popup->backwardSelectionActive ? QStringLiteral("backward") : QString();
}

} // namespace

Q_DECLARE_METATYPE(QList<Outcome>)

//! Runs of highlighted tiles, grown and shrunk by Right and Left with Shift or Control.
class tst_KeyRuns : public TestCase
{
    Q_OBJECT

private slots:
    void stepByStep_data();
    void stepByStep();
    void runsMixWithMoves();
    void aRememberedDirectionOutlivesOtherMoves();
    void aStepThatFindsNothingStillClearsTheOtherDirection();
    void askingForARunDirectlyKeepsTheOtherDirection();
    void aRunGrownWithBothDirectionsRemembered();
    void aNewPopupRemembersNoDirection();
    void aGrownTileGetsAnEffectOfItsOwnAndAShrunkKeepsIts();
    void aRunOverEmptyRows();
};

void tst_KeyRuns::stepByStep_data()
{
    QTest::addColumn<QString>("held");
    QTest::addColumn<Indices>("before");
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QList<Outcome>>("outcomes");

    const QString none;
    const QString forward = QStringLiteral("forward");
    const QString backward = QStringLiteral("backward");
    // steps: R right, L left, a step an outcome.
    const auto row = [](const char *name, const Indices &before, const char *steps,
                        const QList<Outcome> &outcomes) {
        for (const char *held : {"Shift", "Control", "Shift and Control in turn"})
            QTest::addRow("%s: %s", held, name) << held << before << steps << outcomes;
    };
    row("grow, grow, shrink at the end, shrink at the start", {0}, "RRLR",
        {{{0, 1}, 1, forward}, {{0, 1, 2}, 2, forward}, {{0, 1}, 2, none}, {{1}, 2, none}});
    row("and grow again from the one that is left", {0}, "RRLRRR",
        {{{0, 1}, 1, forward},
         {{0, 1, 2}, 2, forward},
         {{0, 1}, 2, none},
         {{1}, 2, none},
         {{1, 2}, 2, forward},
         {{1, 2, 3}, 3, forward}});
    row("the mirror image", {4}, "LLRL",
        {{{3, 4}, 3, backward}, {{2, 3, 4}, 2, backward}, {{3, 4}, 2, none}, {{3}, 2, none}});
    row("shrink to one, and no further", {0}, "RRLLL",
        {{{0, 1}, 1, forward}, {{0, 1, 2}, 2, forward}, {{0, 1}, 2, none}, {{0}, 2, none}, {{0}, 2, none}});
    row("back and forth from the middle", {2}, "RLLR",
        {{{2, 3}, 3, forward}, {{2}, 3, none}, {{1, 2}, 1, backward}, {{2}, 1, none}});
    row("grow to the last tile, which never wraps", {3}, "RRR",
        {{{3, 4}, 4, forward}, {{3, 4}, 4, forward}, {{3, 4}, 4, forward}});
    row("grow to the first tile, which never wraps", {1}, "LLL",
        {{{0, 1}, 0, backward}, {{0, 1}, 0, backward}, {{0, 1}, 0, backward}});
    row("over all tiles and back", {0}, "RRRRRLLR",
        {{{0, 1}, 1, forward},
         {{0, 1, 2}, 2, forward},
         {{0, 1, 2, 3}, 3, forward},
         {{0, 1, 2, 3, 4}, 4, forward},
         {{0, 1, 2, 3, 4}, 4, forward},
         {{0, 1, 2, 3}, 4, none},
         {{0, 1, 2}, 4, none},
         {{1, 2}, 4, none}});
    row("right on the last tile", {4}, "RR", {{{4}, -1, none}, {{4}, -1, none}});
    row("left on the first tile", {0}, "LL", {{{0}, -1, none}, {{0}, -1, none}});
    row("right on a run made with the mouse", {1, 2, 3}, "RRRR",
        {{{2, 3}, -1, none}, {{3}, -1, none}, {{3, 4}, 4, forward}, {{3, 4}, 4, forward}});
    row("left on a run made with the mouse", {1, 2, 3}, "LLLL",
        {{{1, 2}, -1, none}, {{1}, -1, none}, {{0, 1}, 0, backward}, {{0, 1}, 0, backward}});
    row("right on a run at the end", {3, 4}, "RR", {{{4}, -1, none}, {{4}, -1, none}});
    row("left on a run at the start", {0, 1}, "LL", {{{0}, -1, none}, {{0}, -1, none}});
    row("right on all", {0, 1, 2, 3, 4}, "RL", {{{1, 2, 3, 4}, -1, none}, {{1, 2, 3}, -1, none}});
    row("right grows the first of two, then the joined run", {0, 2}, "RR",
        {{{0, 1, 2}, 1, forward}, {{0, 1, 2, 3}, 3, forward}});
    row("right shrinks the first run before it grows", {0, 1, 3}, "RR",
        {{{1, 3}, -1, none}, {{1, 2, 3}, 2, forward}});
    row("left grows the last of two, then the joined run", {2, 4}, "LL",
        {{{2, 3, 4}, 3, backward}, {{1, 2, 3, 4}, 1, backward}});
    row("left shrinks the last run before it grows", {1, 3, 4}, "LL",
        {{{1, 3}, -1, none}, {{1, 2, 3}, 2, backward}});
    row("first and last are no neighbours, right", {0, 4}, "RR",
        {{{0, 1, 4}, 1, forward}, {{0, 1, 2, 4}, 2, forward}});
    row("first and last are no neighbours, left", {0, 4}, "LL",
        {{{0, 3, 4}, 3, backward}, {{0, 2, 3, 4}, 2, backward}});
    row("none highlighted", {}, "RLR", {{{}, -1, none}, {{}, -1, none}, {{}, -1, none}});
}

void tst_KeyRuns::stepByStep()
{
    QFETCH(QString, held);
    QFETCH(Indices, before);
    QFETCH(QString, steps);
    QFETCH(QList<Outcome>, outcomes);
    QCOMPARE(steps.size(), outcomes.size());
    OpenGrid grid(tileCount);
    grid.highlight(before);
    for (int i = 0; i < steps.size(); ++i) {
        const bool shift = held == QLatin1String("Shift") || (held != QLatin1String("Control") && i % 2 == 0);
        const QByteArray name = "step " + QByteArray::number(i + 1);
        QVERIFY(grid.press(steps.at(i) == QLatin1Char('R') ? Qt::Key_Right : Qt::Key_Left,
                           shift ? Qt::ShiftModifier : Qt::ControlModifier));
        QVERIFY2(grid.highlighted() == outcomes.at(i).highlighted, name);
        QVERIFY2(grid.line() == grid.lineOf(outcomes.at(i).shown), name);
        QVERIFY2(directionOf(grid.popup) == outcomes.at(i).direction, name);
    }
}

void tst_KeyRuns::runsMixWithMoves()
{
    OpenGrid grid(10);
    grid.highlight({1});
    grid.press(Qt::Key_Right, Qt::ShiftModifier);
    grid.press(Qt::Key_Right, Qt::ControlModifier);
    QCOMPARE(grid.highlighted(), Indices({1, 2, 3}));
    grid.press(Qt::Key_Down); // moves the run's first tile alone
    QCOMPARE(grid.highlighted(), Indices({2, 3, 5}));
    QCOMPARE(grid.line(), grid.lineOf(5));
    grid.press(Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(grid.highlighted(), Indices({2, 3, 4, 5}));
    grid.press(Qt::Key_Up, Qt::ShiftModifier);
    grid.press(Qt::Key_Down, Qt::ControlModifier);
    QCOMPARE(grid.highlighted(), Indices({2, 3, 4, 5}));
    QCOMPARE(grid.line(), grid.lineOf(4));
    grid.press(Qt::Key_Right, Qt::ShiftModifier | Qt::KeypadModifier);
    QCOMPARE(grid.highlighted(), Indices({6}));
    QCOMPARE(grid.line(), grid.lineOf(6));
}

void tst_KeyRuns::aRememberedDirectionOutlivesOtherMoves()
{
    OpenGrid grid(10);
    grid.highlight({1});
    grid.press(Qt::Key_Right, Qt::ShiftModifier);
    for (const int key :
         {Qt::Key_Right, Qt::Key_Left, Qt::Key_Up, Qt::Key_Down, Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_A}) {
        grid.press(key);
        QCOMPARE(directionOf(grid.popup), QStringLiteral("forward"));
    }
    grid.press(Qt::Key_Up, Qt::ShiftModifier);
    grid.press(Qt::Key_Down, Qt::ControlModifier);
    QCOMPARE(directionOf(grid.popup), QStringLiteral("forward"));
    grid.highlight({5, 6}); // a run that the remembered direction grows, not shrinks
    grid.press(Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(grid.highlighted(), Indices({5, 6, 7}));

    grid.highlight({5, 6});
    grid.press(Qt::Key_Left, Qt::ShiftModifier);
    QCOMPARE(grid.highlighted(), Indices({5}));
    grid.press(Qt::Key_Left, Qt::ShiftModifier);
    grid.press(Qt::Key_Left);
    QCOMPARE(directionOf(grid.popup), QStringLiteral("backward"));
    grid.highlight({5, 6});
    grid.press(Qt::Key_Left, Qt::ControlModifier);
    QCOMPARE(grid.highlighted(), Indices({4, 5, 6}));
}

void tst_KeyRuns::aStepThatFindsNothingStillClearsTheOtherDirection()
{
    OpenGrid grid(tileCount);
    grid.popup->backwardSelectionActive = true;
    grid.highlight({4});
    grid.press(Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(grid.highlighted(), Indices({4}));
    QCOMPARE(directionOf(grid.popup), QString());

    grid.popup->forwardSelectionActive = true;
    grid.highlight({});
    grid.press(Qt::Key_Left, Qt::ControlModifier);
    QCOMPARE(grid.highlighted(), Indices());
    QCOMPARE(directionOf(grid.popup), QString());
}

void tst_KeyRuns::askingForARunDirectlyKeepsTheOtherDirection()
{
    OpenGrid grid(tileCount);
    grid.highlight({1});
    grid.popup->selectForwardMultiDoc();
    QCOMPARE(grid.highlighted(), Indices({1, 2}));
    QCOMPARE(directionOf(grid.popup), QStringLiteral("forward"));
    grid.popup->selectBackwardMultiDoc(); // the direction back is not remembered yet: shrinks
    QCOMPARE(grid.highlighted(), Indices({1}));
    QCOMPARE(directionOf(grid.popup), QStringLiteral("forward"));
    grid.popup->selectBackwardMultiDoc();
    QCOMPARE(grid.highlighted(), Indices({0, 1}));
    QCOMPARE(directionOf(grid.popup), QStringLiteral("both"));
}

void tst_KeyRuns::aRunGrownWithBothDirectionsRemembered()
{
    OpenGrid grid(tileCount);
    grid.popup->forwardSelectionActive = true;
    grid.popup->backwardSelectionActive = true;
    grid.highlight({1, 2});
    grid.popup->selectForwardMultiDoc();
    QCOMPARE(grid.highlighted(), Indices({1, 2, 3}));
    grid.popup->selectBackwardMultiDoc();
    QCOMPARE(grid.highlighted(), Indices({0, 1, 2, 3}));
}

void tst_KeyRuns::aNewPopupRemembersNoDirection()
{
    OpenGrid grid(tileCount);
    QCOMPARE(directionOf(grid.popup), QString());
    grid.press(Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(directionOf(grid.popup), QStringLiteral("forward"));
    grid.press(Qt::Key_Escape);
    drainEvents();
    RecentDocMainWindow *next = grid.browser.openPopup();
    QCOMPARE(directionOf(next), QString());
    QCOMPARE(highlightedIn(grid.browser.tiles()), Indices({0}));
}

void tst_KeyRuns::aGrownTileGetsAnEffectOfItsOwnAndAShrunkKeepsIts()
{
    OpenGrid grid(tileCount);
    grid.highlight({1});
    const QPointer<QGraphicsEffect> first = grid.tiles.at(1)->graphicsEffect();
    grid.press(Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(grid.tiles.at(1)->graphicsEffect(), first.data());
    const QPointer<QGraphicsEffect> second = grid.tiles.at(2)->graphicsEffect();
    QVERIFY(second && second != first);
    QCOMPARE(second->property("offset").toPointF(), QPointF(2.5, 2.5));
    grid.press(Qt::Key_Left, Qt::ShiftModifier);
    QVERIFY(second);
    QCOMPARE(grid.tiles.at(2)->graphicsEffect(), second.data());
    QCOMPARE(second->property("color").value<QColor>(), QColor(248, 248, 248, 255));
    QCOMPARE(grid.tiles.at(1)->graphicsEffect(), first.data());
}

void tst_KeyRuns::aRunOverEmptyRows()
{
    OpenGrid grid(10, 4, {1, 2, 3, 5, 7});
    QCOMPARE(grid.tiles.size(), 5);
    grid.highlight({3});
    grid.press(Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(grid.highlighted(), Indices({3, 4}));
    grid.press(Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(grid.highlighted(), Indices({3, 4}));
    grid.press(Qt::Key_Right);
    QCOMPARE(grid.highlighted(), Indices({0}));
}

QTEST_MAIN(tst_KeyRuns)
#include "tst_keyruns.moc"

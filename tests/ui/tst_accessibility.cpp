// SPDX-License-Identifier: MIT
#include "state/FolderPinButton.h"
#include "tests/ui/MousedPopup.h"
#include "tests/ui/OpenGrid.h"
#include "ui/HelpLabel.h"

#include <QAccessible>

#include <private/qguiapplication_p.h>

static_assert(QT_VERSION_MAJOR == 5 && QT_VERSION_MINOR == 15, "needs a private header of Qt 5.15");
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

using Keys = QList<QPair<int, Qt::KeyboardModifier>>;
Q_DECLARE_METATYPE(Keys)

namespace {

QAccessibleInterface *interfaceOf(QObject *object)
{
    return QAccessible::queryAccessibleInterface(object);
}

//! "selected NAME" and "unselected NAME" of tiles, "focused NAME", "named NAME" of pins.
QStringList notifications;

void note(QAccessibleEvent *event)
{
    const QAccessibleInterface *source = event->accessibleInterface();
    const QString name = source->text(QAccessible::Name);
    if (event->type() == QAccessible::Selection)
        notifications.append((source->state().selected ? "selected " : "unselected ") + name);
    if (event->type() == QAccessible::Focus)
        notifications.append("focused " + name);
    if (event->type() == QAccessible::NameChanged && source->role() == QAccessible::CheckBox)
        notifications.append("named " + name);
}

//! A line for each item of the tree, except labels.
// NOLINTNEXTLINE(misc-no-recursion): no deeper than the tree, which has four levels
QStringList tree(QAccessibleInterface *item, const QString &indent = {})
{
    const QAccessible::State state = item->state();
    QString line = indent + item->text(QAccessible::Name);
    for (const auto &[mark, isSet] :
         {std::pair("selected", state.selected), std::pair("focused", state.focused),
          std::pair("checkable", state.checkable), std::pair("checked", state.checked)})
        line += isSet ? QStringLiteral(", %1").arg(QLatin1String(mark)) : QString();
    QStringList lines{line};
    for (int i = 0; i < item->childCount(); ++i) {
        QAccessibleInterface *child = item->child(i);
        if (child->parent() != item || item->indexOfChild(child) != i)
            lines.append(QStringLiteral("is not a proper child of its parent:"));
        if (child->role() != QAccessible::StaticText && child->role() != QAccessible::Graphic)
            lines += tree(child, indent + QLatin1Char(' '));
    }
    return lines;
}

void act(QObject *object, int action = 0)
{
    QAccessibleActionInterface *actions = interfaceOf(object)->actionInterface();
    actions->doAction(actions->actionNames().value(action));
    drainEvents();
}

} // namespace

//! What Qt reports of the browser to assistive programs; desktop/tst_screenreader tests what they receive.
class tst_Accessibility : public TestCase
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        // As if a screen reader were running: without one Qt sends no notifications.
        QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(true);
        QAccessible::installUpdateHandler(note);
    }

    void cleanupTestCase() { QAccessible::installUpdateHandler(nullptr); }

    void popupIsAListOfDrawings()
    {
        MousedPopup scene(QStringList({"a name of many letters.dwg", "roof.dwg"}));
        QVERIFY(waitForActive(scene.popup));
        scene.popup->setFocus();
        FakeBrowser::button(scene.tiles.at(1), "pinButton")->setChecked(true);
        const QString folder = QStringLiteral("   Show in Folder");
        QCOMPARE(
            tree(interfaceOf(scene.popup)),
            QStringList({"Recent Documents", " Help", " Recent Documents",
                         "  a name of many letters.dwg, selected, focused", folder,
                         "   Pin this document to the Recent Documents list, checkable", "  roof.dwg", folder,
                         "   Unpin this document from the Recent Documents list, checkable, checked"}));

        QAccessibleInterface *tile = interfaceOf(scene.tiles.at(1));
        QCOMPARE(tile->role(), QAccessible::ListItem);
        QCOMPARE(tile->text(QAccessible::Description), scene.browser.path(1));
        QVERIFY(tile->state().selectable && tile->state().focusable);
        QAccessibleInterface *list = tile->parent();
        QCOMPARE(list->role(), QAccessible::List);
        QVERIFY(list->state().multiSelectable);
        QCOMPARE(list->childAt(tile->rect().center().x(), tile->rect().center().y()), tile);
        QVERIFY(list->rect().contains(tile->rect()));
        QCOMPARE(list->parent()->role(), QAccessible::Dialog);
    }

    void changesOfTheHighlightAreReported_data()
    {
        QTest::addColumn<Indices>("highlighted");
        QTest::addColumn<Keys>("keys");
        QTest::addColumn<QString>("expected");

        const QPair<int, Qt::KeyboardModifier> right(Qt::Key_Right, Qt::NoModifier);
        const QPair<int, Qt::KeyboardModifier> longer(Qt::Key_Right, Qt::ShiftModifier);
        const QPair<int, Qt::KeyboardModifier> shorter(Qt::Key_Left, Qt::ShiftModifier);
        const QPair<int, Qt::KeyboardModifier> down(Qt::Key_Down, Qt::NoModifier);
        QTest::newRow("a step") << Indices{0} << Keys{right} << "unselected 1, selected 2, focused 2";
        QTest::newRow("a run grows") << Indices{0} << Keys{longer} << "selected 2, focused 2";
        QTest::newRow("a run grows, and shrinks")
            << Indices{0} << Keys{longer, shorter} << "selected 2, focused 2, unselected 2, focused 1";
        QTest::newRow("down to a highlighted tile")
            << Indices{0, 4} << Keys{down} << "unselected 1, focused 5";
        QTest::newRow("a click") << Indices{0} << Keys{} << "unselected 1, selected 3, focused 3";
        QTest::newRow("a click on one of several")
            << Indices{2, 3} << Keys{} << "focused 3, unselected 3, unselected 4, selected 3";
    }

    void changesOfTheHighlightAreReported()
    {
        QFETCH(Indices, highlighted);
        QFETCH(Keys, keys);
        QFETCH(QString, expected);
        OpenGrid grid(5);
        QVERIFY(waitForActive(grid.popup));
        grid.popup->setFocus();
        grid.highlight(highlighted);
        drainEvents();
        notifications.clear();
        for (const auto &[key, modifier] : keys)
            grid.press(key, modifier);
        if (keys.isEmpty())
            QTest::mouseClick(grid.tiles.at(2), Qt::LeftButton);
        drainEvents();
        QCOMPARE(notifications.join(QStringLiteral(", ")).remove("drawing ").remove(".dwg"), expected);
        for (RecentDocDialog *tile : qAsConst(grid.tiles)) {
            const QAccessibleInterface *item = interfaceOf(tile);
            QCOMPARE(item->state().focused, notifications.filter("focused").constLast() ==
                                                "focused " + item->text(QAccessible::Name));
        }
    }

    void popupPassesItsFocusToTheTile()
    {
        OpenGrid grid(3);
        QVERIFY(waitForActive(grid.popup));
        grid.highlight({1, 2});
        drainEvents();
        notifications.clear();
        grid.tiles.at(0)->setFocus();
        grid.popup->setFocus();
        drainEvents();
        QCOMPARE(notifications,
                 QStringList({"focused drawing 1.dwg", "focused Recent Documents", "focused drawing 2.dwg"}));
        QVERIFY(!interfaceOf(grid.popup)->state().focused);
        QVERIFY(interfaceOf(grid.tiles.at(1))->state().focused);
        grid.highlight({});
        QVERIFY(interfaceOf(grid.popup)->state().focused);
    }

    void tileIsHighlightedAndOpened()
    {
        const OpenGrid grid(3);
        QVERIFY(waitForActive(grid.popup));
        grid.popup->setFocus();
        QCursor::setPos(grid.popup->geometry().bottomRight() + QPoint(50, 50));
        act(grid.tiles.at(1), 1);
        QCOMPARE(grid.highlighted(), Indices{1});
        QVERIFY(grid.popup); // losing the focus would have closed it, with the pointer outside
        act(grid.tiles.at(2), 0);
        QVERIFY(!grid.popup);
        QCOMPARE(grid.browser.host.openedPaths(), QStringList(grid.browser.path(2)));
    }

    void pinIsToggledAsByAClick()
    {
        const OpenGrid grid(2);
        notifications.clear();
        act(FakeBrowser::button(grid.tiles.at(1), "pinButton"));
        QVERIFY(RecentDocumentBrowser::menuPinButtonList.at(1)->isChecked());
        QVERIFY(notifications.contains("named Unpin this document from the Recent Documents list"));
    }

    void helpIsPressedAsByAClick()
    {
        OpenGrid grid(2);
        grid.browser.host.onRunCommand = [&](const QString & /*name*/) { delete grid.popup; };
        act(grid.popup->findChild<HelpLabel *>());
        QCOMPARE(grid.browser.host.commandsRun, QStringList(QStringLiteral("_RHELP")));
    }

    void nothingOutlivesTheModule()
    {
        QAccessible::Id list = 0;
        {
            const OpenGrid grid(1);
            list = QAccessible::uniqueId(interfaceOf(grid.tiles.at(0))->parent());
        }
        QVERIFY(!QAccessible::accessibleInterface(list));
        HelpLabel help(nullptr);
        QCOMPARE(interfaceOf(&help)->role(), QAccessible::StaticText);
    }
};

TEST_CLASS(tst_Accessibility);
#include "tst_accessibility.moc"

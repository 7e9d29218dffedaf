// SPDX-License-Identifier: MIT
#include "module/RecentDocumentBrowser.h"
#include "module/RecentFileAction.h"
#include "state/FolderPinButton.h"
#include "tests/support/TestCase.h"
#include "tests/support/fake/FakeModule.h"

#include <QHBoxLayout>
#include <QMenu>
#include <QStyleOptionToolButton>
#include <QStylePainter>

namespace {

const QStringList submenuPaths = {"/drawings/c.dwg", "/drawings/a plan.dwg", "/drawings/b.dwg"};

//! A menu of the host with entries of its own; the recent documents are inserted before the last one.
struct HostMenu : QMenu
{
    QAction *first = addAction("New");
    QAction *last = addAction("Quit");
};

//! The module in a host with these recent documents, added to a menu of the host.
struct FilledMenu : FakeModule
{
    FilledMenu()
    {
        host.setRecent(submenuPaths);
        RecentDocumentBrowser::AddRecentFiles(&menu, menu.last);
    }
    HostMenu menu;
};

QStringList textsOf(const QMenu &menu)
{
    QStringList texts;
    const QList<QAction *> actions = menu.actions();
    for (const QAction *action : actions)
        texts.append(action->isSeparator() ? "---" : action->text());
    return texts;
}

//! An entry without a menu.
struct LoneEntry : RecentFileAction
{
    explicit LoneEntry(const QString &text = "&1 /drawings/a plan.dwg")
        : RecentFileAction(text, L"/drawings/a plan.dwg")
    {
    }
    FolderPinButton *button(int index) const
    {
        return qobject_cast<FolderPinButton *>(defaultWidget()->layout()->itemAt(index)->widget());
    }
};

//! The number of pixels that a button draws dark, and of those that it leaves white.
QPair<int, int> darkAndWhite(QWidget &button)
{
    QImage image(button.size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    button.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
    QPair<int, int> counts;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            counts.first += qGray(image.pixel(x, y)) < 64 ? 1 : 0;
            counts.second += image.pixelColor(x, y) == Qt::white ? 1 : 0;
        }
    }
    return counts;
}

//! Draws only its text, as Qt does.
class LabelOnly : public QToolButton
{
protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QStyleOptionToolButton option;
        initStyleOption(&option);
        QStylePainter(this).drawControl(QStyle::CE_ToolButtonLabel, option);
    }
};

//! Calls a function for each action that is added to a menu.
class ActionWatcher : public QObject
{
public:
    ActionWatcher(QMenu &menu, std::function<void()> onAdded) : m_onAdded(std::move(onAdded))
    {
        menu.installEventFilter(this);
    }
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == QEvent::ActionAdded)
            m_onAdded();
        return false;
    }

private:
    std::function<void()> m_onAdded;
};

} // namespace

class tst_RecentFilesMenu : public TestCase
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        RecentDocumentBrowser::menuPinButtonList.clear();
        QApplication::setStyle(m_style);
        QApplication::setLayoutDirection(Qt::LeftToRight);
        TestCase::cleanup();
    }

    //! The hidden menu is never shown. Polishing its widgets takes longer than all the rest.
    void nothingIsPolishedUnseen()
    {
        FilledMenu inHost;
        const QList<QAction *> entries = inHost.menu.actions().mid(2, 3);
        for (QAction *action : entries) {
            QWidget *outer = qobject_cast<RecentFileAction *>(action)->defaultWidget();
            const QList<QWidget *> widgets = outer->findChildren<QWidget *>() << outer;
            for (const QWidget *widget : widgets)
                QVERIFY(!widget->testAttribute(Qt::WA_StyleSheetTarget)); // which polishing with a sheet sets
        }
    }

    void entriesAreBetweenTwoSeparators()
    {
        FilledMenu inHost;
        QCOMPARE(textsOf(inHost.menu),
                 QStringList({"New", "---", "&1 /drawings/c.dwg", "&2 /drawings/a plan.dwg",
                              "&3 /drawings/b.dwg", "---", "Quit"}));
        QStringList paths; // more than any menu shows
        QStringList texts;
        for (int i = 1; i <= 120; ++i) {
            paths.append(QString("//server\\share/a\\%1.dwg").arg(i)); // others' separators are kept
            texts.append('&' + QString::number(i) + ' ' + paths.last());
        }
        inHost.host.setRecent(paths);
        HostMenu atTheEnd;
        RecentDocumentBrowser::AddRecentFiles(&atTheEnd, nullptr);
        QCOMPARE(textsOf(atTheEnd), QStringList({"New", "Quit", "---"}) + texts + QStringList("---"));
        QStringList listed;
        for (const QAction *entry : qAsConst(RecentDocumentBrowser::recentDocActionList))
            listed.append(qobject_cast<const RecentFileAction *>(entry)->filePath);
        QCOMPARE(listed, paths);
    }

    void withoutDocumentsOnlyTheSeparatorsAreAdded()
    {
        // An empty list, no list, no services.
        const QPair<bool, bool> cases[] = {{true, true}, {true, false}, {false, true}};
        for (const auto &[services, list] : cases) {
            FilledMenu inHost;
            inHost.host.setRecent({});
            inHost.host.hasServices = services;
            inHost.host.hasRecentFileList = list;
            HostMenu menu;
            RecentDocumentBrowser::AddRecentFiles(&menu, menu.last);
            QCOMPARE(textsOf(menu), QStringList({"New", "---", "---", "Quit"}));
            QVERIFY(RecentDocumentBrowser::recentDocActionList.isEmpty());
            QCOMPARE(RecentDocumentBrowser::recentDocMenu, &menu);
        }
    }

    void theRegistryFollowsTheLatestMenuAndTheFormerMenuKeepsItsEntries()
    {
        const FilledMenu inHost;
        const HostMenu &first = inHost.menu;
        const QList<QAction *> entries = first.actions();
        QCOMPARE(RecentDocumentBrowser::recentDocMenu, &first);
        QCOMPARE(RecentDocumentBrowser::before, first.last);
        QCOMPARE(RecentDocumentBrowser::recentDocActionList, entries.mid(2, 3));
        const QList<FolderPinButton *> pins = RecentDocumentBrowser::menuPinButtonList;
        QCOMPARE(pins.size(), 3);

        QMenu second;
        RecentDocumentBrowser::AddRecentFiles(&second, nullptr);
        QCOMPARE(RecentDocumentBrowser::recentDocMenu, &second);
        QVERIFY(!RecentDocumentBrowser::before);
        QCOMPARE(RecentDocumentBrowser::recentDocActionList, second.actions().mid(1, 3));
        QCOMPARE(first.actions(), entries);
        // Pins accumulate until the list is cleared.
        QCOMPARE(RecentDocumentBrowser::menuPinButtonList.size(), 6);
        QCOMPARE(RecentDocumentBrowser::menuPinButtonList.mid(0, 3), pins);
    }

    void theRegistryHasATemporaryMenuWhileEntriesAreCreated()
    {
        const FilledMenu inHost;
        QMenu menu;
        QList<int> entriesMeanwhile;
        bool isAnother = true;
        const ActionWatcher watcher(menu, [&] {
            const QMenu *meanwhile = RecentDocumentBrowser::recentDocMenu;
            isAnother = isAnother && meanwhile && meanwhile != &inHost.menu && meanwhile != &menu &&
                        !meanwhile->parent() && RecentDocumentBrowser::before == inHost.menu.last;
            entriesMeanwhile.append(RecentDocumentBrowser::recentDocActionList.size());
        });
        RecentDocumentBrowser::AddRecentFiles(&menu, nullptr);
        QCOMPARE(entriesMeanwhile, QList<int>({0, 0, 1, 2, 3})); // each is listed after it is in the menu
        QVERIFY(isAnother);
    }

    void entriesInAHostMenuAreDeletedWithTheModule()
    {
        FilledMenu inHost;
        inHost.end();
        QCOMPARE(textsOf(inHost.menu), QStringList({"New", "---", "---", "Quit"}));
    }

    void anEntryIsAWidgetActionWithoutParentAndWithoutHandlers()
    {
        const FakeHost host;
        RecentFileAction action(L"&1 C:\\a\\b.dwg", L"C:/a/b.dwg");
        QCOMPARE(action.text(), "&1 C:\\a\\b.dwg"); // both unchanged
        QCOMPARE(QString(action.filePath), "C:/a/b.dwg");
        QVERIFY(!action.parent());
        QVERIFY(!action.menu());
        const QMetaObject *meta = action.metaObject();
        QCOMPARE(meta->className(), "RecentFileAction");
        QCOMPARE(meta->superClass()->className(), "QWidgetAction");
        QCOMPARE(meta->methodCount(), meta->methodOffset());
        QCOMPARE(meta->propertyCount(), meta->propertyOffset());
        action.trigger();
        drainEvents();
        QCOMPARE(host.calls, QStringList());
    }

    void anEntryHasButtonsCloseInARow()
    {
        const LoneEntry action;
        const QWidget *widget = action.defaultWidget();
        QVERIFY(widget->objectName().isEmpty()); // by which its buttons know that they are not in a tile
        QCOMPARE(widget->styleSheet(), ":hover{color:blue ; background-color:palette(highlight);}");
        const auto *layout = qobject_cast<QHBoxLayout *>(widget->layout());
        QVERIFY(layout);
        QCOMPARE(layout->alignment(), Qt::AlignTop);
        QCOMPARE(layout->contentsMargins(), QMargins(0, 0, 0, 0));
        QCOMPARE(layout->spacing(), 0);

        QCOMPARE(layout->count(), 4);
        QCOMPARE(action.button(0), action.textButton);
        QCOMPARE(action.textButton->objectName(), "menuTextButton");
        QCOMPARE(action.textButton->text(), action.text());
        const QString sheet =
            "QToolButton {%1color: rgba(0, 0, 0, 100%);%1background-color: rgba(0, 0, 0, 0%);%2}";
        QCOMPARE(action.textButton->styleSheet(), sheet.arg(QString(24, ' '), QString(20, ' ')));
        const QSpacerItem *spacer = layout->itemAt(1)->spacerItem();
        QVERIFY(spacer);
        QCOMPARE(spacer->sizeHint(), QSize(40, 20));
        QCOMPARE(spacer->sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum));
        QCOMPARE(action.button(2)->objectName(), "folderButton");
        QCOMPARE(action.button(3)->objectName(), "pinButton");
        QCOMPARE(widget->findChildren<QWidget *>(), // by which Tab and screen readers go
                 QList<QWidget *>({action.button(0), action.button(2), action.button(3)}));
        QVERIFY(!action.button(3)->isChecked());
        const LoneEntry second;
        QCOMPARE(RecentDocumentBrowser::menuPinButtonList,
                 QList<FolderPinButton *>({action.button(3), second.button(3)}));
    }

    void buttonsHaveThePathAfterTheNumber_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("path");
        QTest::newRow("two digits") << "&12 /drawings/a.dwg"
                                    << "/drawings/a.dwg";
        QTest::newRow("blanks") << "&1 /my drawings/a plan.dwg"
                                << "/my drawings/a plan.dwg";
        QTest::newRow("a leading blank") << "&1  a.dwg"
                                         << " a.dwg";
        QTest::newRow("an ampersand") << "&1 /a&b/c & d.dwg"
                                      << "/a&b/c & d.dwg";
        QTest::newRow("no blank at all") << "/drawings/a.dwg"
                                         << "/drawings/a.dwg";
        QTest::newRow("a tab is not a blank") << "&1\ta.dwg"
                                              << "&1\ta.dwg";
    }

    void buttonsHaveThePathAfterTheNumber()
    {
        QFETCH(QString, text);
        QFETCH(QString, path);
        const LoneEntry action(text);
        for (const int index : {0, 2, 3})
            QCOMPARE(action.button(index)->path(), path);
    }

    void theTextIsBlackOnTheMenusBackground()
    {
        for (const char *style : {"Fusion", "Windows"}) { // Qt always has both
            QApplication::setStyle(style);
            LoneEntry action;
            QMenu menu;
            menu.addAction(&action);
            menu.popup(QPoint(20, 20));
            QVERIFY(waitForExposed(&menu));
            QToolButton &button = *action.textButton;
            const auto atRest = darkAndWhite(button);
            QVERIFY(atRest.first > 0);
            QVERIFY2(atRest.first < atRest.second, "the text is on a dark panel");
            button.setAttribute(Qt::WA_UnderMouse); // as the application sets it when the pointer enters
            QCOMPARE(darkAndWhite(button), atRest);
            button.setDown(true);
            QCOMPARE(darkAndWhite(button), atRest);
            button.setDown(false);
            button.setFocus();
            QVERIFY(button.hasFocus());
            QCOMPARE(darkAndWhite(button), atRest);
        }
    }

    void thePathKeepsItsOrderOnEveryDesktop()
    {
        const auto picture = [](Qt::LayoutDirection direction) {
            QApplication::setLayoutDirection(direction);
            const LoneEntry action("&1 /plans/1. (2).dwg");
            action.textButton->adjustSize();
            return action.textButton->grab().toImage();
        };
        const QImage fromTheRight = picture(Qt::RightToLeft);
        QCOMPARE(fromTheRight, picture(Qt::LeftToRight));
    }

    void ampersandsOfThePathAreShown()
    {
        const LoneEntry action("&1 /R&D/a & b.dwg");
        QToolButton &button = *action.textButton;
        LabelOnly reference;
        reference.setStyleSheet(button.styleSheet());
        reference.setText("&1 /R&&D/a && b.dwg");
        QCOMPARE(button.sizeHint(), reference.sizeHint());
        button.adjustSize();
        reference.resize(button.size());
        QCOMPARE(button.grab().toImage(), reference.grab().toImage());
    }

    void anEntryIsDeletedWithItsWidgetsAndChangesNoList()
    {
        auto *action = new LoneEntry;
        RecentDocumentBrowser::recentDocActionList = {action};
        const QPointer<QWidget> widget = action->defaultWidget();
        const QPointer<QWidget> textButton = action->textButton;
        const QPointer<QWidget> pin = action->button(3);
        delete action;
        QVERIFY(!widget && !textButton && !pin);
        QCOMPARE(RecentDocumentBrowser::recentDocActionList.size(), 1);
        QCOMPARE(RecentDocumentBrowser::menuPinButtonList.size(), 1);
        RecentDocumentBrowser::recentDocActionList.clear();
    }

private:
    const QString m_style = QApplication::style()->objectName();
};

TEST_CLASS(tst_RecentFilesMenu);
#include "tst_recentfilesmenu.moc"

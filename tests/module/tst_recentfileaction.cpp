// SPDX-License-Identifier: MIT
#include "module/RecentDocumentBrowser.h"
#include "module/RecentFileAction.h"
#include "state/FolderPinButton.h"
#include "tests/support/ModuleInHost.h"
#include "tests/support/TestCase.h"

#include <QHBoxLayout>
#include <QMenu>
#include <QPointer>
#include <QStyle>

namespace {

const CFxString plainText = L"&1 /drawings/a plan.dwg";
const CFxString plainPath = L"/drawings/a plan.dwg";

FolderPinButton *buttonIn(const RecentFileAction &action, int index)
{
    return qobject_cast<FolderPinButton *>(action.defaultWidget()->layout()->itemAt(index)->widget());
}

//! How many pixels a button draws dark, and how many it leaves white.
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

} // namespace

//! One recent document in a menu.
class tst_RecentFileAction : public TestCase
{
    Q_OBJECT

private slots:
    void cleanup();

    void itIsAWidgetActionWithoutParentAndWithoutHandlers();
    void itKeepsTextAndPathAsTheyAre();
    void theEntrysWidgetHasNoNameAndItsOwnLook();
    void contentsStandCloseInARow();
    void buttonsStandForThePathBehindTheNumber_data();
    void buttonsStandForThePathBehindTheNumber();
    void theTextButtonShowsTheNumberedPath();
    void theTextIsBlackOnTheMenusGround_data();
    void theTextIsBlackOnTheMenusGround();
    void thePathKeepsItsOrderOnEveryDesktop();
    void itsPinIsListedBehindTheOthers();
    void aTriggerOpensNothing();
    void itsDeletionTouchesNoList();
    void itsWidgetsGoWithIt();

private:
    const QString m_style = QApplication::style()->objectName();
};

void tst_RecentFileAction::cleanup()
{
    RecentDocumentBrowser::menuPinButtonList.clear();
    QApplication::setStyle(m_style);
    TestCase::cleanup();
}

void tst_RecentFileAction::itIsAWidgetActionWithoutParentAndWithoutHandlers()
{
    const RecentFileAction action(plainText, plainPath);
    QVERIFY(!action.parent());
    QVERIFY(!action.menu());
    const QMetaObject *meta = action.metaObject();
    QCOMPARE(meta->className(), "RecentFileAction");
    QCOMPARE(meta->superClass()->className(), "QWidgetAction");
    QCOMPARE(meta->methodCount(), meta->methodOffset());
    QCOMPARE(meta->propertyCount(), meta->propertyOffset());
}

void tst_RecentFileAction::itKeepsTextAndPathAsTheyAre()
{
    const RecentFileAction action(L"&1 C:\\a\\b.dwg", L"C:/a/b.dwg");
    QCOMPARE(action.text(), QStringLiteral("&1 C:\\a\\b.dwg"));
    QCOMPARE(QString(action.filePath), QStringLiteral("C:/a/b.dwg"));
}

void tst_RecentFileAction::theEntrysWidgetHasNoNameAndItsOwnLook()
{
    const RecentFileAction action(plainText, plainPath);
    const QWidget *widget = action.defaultWidget();
    QVERIFY(widget);
    QVERIFY(widget->objectName().isEmpty()); // by which its buttons know that they are in no tile
    QCOMPARE(widget->styleSheet(),
             QStringLiteral(":hover{color:blue ; background-color:palette(highlight);}"));
    const auto *layout = qobject_cast<QHBoxLayout *>(widget->layout());
    QVERIFY(layout);
    QCOMPARE(layout->alignment(), Qt::AlignTop);
    QCOMPARE(layout->contentsMargins(), QMargins(0, 0, 0, 0));
    QCOMPARE(layout->spacing(), 0);
}

void tst_RecentFileAction::contentsStandCloseInARow()
{
    const RecentFileAction action(plainText, plainPath);
    const QLayout *layout = action.defaultWidget()->layout();
    QCOMPARE(layout->count(), 4);
    QCOMPARE(buttonIn(action, 0), action.textButton);
    QCOMPARE(action.textButton->objectName(), QStringLiteral("menuTextButton"));
    const QSpacerItem *spacer = layout->itemAt(1)->spacerItem();
    QVERIFY(spacer);
    QCOMPARE(spacer->sizeHint(), QSize(40, 20));
    QCOMPARE(spacer->sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum));
    QCOMPARE(buttonIn(action, 2)->objectName(), QStringLiteral("folderButton"));
    QCOMPARE(buttonIn(action, 3)->objectName(), QStringLiteral("pinButton"));
}

void tst_RecentFileAction::buttonsStandForThePathBehindTheNumber_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("path");
    QTest::newRow("a plain path") << QStringLiteral("&1 /drawings/a.dwg")
                                  << QStringLiteral("/drawings/a.dwg");
    QTest::newRow("two digits") << QStringLiteral("&12 /drawings/a.dwg") << QStringLiteral("/drawings/a.dwg");
    QTest::newRow("a path with blanks")
        << QStringLiteral("&1 /my drawings/a plan.dwg") << QStringLiteral("/my drawings/a plan.dwg");
    QTest::newRow("a path that begins with a blank")
        << QStringLiteral("&1  a.dwg") << QStringLiteral(" a.dwg");
    QTest::newRow("a path with an ampersand")
        << QStringLiteral("&1 /a&b/c & d.dwg") << QStringLiteral("/a&b/c & d.dwg");
    QTest::newRow("no blank at all") << QStringLiteral("/drawings/a.dwg")
                                     << QStringLiteral("/drawings/a.dwg");
    QTest::newRow("a tab is no blank") << QStringLiteral("&1\ta.dwg") << QStringLiteral("&1\ta.dwg");
}

void tst_RecentFileAction::buttonsStandForThePathBehindTheNumber()
{
    QFETCH(QString, text);
    QFETCH(QString, path);
    const RecentFileAction action(text, plainPath);
    QCOMPARE(action.textButton->path(), path);
    QCOMPARE(buttonIn(action, 2)->path(), path);
    QCOMPARE(buttonIn(action, 3)->path(), path);
}

void tst_RecentFileAction::theTextButtonShowsTheNumberedPath()
{
    const RecentFileAction action(plainText, plainPath);
    QCOMPARE(action.textButton->text(), QString(plainText));
    const QString sheet = QStringLiteral("QToolButton {%1color: rgba(0, 0, 0, 100%);"
                                         "%1background-color: rgba(0, 0, 0, 0%);%2}")
                              .arg(QString(24, QLatin1Char(' ')), QString(20, QLatin1Char(' ')));
    QCOMPARE(action.textButton->styleSheet(), sheet);
}

void tst_RecentFileAction::theTextIsBlackOnTheMenusGround_data()
{
    QTest::addColumn<QString>("style");
    for (const char *style : {"Fusion", "Windows"}) // which Qt always has
        QTest::newRow(style) << QString::fromLatin1(style);
}

void tst_RecentFileAction::theTextIsBlackOnTheMenusGround()
{
    QFETCH(QString, style);
    QApplication::setStyle(style);
    RecentFileAction action(plainText, plainPath);
    QMenu menu;
    menu.addAction(&action);
    menu.popup(QPoint(20, 20));
    QVERIFY(waitForExposed(&menu));
    QToolButton &button = *action.textButton;
    const auto atRest = darkAndWhite(button);
    QVERIFY(atRest.first > 0);
    QVERIFY2(atRest.first < atRest.second, "the text stands on a dark panel");
    button.setAttribute(Qt::WA_UnderMouse); // as the application sets it with the pointer's coming
    QCOMPARE(darkAndWhite(button), atRest);
    button.setDown(true);
    QCOMPARE(darkAndWhite(button), atRest);
    button.setDown(false);
    button.setFocus();
    QVERIFY(button.hasFocus());
    QCOMPARE(darkAndWhite(button), atRest);
}

void tst_RecentFileAction::thePathKeepsItsOrderOnEveryDesktop()
{
    const auto picture = [](Qt::LayoutDirection direction) {
        QApplication::setLayoutDirection(direction);
        const RecentFileAction action(L"&1 /plans/1. (2).dwg", L"/plans/1. (2).dwg");
        action.textButton->adjustSize();
        return action.textButton->grab().toImage();
    };
    const QImage fromTheRight = picture(Qt::RightToLeft);
    QCOMPARE(fromTheRight, picture(Qt::LeftToRight));
}

void tst_RecentFileAction::itsPinIsListedBehindTheOthers()
{
    const RecentFileAction first(plainText, plainPath);
    const RecentFileAction second(L"&2 /drawings/b.dwg", L"/drawings/b.dwg");
    QCOMPARE(RecentDocumentBrowser::menuPinButtonList,
             QList<FolderPinButton *>({buttonIn(first, 3), buttonIn(second, 3)}));
    QVERIFY(!buttonIn(first, 3)->isChecked());
}

void tst_RecentFileAction::aTriggerOpensNothing()
{
    FakeHost host;
    RecentFileAction action(plainText, plainPath);
    action.trigger();
    drainEvents();
    QCOMPARE(host.calls, QStringList());
}

void tst_RecentFileAction::itsDeletionTouchesNoList()
{
    auto *action = new RecentFileAction(plainText, plainPath);
    RecentDocumentBrowser::recentDocActionList = {action};
    delete action;
    QCOMPARE(RecentDocumentBrowser::recentDocActionList.size(), 1);
    QCOMPARE(RecentDocumentBrowser::menuPinButtonList.size(), 1);
    RecentDocumentBrowser::recentDocActionList.clear();
}

void tst_RecentFileAction::itsWidgetsGoWithIt()
{
    auto *action = new RecentFileAction(plainText, plainPath);
    const QPointer<QWidget> widget = action->defaultWidget();
    const QPointer<QWidget> textButton = action->textButton;
    const QPointer<QWidget> pin = buttonIn(*action, 3);
    delete action;
    QVERIFY(!widget && !textButton && !pin);
}

QTEST_MAIN(tst_RecentFileAction)
#include "tst_recentfileaction.moc"

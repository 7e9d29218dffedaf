// SPDX-License-Identifier: MIT
#include "tests/support/Browser.h"
#include "tests/support/TestCase.h"
#include "ui/HelpLabel.h"
#include "ui/RecentDocMainWindow.h"

#include <QDialog>
#include <QMouseEvent>
#include <QPointer>

Q_DECLARE_METATYPE(Qt::MouseButton)
Q_DECLARE_METATYPE(Qt::KeyboardModifiers)

namespace {

//! A press alone: what it calls may delete the label, and there would be nobody to take the release.
void press(QWidget *widget, Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers modifiers = {})
{
    QMouseEvent event(QEvent::MouseButtonPress, QPointF(5, 5), button, button, modifiers);
    QCoreApplication::sendEvent(widget, &event);
}

//! An open popup with its help icon, or what is left of it.
struct OpenPopup
{
    OpenPopup() : browser(2)
    {
        browser.createDocument();
        popup = browser.openPopup();
        label = popup->findChild<HelpLabel *>();
    }
    Browser browser;
    QPointer<RecentDocMainWindow> popup;
    QPointer<HelpLabel> label;
};

} // namespace

class TestHelpLabel : public TestCase
{
    Q_OBJECT

private slots:
    void isAPlainLabel();
    void offersNothingThroughItsMetaObject();
    void anyButtonRunsTheHelpAndClosesThePopup_data();
    void anyButtonRunsTheHelpAndClosesThePopup();
    void popupIsOpenWhileTheCommandRuns();
    void runsTheCommandWithoutArgument();
    void givesBackTheHandleBeforeClosing();
    void aCommandWithoutHandleWillDo();
    void theCommandMayDeleteThePopup();
    void theCommandMayRunEvents();
    void withoutServicesThePopupClosesAllTheSame();
    void moreThanThePressIsNotNeeded();
    void closesWhateverItsParentIs();
};

void TestHelpLabel::isAPlainLabel()
{
    QWidget window;
    const HelpLabel label(&window);
    QCOMPARE(label.parentWidget(), &window);
    QCOMPARE(label.objectName(), QStringLiteral("help_label"));
    QCOMPARE(label.sizePolicy(), QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred));
    QCOMPARE(label.frameShadow(), QFrame::Plain);
    QCOMPARE(label.lineWidth(), 0);
    QVERIFY(label.autoFillBackground());
}

void TestHelpLabel::offersNothingThroughItsMetaObject()
{
    const QMetaObject &meta = HelpLabel::staticMetaObject;
    QCOMPARE(meta.className(), "HelpLabel");
    QCOMPARE(meta.superClass(), &QLabel::staticMetaObject);
    QCOMPARE(meta.methodCount(), meta.methodOffset());
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
}

void TestHelpLabel::anyButtonRunsTheHelpAndClosesThePopup_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::newRow("left") << Qt::LeftButton << Qt::KeyboardModifiers();
    QTest::newRow("right") << Qt::RightButton << Qt::KeyboardModifiers();
    QTest::newRow("middle") << Qt::MiddleButton << Qt::KeyboardModifiers();
    QTest::newRow("back") << Qt::BackButton << Qt::KeyboardModifiers();
    QTest::newRow("left with Control") << Qt::LeftButton << Qt::KeyboardModifiers(Qt::ControlModifier);
}

void TestHelpLabel::anyButtonRunsTheHelpAndClosesThePopup()
{
    QFETCH(Qt::MouseButton, button);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    const OpenPopup open;
    press(open.label, button, modifiers);
    QCOMPARE(open.browser.host.commandsRun, QStringList(QStringLiteral("_RHELP")));
    QVERIFY(!open.popup->isVisible());
    drainEvents();
    QVERIFY(!open.popup); // deletes itself
    QCOMPARE(open.browser.host.openedPaths(), QStringList());
}

void TestHelpLabel::popupIsOpenWhileTheCommandRuns()
{
    OpenPopup open;
    bool wasVisible = false;
    open.browser.host.onRunCommand = [&](const QString & /*name*/) { wasVisible = open.popup->isVisible(); };
    press(open.label);
    QVERIFY(wasVisible);
}

void TestHelpLabel::runsTheCommandWithoutArgument()
{
    const OpenPopup open;
    press(open.label);
    QVERIFY(open.browser.host.calls.contains(QStringLiteral("run _RHELP"))); // nothing behind the name
}

void TestHelpLabel::givesBackTheHandleBeforeClosing()
{
    const OpenPopup open;
    int heldAtTheEnd = -1;
    connect(open.popup, &QDialog::finished, this, [&] { heldAtTheEnd = open.browser.host.openReferences; });
    press(open.label);
    QCOMPARE(heldAtTheEnd, 0);
    QCOMPARE(open.browser.host.calls.count(QStringLiteral("run taken")), 1);
    QCOMPARE(open.browser.host.calls.count(QStringLiteral("run released")), 1);
}

void TestHelpLabel::aCommandWithoutHandleWillDo()
{
    OpenPopup open;
    open.browser.host.runCommandGivesHandle = false;
    press(open.label);
    QCOMPARE(open.browser.host.commandsRun.size(), 1);
    QVERIFY(!open.popup->isVisible());
}

void TestHelpLabel::theCommandMayDeleteThePopup()
{
    OpenPopup open;
    open.browser.host.onRunCommand = [&](const QString & /*name*/) { delete open.popup; };
    press(open.label);
    QVERIFY(!open.label);
    QCOMPARE(open.browser.host.openReferences, 0);
}

void TestHelpLabel::theCommandMayRunEvents()
{
    OpenPopup open;
    open.browser.host.onRunCommand = [&](const QString & /*name*/) {
        open.popup->done(0); // the help takes the focus, say
        drainEvents();
    };
    press(open.label);
    QVERIFY(!open.popup);
    QCOMPARE(open.browser.host.openReferences, 0);
}

void TestHelpLabel::withoutServicesThePopupClosesAllTheSame()
{
    OpenPopup open;
    open.browser.host.hasServices = false;
    press(open.label);
    drainEvents();
    QVERIFY(!open.popup);
    QCOMPARE(open.browser.host.commandsRun, QStringList());
}

void TestHelpLabel::moreThanThePressIsNotNeeded()
{
    const OpenPopup open;
    QMouseEvent release(QEvent::MouseButtonRelease, QPointF(5, 5), Qt::LeftButton, Qt::NoButton,
                        Qt::NoModifier);
    QCoreApplication::sendEvent(open.label, &release);
    QVERIFY(open.popup->isVisible());
    QCOMPARE(open.browser.host.commandsRun, QStringList());
}

void TestHelpLabel::closesWhateverItsParentIs()
{
    const Browser browser;
    QWidget window;
    HelpLabel label(&window);
    window.show();
    press(&label);
    QVERIFY(!window.isVisible());
    QCOMPARE(browser.host.commandsRun.size(), 1);
}

QTEST_MAIN(TestHelpLabel)
#include "tst_helplabel.moc"

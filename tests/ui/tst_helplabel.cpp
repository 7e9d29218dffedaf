// SPDX-License-Identifier: MIT
#include "tests/support/TestCase.h"
#include "tests/support/fake/FakeBrowser.h"
#include "ui/HelpLabel.h"
#include "ui/RecentDocMainWindow.h"

#include <QMouseEvent>
#include <QPointer>

namespace {

//! An open popup and its help icon.
struct PopupWithHelp
{
    PopupWithHelp() : browser(2)
    {
        browser.createDocument();
        popup = browser.openPopup();
        label = popup->findChild<HelpLabel *>();
    }
    //! A press without a release, since what it calls may delete the label.
    void press(Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers modifiers = {}) const
    {
        QMouseEvent event(QEvent::MouseButtonPress, QPointF(5, 5), button, button, modifiers);
        QCoreApplication::sendEvent(label, &event);
    }
    FakeBrowser browser;
    QPointer<RecentDocMainWindow> popup;
    QPointer<HelpLabel> label;
};

} // namespace

class tst_HelpLabel : public TestCase
{
    Q_OBJECT

private slots:
    void isAPlainLabel()
    {
        QWidget window;
        const HelpLabel label(&window);
        QCOMPARE(label.parentWidget(), &window);
        QCOMPARE(label.objectName(), QStringLiteral("help_label"));
        QCOMPARE(label.sizePolicy(), QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred));
        QCOMPARE(label.frameShadow(), QFrame::Plain);
        QCOMPARE(label.lineWidth(), 0);
        QVERIFY(label.autoFillBackground());

        const QMetaObject &meta = HelpLabel::staticMetaObject;
        QCOMPARE(meta.className(), "HelpLabel");
        QCOMPARE(meta.superClass(), &QLabel::staticMetaObject);
        QCOMPARE(meta.methodCount(), meta.methodOffset());
        QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    }

    void anyButtonRunsTheHelpAndClosesThePopup_data()
    {
        QTest::addColumn<Qt::MouseButtons>("button");
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        const auto row = [](const char *name, Qt::MouseButton button, Qt::KeyboardModifiers modifiers = {}) {
            QTest::newRow(name) << Qt::MouseButtons(button) << modifiers;
        };
        row("left", Qt::LeftButton);
        row("right", Qt::RightButton);
        row("middle", Qt::MiddleButton);
        row("left with Control", Qt::LeftButton, Qt::ControlModifier);
    }

    void anyButtonRunsTheHelpAndClosesThePopup()
    {
        QFETCH(Qt::MouseButtons, button);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        PopupWithHelp open;
        QMouseEvent release(QEvent::MouseButtonRelease, QPointF(5, 5), Qt::LeftButton, Qt::NoButton,
                            Qt::NoModifier);
        QCoreApplication::sendEvent(open.label, &release); // which does nothing
        QCOMPARE(open.browser.host.commandsRun, QStringList());

        bool wasVisible = false;
        open.browser.host.onRunCommand = [&](const QString & /*name*/) {
            wasVisible = open.popup->isVisible();
        };
        int heldAtTheEnd = -1;
        connect(open.popup, &QDialog::finished, this,
                [&] { heldAtTheEnd = open.browser.host.openReferences; });
        open.press(Qt::MouseButton(int(button)), modifiers);
        QVERIFY(wasVisible); // while the command ran
        QCOMPARE(heldAtTheEnd, 0);
        QCOMPARE(open.browser.host.commandsRun, QStringList(QStringLiteral("_RHELP")));
        QCOMPARE(open.browser.host.calls.filter(QStringLiteral("run ")), // nothing follows the name
                 QStringList({"run _RHELP", "run taken", "run released"}));
        QVERIFY(!open.popup->isVisible());
        drainEvents();
        QVERIFY(!open.popup); // deletes itself
        QCOMPARE(open.browser.host.openedPaths(), QStringList());
    }

    void closesWhateverTheHostLacks()
    {
        for (const bool hasServices : {false, true}) {
            PopupWithHelp open;
            open.browser.host.hasServices = hasServices;
            open.browser.host.runCommandGivesHandle = false;
            open.press();
            QCOMPARE(open.browser.host.commandsRun.size(), hasServices ? 1 : 0);
            QVERIFY(!open.popup->isVisible());
        }
    }

    void theCommandMayDeleteThePopup()
    {
        PopupWithHelp open;
        open.browser.host.onRunCommand = [&](const QString & /*name*/) { delete open.popup; };
        open.press();
        QVERIFY(!open.label);
        QCOMPARE(open.browser.host.openReferences, 0);
    }

    void closesWhateverItsParentIs()
    {
        const FakeBrowser browser;
        QWidget window;
        HelpLabel label(&window);
        window.show();
        QTest::mousePress(&label, Qt::LeftButton);
        QVERIFY(!window.isVisible());
        QCOMPARE(browser.host.commandsRun.size(), 1);
    }
};

TEST_CLASS(tst_HelpLabel);
#include "tst_helplabel.moc"

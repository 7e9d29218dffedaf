// SPDX-License-Identifier: MIT
#include "tests/state/PinMenu.h"
#include "tests/support/FocusReasons.h"
#include "tests/support/TestCase.h"
#include "tests/support/fake/FakeBrowser.h"
#include "ui/RecentDocDialog.h"
#include "ui/RecentDocMainWindow.h"

#include <QApplication>
#include <QPointer>

#include <algorithm>
#include <functional>

using ListChange = std::function<void()>;
Q_DECLARE_METATYPE(ListChange)

namespace {

//! For each listed menu pin its document's letter, with a star if it is checked.
QString menuPins()
{
    QStringList pins;
    for (const FolderPinButton *pin : qAsConst(RecentDocumentBrowser::menuPinButtonList))
        pins.append(pin->path().section(QLatin1Char('/'), -1).at(0) + QString(pin->isChecked() ? "*" : ""));
    return pins.join(QLatin1Char(' '));
}

//! A menu text button outside of any menu.
FolderPinButton *menuTextButton(QWidget *parent, const QString &text)
{
    QString path = QStringLiteral("/drawings/not this one.dwg");
    auto *button = new FolderPinButton(parent, path);
    button->setObjectName(QStringLiteral("menuTextButton"));
    button->setText(text);
    return button;
}

} // namespace

//! What a click on a menu's text or on a tile's pin does; tst_pinproperties tests many in sequence.
class tst_ButtonClicks : public TestCase
{
    Q_OBJECT

private slots:
    void aMenuTextOpensThePathAfterItsNumber_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("path");
        const auto row = [](const char *name, const QString &text, const QString &path) {
            QTest::newRow(name) << text << path;
        };
        row("a plain path", "&1 /d/a.dwg", "/d/a.dwg");
        row("a path with blanks", "&10 /my d/a plan.dwg", "/my d/a plan.dwg");
        row("no blank", "/d/a.dwg", "/d/a.dwg");
        row("letters of all planes", QStringLiteral("&1 /d/\u00e9\u6f22\U0001D538.dwg"),
            QStringLiteral("/d/\u00e9\u6f22\U0001D538.dwg"));
        row("a number alone", "&1 ", "");
    }

    void aMenuTextOpensThePathAfterItsNumber()
    {
        QFETCH(QString, text);
        QFETCH(QString, path);
        const FakeHost host;
        QWidget parent;
        FolderPinButton *button = menuTextButton(&parent, text);
        button->click();
        QString another = QStringLiteral("/d/another one.dwg");
        button->OpenDocument(another);
        QCOMPARE(host.openedPaths(), QStringList({path, another}));
        const FakeHost::OpenCall &call = host.opened.front();
        QVERIFY(call.mode == 0 && call.flags == 0 && call.resultWasEmpty);
    }

    void aMenuTextMayBeDeletedByWhatItOpens()
    {
        FakeHost host;
        auto *parent = new QWidget;
        const QPointer<FolderPinButton> button = menuTextButton(parent, QStringLiteral("&1 /d/a.dwg"));
        host.onOpen = [&](const QString & /*path*/) { delete parent; };
        button->click();
        QVERIFY(!button);
        QCOMPARE(host.openedPaths(), QStringList(QStringLiteral("/d/a.dwg")));
    }

    void theNameAtTheClickDecidesWhatAButtonDoes()
    {
        PinMenu pins({QStringLiteral("W"), QStringLiteral("X")});
        const QStringList before = displayed(pins.menu);
        pins.setPinned(1); // what the next ordering would show
        FolderPinButton *button = pins.entry(0).textButton;
        for (const char *name : {"", "menuTextButton"}) {
            button->setObjectName(QLatin1String(name));
            button->click();
            QCOMPARE(pins.host.openedPaths().join(QLatin1Char(' ')), QLatin1String(*name ? "W" : ""));
            QCOMPARE(displayed(pins.menu), before);
        }
        button->setObjectName(QStringLiteral("pinButton"));
        button->click();
        QCOMPARE(pins.host.opened.size(), std::size_t(1));
        QCOMPARE(pins.displayedEntries(), QStringList({"New", "&1 X", "&2 W", "Quit"}));
    }

    void menuPinsFollowTheListedTiles_data()
    {
        QTest::addColumn<ListChange>("change");
        QTest::addColumn<QString>("pins"); // after a click on the pin of b
        QList<FolderPinButton *> &menuPins = RecentDocumentBrowser::menuPinButtonList;
        QList<FolderPinButton *> &tilePins = RecentDocumentBrowser::docPinButtonList;
        QTest::newRow("paths differ in case") << ListChange([] {}) << QStringLiteral("a b* B");
        QTest::newRow("others that were changed in one of the lists") << ListChange([&] {
            menuPins.at(0)->setChecked(true);
            tilePins.at(2)->setChecked(true); // by itself it notifies nothing
        }) << QStringLiteral("a b* B*");
        QTest::newRow("one without a tile leaves the list")
            << ListChange([&] { tilePins.removeFirst(); }) << QStringLiteral("b* B");
        QTest::newRow("one of two tiles is listed twice")
            << ListChange([&] { tilePins.append(tilePins.at(0)); }) << QStringLiteral("a a b* B");
        QTest::newRow("they keep their own order")
            << ListChange([&] { std::reverse(menuPins.begin(), menuPins.end()); })
            << QStringLiteral("B b* a");
        QTest::newRow("null entries are skipped") << ListChange([&] {
            menuPins.insert(1, nullptr);
            tilePins.prepend(nullptr);
        }) << QStringLiteral("a b* B");
    }

    void menuPinsFollowTheListedTiles()
    {
        QFETCH(ListChange, change);
        QFETCH(QString, pins);
        FakeBrowser browser(QStringList({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("B")}));
        browser.createDocument();
        browser.openPopup();
        change();
        FakeBrowser::button(browser.tiles().at(1), "pinButton")->click();
        QCOMPARE(menuPins(), pins);
    }

    void aTilesPinGivesTheFocusToThePopup()
    {
        FakeBrowser browser(2);
        browser.createDocument();
        const QPointer<RecentDocMainWindow> popup = browser.openPopup();
        QCursor::setPos(popup->geometry().center()); // or it would close when it loses the focus
        QVERIFY(waitForActive(popup));
        FolderPinButton *pin = FakeBrowser::button(browser.tiles().at(0), "pinButton");
        pin->setFocus();
        QCOMPARE(QApplication::focusWidget(), pin);
        const QWidget *focusInStep = nullptr;
        connect(RecentDocumentBrowser::menuPinButtonList.at(0), &FolderPinButton::toggled, pin,
                [&] { focusInStep = QApplication::focusWidget(); });
        const FocusReasons focus(*popup);
        browser.host.calls.clear();
        pin->click();
        QCOMPARE(focusInStep, pin); // the pins are changed first
        QCOMPARE(QApplication::focusWidget(), popup.data());
        QCOMPARE(focus.reasons, QList<Qt::FocusReason>{Qt::OtherFocusReason});
        drainEvents();
        QVERIFY(popup && popup->isVisible());
        QCOMPARE(browser.host.calls, QStringList());
    }
};

TEST_CLASS(tst_ButtonClicks);
#include "tst_buttonclicks.moc"

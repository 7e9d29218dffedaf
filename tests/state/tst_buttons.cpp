// SPDX-License-Identifier: MIT
#include "module/RecentDocumentBrowser.h"
#include "state/FolderPinButton.h"
#include "tests/support/FocusReasons.h"
#include "tests/support/MarkingTranslator.h"
#include "tests/support/TestCase.h"
#include "tests/support/fake/FakeModule.h"
#include "ui/QBalloonTip.h"

#include <QApplication>
#include <QIcon>
#include <QTimer>

using ButtonFactory = FolderPinButton *(*)(QWidget *, QString &);
Q_DECLARE_METATYPE(ButtonFactory)

namespace {

QString documentPath = QStringLiteral("/my drawings/a \"plan\".dwg");

//! What an icon shows at the buttons' size.
QImage shownBy(const QIcon &icon, QIcon::State state = QIcon::Off)
{
    return icon.pixmap(QSize(21, 21), QIcon::Normal, state).toImage();
}

void sendToButton(QWidget *button, QEvent::Type type)
{
    QEvent event(type);
    QCoreApplication::sendEvent(button, &event);
}

//! A button in a tile in a window.
struct ButtonInTile
{
    explicit ButtonInTile(const QString &name = QStringLiteral("pinButton"))
    {
        tile->setObjectName(QStringLiteral("RecentDocDialog"));
        tile->setGeometry(30, 40, 161, 131);
        button->setObjectName(name);
        button->setGeometry(7, 9, 21, 21);
        button->setTipText(QStringLiteral("a tip"));
        button->setText(QStringLiteral("&3 /my drawings/a plan.dwg"));
        window.setGeometry(0, 0, 300, 200);
    }
    void enter() const { sendToButton(button, QEvent::Enter); }
    void leave() const { sendToButton(button, QEvent::Leave); }
    //! Whether each timer that it has started, in their order, still runs.
    QList<bool> timers() const
    {
        QList<bool> active;
        const QList<QTimer *> timers = button->findChildren<QTimer *>();
        for (const QTimer *timer : timers)
            active.append(timer->isActive());
        return active;
    }

    QWidget window;
    QWidget *tile = new QWidget(&window);
    FolderPinButton *button = new FolderPinButton(tile, documentPath);
};

} // namespace

//! What the buttons are made of, what the pointer over one does, and the balloon that is prepared and never
//! shown.
class tst_Buttons : public TestCase
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        QBalloonTip::hideBalloon();
        drainEvents();
        RecentDocumentBrowser::recentFileImageMap.clear();
        TestCase::cleanup();
    }

    void aNewButtonIsPlain()
    {
        QWidget parent;
        QString path = QStringLiteral("//server\\share/../a  b.DWG ");
        const FolderPinButton button(&parent, path);
        path.clear();
        QCOMPARE(button.path(), QStringLiteral("//server\\share/../a  b.DWG ")); // kept as it is
        QCOMPARE(button.parent(), &parent);
        QVERIFY(button.objectName().isEmpty() && button.tipText().isEmpty() && button.text().isEmpty());
        QVERIFY(button.icon().isNull());
        QVERIFY(button.testAttribute(Qt::WA_MouseTracking));
        QCOMPARE(button.styleSheet(), QStringLiteral("border: none;\nmargin: 0px;\npadding: 0px;"));
        QCOMPARE(button.toolButtonStyle(), Qt::ToolButtonIconOnly);
        QVERIFY(!button.isCheckable());
    }

    void itHasTwoSlotsAndNothingElseOfItsOwn()
    {
        const QMetaObject &meta = FolderPinButton::staticMetaObject;
        QCOMPARE(meta.className(), "FolderPinButton");
        QCOMPARE(meta.superClass(), &QToolButton::staticMetaObject);
        QCOMPARE(meta.methodCount() - meta.methodOffset(), 2);
        const QMetaMethod first = meta.method(meta.methodOffset());
        const QMetaMethod second = meta.method(meta.methodOffset() + 1);
        QCOMPARE(first.methodSignature(), QByteArray("pinDown()"));
        QCOMPARE(second.methodSignature(), QByteArray("showBalloonTip()"));
        QVERIFY(first.methodType() == QMetaMethod::Slot && second.methodType() == QMetaMethod::Slot);
        QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    }

    void factoriesCreateThem_data()
    {
        QTest::addColumn<ButtonFactory>("create");
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("left");
        QTest::addColumn<QString>("tip");
        QTest::addColumn<QString>("picture");
        QTest::newRow("pin") << &RecentDocumentBrowser::CreatePinButton << "pinButton" << 130
                             << "Pin this document to the Recent Documents list"
                             << "pin_down_hover.png";
        QTest::newRow("folder") << &RecentDocumentBrowser::CreateFolderButton << "folderButton" << 100
                                << "Show in Folder"
                                << "Open_32x-32.svg";
    }

    void factoriesCreateThem()
    {
        QFETCH(ButtonFactory, create);
        QFETCH(QString, name);
        QFETCH(int, left);
        QFETCH(QString, tip);
        QFETCH(QString, picture);
        QWidget parent;
        const FolderPinButton *button = create(&parent, documentPath);
        QCOMPARE(button->parent(), &parent);
        QCOMPARE(button->objectName(), name);
        QCOMPARE(button->path(), documentPath);
        QCOMPARE(button->isCheckable(), create == &RecentDocumentBrowser::CreatePinButton);
        QVERIFY(!button->isChecked() && button->isEnabled());
        QCOMPARE(button->geometry(), QRect(left, 0, 21, 21));
        QCOMPARE(button->sizePolicy(), QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed));
        QCOMPARE(button->cursor().shape(), Qt::PointingHandCursor);
        QCOMPARE(button->tipText(), tip);
        QVERIFY(button->toolTip().isEmpty());
        const QImage stored = shownBy(QIcon(QStringLiteral(":/Images/Resources/") + picture));
        QVERIFY(!stored.isNull());
        QCOMPARE(shownBy(button->icon(), QIcon::On), stored);
        // Menu entries have no parent for theirs yet; a layout gives them one later.
        const std::unique_ptr<FolderPinButton> alone(create(nullptr, documentPath));
        QVERIFY(!alone->parent());
    }

    void thePinsPictureFollowsItsState()
    {
        QWidget parent;
        FolderPinButton *pin = RecentDocumentBrowser::CreatePinButton(&parent, documentPath);
        const QImage up = shownBy(QIcon(QStringLiteral(":/Images/Resources/pin_up_hover.png")));
        QCOMPARE(shownBy(pin->icon(), QIcon::Off), up);
        QVERIFY(shownBy(pin->icon(), QIcon::On) != up);
        const QImage unpinned = pin->grab().toImage();
        pin->setChecked(true);
        QVERIFY(pin->grab().toImage() != unpinned);
        pin->setChecked(false);
        QCOMPARE(pin->grab().toImage(), unpinned);
    }

    void buttonsOfAKindShareTheirPictureWhileTheModuleExists()
    {
        QWidget parent;
        for (const auto create :
             {RecentDocumentBrowser::CreatePinButton, RecentDocumentBrowser::CreateFolderButton}) {
            FakeModule inHost;
            const qint64 key = create(&parent, documentPath)->icon().cacheKey();
            QCOMPARE(create(&parent, documentPath)->icon().cacheKey(), key);
            inHost.end();
            QVERIFY(create(&parent, documentPath)->icon().cacheKey() != key);
        }
    }

    void theTipsAreTranslated()
    {
        MarkingTranslator translator;
        QCoreApplication::installTranslator(&translator);
        QWidget parent;
        FolderPinButton *pin = RecentDocumentBrowser::CreatePinButton(&parent, documentPath);
        QCOMPARE(pin->tipText(), QStringLiteral("QObject/Pin this document to the Recent Documents list"));
        pin->setChecked(true);
        QCOMPARE(pin->prepareBalloon().message,
                 QStringLiteral("QObject/Unpin this document from the Recent Documents list"));
        QCOMPARE(RecentDocumentBrowser::CreateFolderButton(&parent, documentPath)->tipText(),
                 QStringLiteral("QObject/Show in Folder"));
    }

    void enteringGivesTheFocusToTheGrandparent()
    {
        ButtonInTile hovered;
        hovered.window.show();
        QVERIFY(waitForActive(&hovered.window));
        hovered.button->setFocus();
        const FocusReasons focus(hovered.window);
        hovered.enter();
        QCOMPARE(QApplication::focusWidget(), &hovered.window);
        QCOMPARE(focus.reasons, QList<Qt::FocusReason>{Qt::OtherFocusReason});
    }

    void enteringAButtonWithoutGrandparentIsHarmless()
    {
        FolderPinButton orphan(nullptr, documentPath);
        QWidget parent;
        FolderPinButton child(&parent, documentPath);
        for (FolderPinButton *button : {&orphan, &child}) {
            sendToButton(button, QEvent::Enter);
            QCOMPARE(button->findChildren<QTimer *>().size(), 1);
            QVERIFY(QMetaObject::invokeMethod(button, "showBalloonTip"));
        }
    }

    void everyEntryStartsATimerOfHalfASecondAndLeavingStopsTheLatest()
    {
        const ButtonInTile hovered;
        hovered.leave(); // without a timer nothing happens
        QCOMPARE(hovered.timers(), QList<bool>());
        hovered.enter();
        QCOMPARE(hovered.timers(), QList<bool>{true});
        const auto *timer = hovered.button->findChild<QTimer *>();
        QVERIFY(timer->isSingleShot());
        QCOMPARE(timer->interval(), 500);
        hovered.enter();
        QCOMPARE(hovered.timers(), QList<bool>({true, true})); // the former one still runs
        hovered.leave();
        QCOMPARE(hovered.timers(), QList<bool>({true, false}));
    }

    void leavingHidesAnyBalloon()
    {
        const ButtonInTile hovered;
        hovered.enter();
        QBalloonTip::showBalloon(QImage(), QStringLiteral("title"), QStringLiteral("text"), QPoint(50, 50), 0,
                                 true);
        QVERIFY(QBalloonTip::isBalloonVisible());
        hovered.leave();
        QVERIFY(!QBalloonTip::isBalloonVisible());
    }

    void restingOnAButtonShowsNoBalloon()
    {
        for (const char *name : {"pinButton", "folderButton", "menuTextButton"}) {
            const ButtonInTile hovered((QString(name)));
            hovered.enter();
            QTRY_COMPARE(hovered.timers(), QList<bool>{false});
            // The timer's only effect: a menu text's tip becomes the file name.
            QCOMPARE(hovered.button->tipText(),
                     qstrcmp(name, "menuTextButton") == 0 ? "a plan.dwg" : "a tip");
            drainEvents();
            const QWidgetList windows = QApplication::topLevelWidgets();
            for (const QWidget *window : windows)
                QVERIFY(!qobject_cast<const QBalloonTip *>(window));
        }
    }

    void whatABalloonWouldShow_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("cached"); // the path of the picture in the cache
        QTest::addColumn<QString>("tip");
        QTest::addColumn<QPoint>("position"); // relative to the button
        const auto plain = [](const char *row, const char *name, const QSize &size, const QPoint &centre) {
            QTest::newRow(row) << name << size << "/d/b.dwg"
                               << "/d/b.dwg"
                               << "a tip" << centre;
        };
        plain("a pin", "pinButton", {21, 21}, {10, 10});
        plain("even lengths", "pinButton", {20, 32}, {9, 15});
        plain("one pixel", "pinButton", {1, 1}, {0, 0});
        const auto menuText = [](const char *row, const char *text, const char *cached, const char *tip) {
            // The entry's size, but relative to the button.
            QTest::newRow(row) << "menuTextButton" << QSize(21, 21) << text << cached << tip
                               << QPoint(160, 120);
        };
        menuText("a cached document", "&3 /my drawings/a plan.dwg", "/my drawings/a plan.dwg", "a plan.dwg");
        menuText("a document that is not cached", "&3 /my drawings/a plan.dwg", "", "a plan.dwg");
        menuText("a folder's path", "&1 /d/", "", "");
    }

    void whatABalloonWouldShow()
    {
        QFETCH(QString, name);
        QFETCH(QSize, size);
        QFETCH(QString, text);
        QFETCH(QString, cached);
        QFETCH(QString, tip);
        QFETCH(QPoint, position);
        const ButtonInTile hovered(name);
        hovered.button->resize(size);
        hovered.button->setText(text);
        QImage picture(2, 3, QImage::Format_RGB32);
        picture.fill(Qt::green);
        if (!cached.isEmpty())
            RecentDocumentBrowser::recentFileImageMap.insert(cached, picture);
        const int known = RecentDocumentBrowser::recentFileImageMap.size();
        FolderPinButton::BalloonContent balloon = hovered.button->prepareBalloon();
        QCOMPARE(balloon.image, name == QLatin1String("menuTextButton") && known ? picture : QImage());
        QVERIFY(balloon.title.isEmpty());
        QCOMPARE(balloon.message, tip);
        QCOMPARE(balloon.position, hovered.button->mapToGlobal(position));
        QCOMPARE(hovered.button->tipText(), tip);
        QCOMPARE(RecentDocumentBrowser::recentFileImageMap.size(), known);

        hovered.button->setCheckable(true);
        hovered.button->setChecked(true);
        QCOMPARE(hovered.button->prepareBalloon().message,
                 QStringLiteral("Unpin this document from the Recent Documents list"));
        QCOMPARE(hovered.button->tipText(), tip);
    }
};

TEST_CLASS(tst_Buttons);
#include "tst_buttons.moc"

// SPDX-License-Identifier: MIT
#include "module/RecentDocumentBrowser.h"
#include "state/FolderPinButton.h"
#include "tests/support/MarkingTranslator.h"
#include "tests/support/ModuleInHost.h"
#include "tests/support/TestCase.h"

#include <QIcon>
#include <QPointer>
#include <QTimer>

namespace {

QString documentPath = QStringLiteral("/my drawings/a \"plan\".dwg");

QImage pictureOf(const QIcon &icon, QIcon::State state)
{
    return icon.pixmap(QSize(21, 21), QIcon::Normal, state).toImage();
}

//! The picture that a resource gives at the buttons' size.
QImage resourcePicture(const char *name)
{
    QIcon icon;
    icon.addFile(QStringLiteral(":/Images/Resources/") + QLatin1String(name), QSize(21, 21));
    return pictureOf(icon, QIcon::Off);
}

void compareSizing(const FolderPinButton *button)
{
    QCOMPARE(button->sizePolicy().horizontalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(button->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(button->sizePolicy().horizontalStretch(), 0);
    QCOMPARE(button->sizePolicy().verticalStretch(), 0);
    QCOMPARE(button->cursor().shape(), Qt::PointingHandCursor);
    QVERIFY(button->toolTip().isEmpty());
}

} // namespace

//! What the buttons are made of.
class tst_Buttons : public TestCase
{
    Q_OBJECT

private slots:
    void aNewButtonIsPlain();
    void itsPathIsKeptAsItIs();
    void itHasTwoSlotsAndNothingElseOfItsOwn();
    void thePinButtonIsCheckableAndFixed();
    void thePinButtonsPictureFollowsItsState();
    void theFolderButtonIsFixed();
    void theFolderButtonHasItsPicture();
    void buttonsOfAKindShareTheirPictureAsLongAsTheModuleLives();
    void theButtonsBelongToTheirParent();
    void theTipsAreTranslated();
};

void tst_Buttons::aNewButtonIsPlain()
{
    QWidget parent;
    const FolderPinButton button(&parent, documentPath);
    QCOMPARE(button.parent(), &parent);
    QVERIFY(button.objectName().isEmpty());
    QVERIFY(button.tipText().isEmpty());
    QVERIFY(button.text().isEmpty());
    QVERIFY(button.icon().isNull());
    QVERIFY(button.testAttribute(Qt::WA_MouseTracking));
    QCOMPARE(button.styleSheet(), QStringLiteral("border: none;\nmargin: 0px;\npadding: 0px;"));
    QCOMPARE(button.toolButtonStyle(), Qt::ToolButtonIconOnly);
    QVERIFY(!button.isCheckable());
    QVERIFY(button.findChildren<QTimer *>().isEmpty());
}

void tst_Buttons::itsPathIsKeptAsItIs()
{
    QString path = QStringLiteral("//server\\share/../a  b.DWG ");
    const FolderPinButton button(nullptr, path);
    path.clear();
    QCOMPARE(button.path(), QStringLiteral("//server\\share/../a  b.DWG "));
}

void tst_Buttons::itHasTwoSlotsAndNothingElseOfItsOwn()
{
    const QMetaObject &meta = FolderPinButton::staticMetaObject;
    QCOMPARE(meta.className(), "FolderPinButton");
    QCOMPARE(meta.superClass(), &QToolButton::staticMetaObject);
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 2);
    const QMetaMethod first = meta.method(meta.methodOffset());
    const QMetaMethod second = meta.method(meta.methodOffset() + 1);
    QCOMPARE(first.methodType(), QMetaMethod::Slot);
    QCOMPARE(first.methodSignature(), QByteArray("pinDown()"));
    QCOMPARE(second.methodType(), QMetaMethod::Slot);
    QCOMPARE(second.methodSignature(), QByteArray("showBalloonTip()"));
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
}

void tst_Buttons::thePinButtonIsCheckableAndFixed()
{
    QWidget parent;
    const FolderPinButton *pin = RecentDocumentBrowser::CreatePinButton(&parent, documentPath);
    QCOMPARE(pin->objectName(), QStringLiteral("pinButton"));
    QCOMPARE(pin->path(), documentPath);
    QVERIFY(pin->isCheckable());
    QVERIFY(!pin->isChecked());
    QCOMPARE(pin->geometry(), QRect(130, 0, 21, 21));
    QCOMPARE(pin->tipText(), QStringLiteral("Pin this document to the Recent Documents list"));
    compareSizing(pin);
}

void tst_Buttons::thePinButtonsPictureFollowsItsState()
{
    const QImage down = resourcePicture("pin_down_hover.png");
    const QImage up = resourcePicture("pin_up_hover.png");
    QVERIFY(!down.isNull() && !up.isNull() && down != up);
    QWidget parent;
    FolderPinButton *pin = RecentDocumentBrowser::CreatePinButton(&parent, documentPath);
    QCOMPARE(pictureOf(pin->icon(), QIcon::On), down);
    QCOMPARE(pictureOf(pin->icon(), QIcon::Off), up);

    const QImage unpinned = pin->grab().toImage();
    pin->setChecked(true);
    const QImage pinned = pin->grab().toImage();
    QVERIFY(pinned != unpinned);
    pin->setChecked(false);
    QCOMPARE(pin->grab().toImage(), unpinned);
}

void tst_Buttons::theFolderButtonIsFixed()
{
    QWidget parent;
    const FolderPinButton *folder = RecentDocumentBrowser::CreateFolderButton(&parent, documentPath);
    QCOMPARE(folder->objectName(), QStringLiteral("folderButton"));
    QCOMPARE(folder->path(), documentPath);
    QVERIFY(folder->isEnabled());
    QVERIFY(!folder->isCheckable());
    QCOMPARE(folder->geometry(), QRect(100, 0, 21, 21));
    QCOMPARE(folder->tipText(), QStringLiteral("Show in Folder"));
    compareSizing(folder);
}

void tst_Buttons::theFolderButtonHasItsPicture()
{
    const QImage picture = resourcePicture("Open_32x-32.svg");
    QVERIFY(!picture.isNull());
    QWidget parent;
    const FolderPinButton *folder = RecentDocumentBrowser::CreateFolderButton(&parent, documentPath);
    QCOMPARE(pictureOf(folder->icon(), QIcon::On), picture);
}

void tst_Buttons::buttonsOfAKindShareTheirPictureAsLongAsTheModuleLives()
{
    QWidget parent;
    for (const auto create :
         {RecentDocumentBrowser::CreatePinButton, RecentDocumentBrowser::CreateFolderButton}) {
        ModuleInHost inHost;
        const qint64 key = create(&parent, documentPath)->icon().cacheKey();
        QCOMPARE(create(&parent, documentPath)->icon().cacheKey(), key);
        inHost.end();
        QVERIFY(create(&parent, documentPath)->icon().cacheKey() != key);
    }
}

void tst_Buttons::theButtonsBelongToTheirParent()
{
    auto *parent = new QWidget;
    const QPointer<FolderPinButton> pin = RecentDocumentBrowser::CreatePinButton(parent, documentPath);
    const QPointer<FolderPinButton> folder = RecentDocumentBrowser::CreateFolderButton(parent, documentPath);
    QCOMPARE(pin->parent(), parent);
    QCOMPARE(folder->parent(), parent);
    delete parent;
    QVERIFY(!pin && !folder);

    // Menu entries have no parent for them yet; a layout gives them one later.
    const QScopedPointer<FolderPinButton> alone(
        RecentDocumentBrowser::CreatePinButton(nullptr, documentPath));
    QVERIFY(!alone->parent());
}

void tst_Buttons::theTipsAreTranslated()
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

QTEST_MAIN(tst_Buttons)
#include "tst_buttons.moc"

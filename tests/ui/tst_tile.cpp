// SPDX-License-Identifier: MIT
#include "module/RecentDocumentBrowser.h"
#include "state/FolderPinButton.h"
#include "tests/support/Browser.h"
#include "tests/support/MarkingTranslator.h"
#include "tests/support/TestCase.h"
#include "ui/RecentDocDialog.h"
#include "ui/RecentDocMainWindow.h"

#include <QDialog>
#include <QGridLayout>
#include <QLabel>

namespace {

//! A tile as its constructor leaves it, before any layout has run.
struct FreshTile
{
    explicit FreshTile(const QString &document = QStringLiteral("/drawings/gear.dwg"), bool pinned = false)
        : path(document), picture(pictureOf(path)),
          menuPin(RecentDocumentBrowser::CreatePinButton(&menu, path))
    {
        menuPin->setChecked(pinned);
        tile = new RecentDocDialog(&popup, menuPin, path, picture, false);
    }

    Browser browser; // its end empties the lists that tiles enter themselves in
    QWidget menu;
    QDialog popup;
    QString path;
    QImage picture;
    FolderPinButton *menuPin;
    RecentDocDialog *tile;
};

QLabel *typeIcon(const RecentDocDialog &tile)
{
    return tile.findChild<QLabel *>(QStringLiteral("Iconlabel"));
}

} // namespace

class TestTile : public TestCase
{
    Q_OBJECT

private slots:
    void offersNothingThroughItsMetaObject();
    void isAChildOfThePopupAndNoWindow();
    void hasAFixedSize();
    void formHasItsNamesAndMeasures();
    void textsAreTranslated();
    void restsInItsStyleSheetToTheLetter();
    void isNotHighlightedAtFirst();
    void longNamesAreCut_data();
    void longNamesAreCut();
    void namesAreNoMarkup();
    void pictureFillsItsLabel();
    void pictureIsACopy();
    void aDocumentWithoutPictureGetsABlankOne();
    void typeIconStandsInTheCorner();
    void typeIconIsTheDrawingIcon();
    void typeIconStaysInTheCornerWhenShown();
    void buttonsStandBesideTheName();
    void pictureFillsTheRest();
    void pinTakesOverTheMenusStateOnce_data();
    void pinTakesOverTheMenusStateOnce();
    void pinButtonsAreListedInTileOrder();
    void keepsItsPathAsGiven_data();
    void keepsItsPathAsGiven();
    void deletesItselfWhenClosedAndStaysListed();
};

void TestTile::offersNothingThroughItsMetaObject()
{
    const QMetaObject &meta = RecentDocDialog::staticMetaObject;
    QCOMPARE(meta.className(), "RecentDocDialog");
    QCOMPARE(meta.superClass(), &QDialog::staticMetaObject);
    QCOMPARE(meta.methodCount(), meta.methodOffset());
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
}

void TestTile::isAChildOfThePopupAndNoWindow()
{
    const FreshTile fresh;
    QCOMPARE(fresh.tile->parentWidget(), &fresh.popup);
    QVERIFY(!fresh.tile->isWindow());
    QCOMPARE(fresh.tile->windowFlags(), Qt::WindowFlags(Qt::FramelessWindowHint));
    QCOMPARE(fresh.tile->windowModality(), Qt::WindowModal);
    QCOMPARE(fresh.tile->objectName(), QStringLiteral("RecentDocDialog"));
    QVERIFY(fresh.tile->testAttribute(Qt::WA_MouseTracking));
    QVERIFY(fresh.tile->testAttribute(Qt::WA_DeleteOnClose));
}

void TestTile::hasAFixedSize()
{
    const FreshTile fresh;
    QCOMPARE(fresh.tile->geometry(), QRect(10, 90, 161, 131));
    QCOMPARE(fresh.tile->minimumSize(), QSize(161, 131));
    QCOMPARE(fresh.tile->maximumSize(), QSize(161, 131));
    QCOMPARE(fresh.tile->sizePolicy(), QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed));
}

void TestTile::formHasItsNamesAndMeasures()
{
    const FreshTile fresh;
    const RecentDocDialog &tile = *fresh.tile;

    QCOMPARE(tile.layout(), tile.verticalLayout);
    QCOMPARE(tile.verticalLayout->objectName(), QStringLiteral("verticalLayout"));
    QCOMPARE(tile.verticalLayout->spacing(), 6);
    QCOMPARE(tile.verticalLayout->contentsMargins(), QMargins(11, 11, 11, 11));
    QCOMPARE(tile.verticalLayout->count(), 1);
    QCOMPARE(tile.verticalLayout->itemAt(0)->layout(), tile.gridLayout_3);

    const QList<QPair<QGridLayout *, QString>> grids = {
        {tile.gridLayout_3, QStringLiteral("gridLayout_3")},
        {tile.gridLayout_2, QStringLiteral("gridLayout_2")},
        {tile.gridLayout, QStringLiteral("gridLayout")},
    };
    for (const auto &grid : grids) {
        QCOMPARE(grid.first->objectName(), grid.second);
        QCOMPARE(grid.first->horizontalSpacing(), 0);
        QCOMPARE(grid.first->verticalSpacing(), 0);
        QCOMPARE(grid.first->count(), 2);
    }
    QCOMPARE(tile.gridLayout_3->itemAtPosition(0, 0)->layout(), tile.gridLayout_2);
    QVERIFY(!tile.gridLayout_3->itemAtPosition(1, 0));
    QCOMPARE(tile.gridLayout_3->itemAtPosition(2, 0)->widget(), tile.image_label);
    QCOMPARE(tile.gridLayout_2->itemAtPosition(0, 0)->widget(), tile.title_label);
    QCOMPARE(tile.gridLayout_2->itemAtPosition(0, 1)->layout(), tile.gridLayout);

    const QLabel &name = *tile.title_label;
    QCOMPARE(name.objectName(), QStringLiteral("title_label"));
    QCOMPARE(name.parentWidget(), &tile);
    QCOMPARE(name.sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred));
    QCOMPARE(name.maximumSize(), QSize(16777215, 16777215));
    QCOMPARE(name.sizeIncrement(), QSize(0, 0));
    QVERIFY(!name.wordWrap());
    QCOMPARE(tile.image_label->objectName(), QStringLiteral("image_label"));
    QCOMPARE(tile.image_label->parentWidget(), &tile);
    QCOMPARE(tile.image_label->text(), QString());
}

void TestTile::textsAreTranslated()
{
    MarkingTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    const FreshTile fresh;
    QCOMPARE(fresh.tile->windowTitle(), QStringLiteral("RecentDocDialog/RecentDocDialog"));
    QCOMPARE(fresh.tile->title_label->text(), QStringLiteral("gear.dwg")); // names are not
}

void TestTile::restsInItsStyleSheetToTheLetter()
{
    const FreshTile fresh;
    QCOMPARE(fresh.tile->styleSheet(),
             QStringLiteral("QDialog {color:lightGray;"
                            "                         background-color: rgb(248, 248, 248);"
                            "                          border-width: 0.1px;"
                            "                         border: 1px solid;"
                            "                         border-color: #C0C0C0"
                            "                                  }"));
}

void TestTile::isNotHighlightedAtFirst()
{
    const FreshTile fresh;
    QVERIFY(!fresh.tile->isHighlighted());
    QVERIFY(!fresh.tile->graphicsEffect());
}

void TestTile::longNamesAreCut_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("shown");
    QTest::newRow("a short name") << "/a/gear.dwg"
                                  << "gear.dwg";
    QTest::newRow("a name of 16 characters") << "/a/abcdefghijkl.dwg"
                                             << "abcdefghijkl.dwg";
    QTest::newRow("a name of 17 characters") << "/a/abcdefghijklm.dwg"
                                             << "abcdefghijklm...";
    QTest::newRow("a long name") << "/a/a quite long drawing name.dwg"
                                 << "a quite long ...";
    QTest::newRow("folders do not count") << "/a folder with a very long name/b.dwg"
                                          << "b.dwg";
    QTest::newRow("umlauts count once")
        << QString::fromUtf8("/a/äöüäöüäöüäöü.dwg") << QString::fromUtf8("äöüäöüäöüäöü.dwg");
    QTest::newRow("dots in the name") << "/a/plan.v1.2.final.dwg"
                                      << "plan.v1.2.fin...";
    QTest::newRow("no folder") << "gear.dwg"
                               << "gear.dwg";
    QTest::newRow("no path") << ""
                             << "";
}

void TestTile::longNamesAreCut()
{
    QFETCH(QString, path);
    QFETCH(QString, shown);
    const FreshTile fresh(path);
    QCOMPARE(fresh.tile->title_label->text(), shown);
}

void TestTile::namesAreNoMarkup()
{
    const FreshTile fresh(QStringLiteral("/a/<b>x.dwg"));
    QCOMPARE(fresh.tile->title_label->text(), QStringLiteral("<b>x.dwg"));
    QCOMPARE(fresh.tile->title_label->textFormat(), Qt::PlainText);
}

void TestTile::pictureFillsItsLabel()
{
    const FreshTile fresh;
    const QLabel &picture = *fresh.tile->image_label;
    QVERIFY(picture.hasScaledContents());
    QCOMPARE(picture.pixmap(Qt::ReturnByValue).toImage(), QPixmap::fromImage(fresh.picture).toImage());
    QCOMPARE(picture.styleSheet(), QStringLiteral("QLabel {"
                                                  "                        border-width: 0.1px;"
                                                  "                        border: 1px solid;"
                                                  "                        background-color: white;"
                                                  "                        border-color: #C0C0C0"
                                                  "                            }"));
}

void TestTile::pictureIsACopy()
{
    FreshTile fresh;
    const QImage before = fresh.picture.copy();
    fresh.picture.fill(Qt::black);
    QCOMPARE(fresh.tile->image_label->pixmap(Qt::ReturnByValue).toImage(),
             QPixmap::fromImage(before).toImage());
}

void TestTile::aDocumentWithoutPictureGetsABlankOne()
{
    Browser browser(1);
    browser.host.onLoadPreview = nullptr;
    browser.createDocument();
    const RecentDocMainWindow *popup = browser.openPopup();
    QCOMPARE(browser.tiles().size(), 1);
    const QLabel &picture = *browser.tiles().at(0)->image_label;
    QVERIFY(picture.pixmap(Qt::ReturnByValue).isNull());
    drainEvents();
    QVERIFY(picture.isVisibleTo(popup));
    const QImage painted = browser.tiles().at(0)->grab(picture.geometry()).toImage();
    QCOMPARE(painted.pixelColor(painted.rect().center()), QColor(Qt::white));
    QCOMPARE(painted.pixelColor(0, painted.height() / 2), QColor(QStringLiteral("#C0C0C0"))); // its frame
}

void TestTile::typeIconStandsInTheCorner()
{
    const FreshTile fresh;
    const QLabel *icon = typeIcon(*fresh.tile);
    QVERIFY(icon);
    QCOMPARE(icon->parentWidget(), fresh.tile);
    QCOMPARE(icon->geometry(), QRect(140, 110, 21, 21));
    QCOMPARE(icon->geometry().bottomRight(), fresh.tile->rect().bottomRight());
    const QList<QLayout *> layouts = fresh.tile->findChildren<QLayout *>();
    for (const QLayout *layout : layouts)
        QCOMPARE(layout->indexOf(const_cast<QLabel *>(icon)), -1);
}

void TestTile::typeIconIsTheDrawingIcon()
{
    const FreshTile fresh;
    const QImage shown = typeIcon(*fresh.tile)->pixmap(Qt::ReturnByValue).toImage();
    const QImage stored(QStringLiteral(":/Images/Resources/VELA_DWG.png"));
    QVERIFY(!stored.isNull());
    QCOMPARE(shown.size(), stored.size()); // an icon is never enlarged to the 21 pixels that it is asked for
    constexpr QImage::Format painted = QImage::Format_ARGB32_Premultiplied; // what a pixmap keeps
    QCOMPARE(shown.convertToFormat(painted), stored.convertToFormat(painted));
}

void TestTile::typeIconStaysInTheCornerWhenShown()
{
    Browser browser(2);
    browser.createDocument();
    browser.openPopup();
    drainEvents(); // layouts have run
    const QList<RecentDocDialog *> tiles = browser.tiles();
    for (const RecentDocDialog *tile : tiles)
        QCOMPARE(typeIcon(*tile)->geometry(), QRect(140, 110, 21, 21));
}

void TestTile::buttonsStandBesideTheName()
{
    const FreshTile fresh;
    FolderPinButton *folder = Browser::button(fresh.tile, "folderButton");
    FolderPinButton *pin = Browser::button(fresh.tile, "pinButton");
    QVERIFY(folder);
    QVERIFY(pin);
    for (const FolderPinButton *button : {folder, pin}) {
        QCOMPARE(button->parentWidget(), fresh.tile);
        QCOMPARE(button->path(), fresh.tile->path());
    }
    QCOMPARE(fresh.tile->gridLayout->itemAtPosition(0, 0)->widget(), folder);
    QCOMPARE(fresh.tile->gridLayout->itemAtPosition(0, 1)->widget(), pin);
}

void TestTile::pictureFillsTheRest()
{
    Browser browser(1);
    browser.createDocument();
    browser.openPopup();
    drainEvents(); // layouts have run
    const RecentDocDialog &tile = *browser.tiles().at(0);
    const QRect name = tile.title_label->geometry();
    const QRect folder = Browser::button(&tile, "folderButton")->geometry();
    const QRect pin = Browser::button(&tile, "pinButton")->geometry();
    const QRect picture = tile.image_label->geometry();
    const QRect inner = tile.rect().adjusted(11, 11, -11, -11);
    QCOMPARE(name.topLeft(), inner.topLeft());
    QVERIFY(folder.left() > name.right());
    QVERIFY(pin.left() > folder.right());
    QCOMPARE(pin.right(), inner.right());
    QVERIFY(picture.top() > qMax(name.bottom(), pin.bottom()));
    QCOMPARE(picture.left(), inner.left());
    QCOMPARE(picture.bottomRight(), inner.bottomRight());
}

void TestTile::pinTakesOverTheMenusStateOnce_data()
{
    QTest::addColumn<bool>("pinned");
    QTest::newRow("pinned") << true;
    QTest::newRow("not pinned") << false;
}

void TestTile::pinTakesOverTheMenusStateOnce()
{
    QFETCH(bool, pinned);
    const FreshTile fresh(QStringLiteral("/a/gear.dwg"), pinned);
    const FolderPinButton *pin = Browser::button(fresh.tile, "pinButton");
    QCOMPARE(pin->isChecked(), pinned);
    fresh.menuPin->setChecked(!pinned);
    QCOMPARE(pin->isChecked(), pinned);
}

void TestTile::pinButtonsAreListedInTileOrder()
{
    Browser browser(3);
    browser.createDocument();
    const RecentDocMainWindow popup(&browser.host.mainWindow());
    QCOMPARE(RecentDocumentBrowser::docPinButtonList.size(), 3);
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(RecentDocumentBrowser::docPinButtonList.at(i),
                 Browser::button(browser.tiles().at(i), "pinButton"));
    }
}

void TestTile::keepsItsPathAsGiven_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("plain") << "/a/gear.dwg";
    QTest::newRow("doubled slashes and dots") << "/a//b/../gear.dwg";
    QTest::newRow("backslashes") << "C:\\a\\gear.dwg";
    QTest::newRow("blanks around") << " /a/gear.dwg ";
    QTest::newRow("beyond the first plane") << QString::fromUtf8("/a/\xF0\x9F\x93\x90.dwg");
}

void TestTile::keepsItsPathAsGiven()
{
    QFETCH(QString, path);
    const FreshTile fresh(path);
    QCOMPARE(fresh.tile->path(), path);
}

void TestTile::deletesItselfWhenClosedAndStaysListed()
{
    Browser browser(2);
    browser.createDocument();
    browser.openPopup();
    const QPointer<RecentDocDialog> tile = browser.tiles().at(1);
    tile->close();
    drainEvents();
    QVERIFY(!tile);
    QCOMPARE(browser.tiles().size(), 2); // the second not to be looked at any more
    QCOMPARE(RecentDocumentBrowser::docPinButtonList.size(), 2);
}

QTEST_MAIN(TestTile)
#include "tst_tile.moc"

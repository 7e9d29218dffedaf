// SPDX-License-Identifier: MIT
#include "module/RecentDocumentBrowser.h"
#include "state/FolderPinButton.h"
#include "tests/support/Browser.h"
#include "tests/support/MarkingTranslator.h"
#include "tests/support/TestCase.h"
#include "ui/HelpLabel.h"
#include "ui/RecentDocDialog.h"
#include "ui/RecentDocMainWindow.h"

#include <QGraphicsEffect>
#include <QGridLayout>
#include <QLabel>

using WhatAHostHas = bool FakeHost::*;
Q_DECLARE_METATYPE(WhatAHostHas)

namespace {

const QColor titleGround(51, 51, 102);
const QColor pathGround(0, 0, 94);
const QColor pathText(188, 188, 253);

//! Whether an area of a picture, in pixels, shows a colour at all.
bool shows(const QImage &picture, const QRect &area, const QColor &color)
{
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (picture.pixelColor(x, y) == color)
                return true;
        }
    }
    return false;
}

void compareBrushOfAllGroups(const QPalette &palette, QPalette::ColorRole role, const QColor &color)
{
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
        QCOMPARE(palette.brush(group, role), QBrush(color, Qt::SolidPattern));
}

} // namespace

class TestPopup : public TestCase
{
    Q_OBJECT

private slots:
    void isAFramelessDialogOfTheMainWindow();
    void offersTheHelpSlotAlone();
    void formHasItsNamesAndMeasures();
    void titleIsStyledToTheLetter();
    void pathLineKeepsToTheLeft();
    void textsAreTranslated();
    void headerPalettesAreBlue();
    void headerIsPaintedInItsColours();
    void helpIconFollowsTheTitle();
    void takesDropsAndFollowsTheMouse();
    void nothingIsDraggedOrPressedAtFirst();
    void pathLineOfTheNewestPopupIsPublished();
    void picturesAreReadOnceForAllPopups();
    void pinButtonsOfTheFormerPopupAreForgotten();
    void firstTileIsHighlightedAndItsPathShown();
    void aPopupWithoutTilesShowsNoPath();
    void withoutARecentListOnlyTheHeaderStands_data();
    void withoutARecentListOnlyTheHeaderStands();
    void withoutARecentListTheFormerTilesStayListed();
    void withoutDocumentsTheGridIsEmpty();
};

void TestPopup::isAFramelessDialogOfTheMainWindow()
{
    Browser browser(1);
    browser.createDocument();
    RecentDocMainWindow popup(&browser.host.mainWindow());

    QCOMPARE(popup.parentWidget(), &browser.host.mainWindow());
    QCOMPARE(popup.windowFlags(), Qt::Dialog | Qt::FramelessWindowHint);
    QVERIFY(popup.inherits("CFxDialog"));
    QVERIFY(!popup.isModal());
    QCOMPARE(popup.windowModality(), Qt::NonModal);
    QCOMPARE(popup.focusPolicy(), Qt::StrongFocus);
    QCOMPARE(popup.objectName(), QStringLiteral("RecentDocMainWindow"));
    QVERIFY(!popup.isVisible()); // whoever makes it shows it
}

void TestPopup::offersTheHelpSlotAlone()
{
    const QMetaObject &meta = RecentDocMainWindow::staticMetaObject;
    QCOMPARE(meta.className(), "RecentDocMainWindow");
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 1);
    const QMetaMethod help = meta.method(meta.methodOffset());
    QCOMPARE(help.methodSignature(), QByteArray("help()"));
    QCOMPARE(help.methodType(), QMetaMethod::Slot);
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
}

void TestPopup::formHasItsNamesAndMeasures()
{
    Browser browser; // nothing listed: the form's own measures, but for the margins
    RecentDocMainWindow popup(&browser.host.mainWindow());

    QCOMPARE(popup.layout(), popup.verticalLayout);
    QCOMPARE(popup.verticalLayout->objectName(), QStringLiteral("verticalLayout"));
    QCOMPARE(popup.verticalLayout->spacing(), 6);
    QCOMPARE(popup.verticalLayout->count(), 2);
    QCOMPARE(popup.verticalLayout->itemAt(0)->layout(), popup.verticalLayout_2);
    QCOMPARE(popup.verticalLayout->itemAt(1)->layout(), popup.gridLayout);

    QCOMPARE(popup.verticalLayout_2->objectName(), QStringLiteral("verticalLayout_2"));
    QCOMPARE(popup.verticalLayout_2->spacing(), 0);
    QCOMPARE(popup.verticalLayout_2->sizeConstraint(), QLayout::SetNoConstraint);
    QCOMPARE(popup.verticalLayout_2->count(), 2);
    QCOMPARE(popup.verticalLayout_2->itemAt(0)->layout(), popup.horizontalLayout);
    QCOMPARE(popup.verticalLayout_2->itemAt(1)->widget(), popup.main_label_path);

    QCOMPARE(popup.horizontalLayout->objectName(), QStringLiteral("horizontalLayout"));
    QCOMPARE(popup.horizontalLayout->spacing(), 0);
    QCOMPARE(popup.horizontalLayout->itemAt(0)->widget(), popup.main_label_title);
}

void TestPopup::titleIsStyledToTheLetter()
{
    Browser browser;
    RecentDocMainWindow popup(&browser.host.mainWindow());
    const QLabel &title = *popup.main_label_title;

    QCOMPARE(title.objectName(), QStringLiteral("main_label_title"));
    QCOMPARE(title.parentWidget(), &popup);
    QCOMPARE(title.text(), QStringLiteral("Recent Documents"));
    QCOMPARE(title.sizePolicy(), QSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed));
    QCOMPARE(title.styleSheet(),
             QStringLiteral("\n white-space: pre-wrap; "
                            "\n font-family:'MS Shell Dlg 2'; font-size:8.25pt; font-weight:400; "
                            "font-style:normal;"
                            "\n margin-top:0px; margin-bottom:0px; margin-left:0px; margin-right:0px; "
                            "-qt-block-indent:0; text-indent:0px;"
                            "\n font-size:18pt; color:#ffffff;"));
    popup.ensurePolished();
    title.ensurePolished();
    QCOMPARE(title.font().pointSizeF(), 18.0); // the later of the two sizes
}

void TestPopup::pathLineKeepsToTheLeft()
{
    Browser browser;
    RecentDocMainWindow popup(&browser.host.mainWindow());
    const QLabel &path = *popup.main_label_path;

    QCOMPARE(path.objectName(), QStringLiteral("main_label_path"));
    QCOMPARE(path.parentWidget(), &popup);
    QCOMPARE(path.alignment(), Qt::AlignLeft | Qt::AlignVCenter);
    QCOMPARE(path.sizePolicy(), QSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed));
}

void TestPopup::textsAreTranslated()
{
    Browser browser;
    MarkingTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    RecentDocMainWindow popup(&browser.host.mainWindow());
    QCOMPARE(popup.windowTitle(), QStringLiteral("RecentDocMainWindow/RecentDocMainWindow"));
    QCOMPARE(popup.main_label_title->text(), QStringLiteral("RecentDocMainWindow/Recent Documents"));
}

void TestPopup::headerPalettesAreBlue()
{
    Browser browser;
    RecentDocMainWindow popup(&browser.host.mainWindow());

    QVERIFY(popup.main_label_title->autoFillBackground());
    compareBrushOfAllGroups(popup.main_label_title->palette(), QPalette::Window, titleGround);
    const auto *help = popup.findChild<HelpLabel *>();
    QVERIFY(help);
    QVERIFY(help->autoFillBackground());
    compareBrushOfAllGroups(help->palette(), QPalette::Window, titleGround);
    QVERIFY(popup.main_label_path->autoFillBackground());
    compareBrushOfAllGroups(popup.main_label_path->palette(), QPalette::Window, pathGround);
    compareBrushOfAllGroups(popup.main_label_path->palette(), QPalette::WindowText, pathText);
}

void TestPopup::headerIsPaintedInItsColours()
{
    Browser browser(2);
    browser.createDocument();
    RecentDocMainWindow *popup = browser.openPopup();
    const QImage picture = popup->grab().toImage();

    const QRect title = popup->main_label_title->geometry();
    QCOMPARE(title.topLeft(), QPoint(0, 0)); // the header runs to the window's edges
    QCOMPARE(picture.pixelColor(title.topLeft()), titleGround);
    QCOMPARE(picture.pixelColor(title.bottomRight()), titleGround);
    QVERIFY(shows(picture, title, Qt::white));
    const QRect help = popup->findChild<HelpLabel *>()->geometry();
    QCOMPARE(help.right(), popup->rect().right());
    QCOMPARE(picture.pixelColor(help.topRight()), titleGround);
    QCOMPARE(picture.pixelColor(help.bottomRight()), titleGround);
    const QRect path = popup->main_label_path->geometry();
    QCOMPARE(path.width(), popup->width());
    QCOMPARE(picture.pixelColor(path.topLeft()), pathGround);
    QCOMPARE(picture.pixelColor(path.bottomRight()), pathGround);
    QVERIFY(shows(picture, path, pathText));
}

void TestPopup::helpIconFollowsTheTitle()
{
    Browser browser;
    RecentDocMainWindow popup(&browser.host.mainWindow());
    const QList<HelpLabel *> icons = popup.findChildren<HelpLabel *>();
    QCOMPARE(icons.size(), 1);
    const HelpLabel &help = *icons.first();

    QCOMPARE(help.parentWidget(), &popup);
    QCOMPARE(popup.horizontalLayout->count(), 2);
    QCOMPARE(popup.horizontalLayout->itemAt(1)->widget(), &help);
    QCOMPARE(help.cursor().shape(), Qt::PointingHandCursor);
    const QPixmap icon(QStringLiteral(":/Images/Resources/help_32x-20.svg"));
    QCOMPARE(icon.size(), QSize(20, 20));
    QCOMPARE(help.pixmap(Qt::ReturnByValue).toImage(), icon.toImage());
}

void TestPopup::takesDropsAndFollowsTheMouse()
{
    Browser browser;
    RecentDocMainWindow popup(&browser.host.mainWindow());
    QVERIFY(popup.acceptDrops());
    QVERIFY(popup.testAttribute(Qt::WA_MouseTracking));
    QVERIFY(popup.testAttribute(Qt::WA_DeleteOnClose));
}

void TestPopup::nothingIsDraggedOrPressedAtFirst()
{
    Browser browser(3);
    browser.createDocument();
    RecentDocMainWindow popup(&browser.host.mainWindow());
    QVERIFY(!popup.dragDialog);
    QCOMPARE(popup.pressPoint, QPoint(0, 0));
    QVERIFY(!popup.isCollapsed);
    QVERIFY(!popup.forwardSelectionActive);
    QVERIFY(!popup.backwardSelectionActive);
}

void TestPopup::pathLineOfTheNewestPopupIsPublished()
{
    Browser browser(1);
    browser.createDocument();
    RecentDocMainWindow older(&browser.host.mainWindow());
    QCOMPARE(RecentDocMainWindow::docPathLabel.data(), older.main_label_path);
    RecentDocMainWindow newer(&browser.host.mainWindow());
    QCOMPARE(RecentDocMainWindow::docPathLabel.data(), newer.main_label_path);
}

void TestPopup::picturesAreReadOnceForAllPopups()
{
    Browser browser(3);
    browser.createDocument();
    QCOMPARE(browser.host.previewsCreated(), 0);
    RecentDocMainWindow first(&browser.host.mainWindow());
    QCOMPARE(browser.host.previewsCreated(), 3);
    QCOMPARE(RecentDocumentBrowser::recentFileImageMap.size(), 3);
    RecentDocMainWindow second(&browser.host.mainWindow());
    QCOMPARE(browser.host.previewsCreated(), 3);
    QCOMPARE(browser.tiles().size(), 3);
}

void TestPopup::pinButtonsOfTheFormerPopupAreForgotten()
{
    Browser browser(2);
    browser.createDocument();
    RecentDocMainWindow older(&browser.host.mainWindow());
    RecentDocMainWindow newer(&browser.host.mainWindow());
    const QList<RecentDocDialog *> tiles = browser.tiles();
    QCOMPARE(tiles.size(), 2);
    QCOMPARE(RecentDocumentBrowser::docPinButtonList.size(), 2);
    for (int i = 0; i < tiles.size(); ++i) {
        QCOMPARE(tiles.at(i)->parentWidget(), &newer);
        QCOMPARE(RecentDocumentBrowser::docPinButtonList.at(i), Browser::button(tiles.at(i), "pinButton"));
    }
    QCOMPARE(older.findChildren<RecentDocDialog *>().size(), 2); // forgotten, not deleted
}

void TestPopup::firstTileIsHighlightedAndItsPathShown()
{
    Browser browser(3);
    browser.createDocument();
    RecentDocMainWindow popup(&browser.host.mainWindow());
    popup.show();
    drainEvents();
    const QList<RecentDocDialog *> tiles = browser.tiles();
    const QGraphicsEffect *effect = tiles.at(0)->graphicsEffect();
    QVERIFY(effect);
    QCOMPARE(effect->metaObject()->className(), "HighlightEffect");
    QCOMPARE(effect->property("color").value<QColor>(), QColor(0, 0, 150, 100));
    QCOMPARE(effect->property("offset").toPointF(), QPointF(2.5, 2.5));
    QVERIFY(!tiles.at(1)->graphicsEffect());
    QVERIFY(!tiles.at(2)->graphicsEffect());
    QCOMPARE(popup.main_label_path->text(), browser.path(0));
}

void TestPopup::aPopupWithoutTilesShowsNoPath()
{
    Browser browser(2); // listed, but the menu that tiles are made from is not there yet
    RecentDocMainWindow popup(&browser.host.mainWindow());
    QVERIFY(browser.tiles().isEmpty());
    QCOMPARE(popup.main_label_path->text(), QString());
    QCOMPARE(popup.tileRows, 1);
    QCOMPARE(popup.popupHeight, 201); // sized for the documents nevertheless
}

void TestPopup::withoutARecentListOnlyTheHeaderStands_data()
{
    QTest::addColumn<WhatAHostHas>("what");
    QTest::newRow("no services") << &FakeHost::hasServices;
    QTest::newRow("no application") << &FakeHost::hasApplication;
    QTest::newRow("no user profile") << &FakeHost::hasUserProfile;
    QTest::newRow("no list") << &FakeHost::hasRecentFileList;
}

void TestPopup::withoutARecentListOnlyTheHeaderStands()
{
    QFETCH(WhatAHostHas, what);
    Browser browser(3);
    browser.createDocument();
    browser.host.*what = false;
    RecentDocMainWindow popup(&browser.host.mainWindow());

    QCOMPARE(popup.size(), QSize(228, 64));
    QVERIFY(!popup.gridLayout);
    QVERIFY(popup.findChildren<RecentDocDialog *>().isEmpty());
    QCOMPARE(popup.popupWidth, 0);
    QCOMPARE(popup.popupHeight, 0);
    QCOMPARE(popup.tileColumns, 0);
    QCOMPARE(popup.verticalLayout->contentsMargins(), QMargins(11, 11, 11, 11));
    QCOMPARE(RecentDocMainWindow::docPathLabel.data(), popup.main_label_path);
    QVERIFY(popup.findChild<HelpLabel *>());
    compareBrushOfAllGroups(popup.main_label_title->palette(), QPalette::Window, titleGround);
    QCOMPARE(popup.getColumnPosition(), -1);
    popup.show();
    drainEvents();
    QCOMPARE(popup.size(), QSize(228, 64).expandedTo(popup.minimumSizeHint())); // large fonts need more
}

void TestPopup::withoutARecentListTheFormerTilesStayListed()
{
    Browser browser(2);
    browser.createDocument();
    RecentDocMainWindow older(&browser.host.mainWindow());
    const QList<RecentDocDialog *> tiles = browser.tiles();
    browser.host.hasRecentFileList = false;
    RecentDocMainWindow newer(&browser.host.mainWindow());
    QCOMPARE(browser.tiles(), tiles);
    QCOMPARE(RecentDocumentBrowser::docPinButtonList.size(), 2);
}

void TestPopup::withoutDocumentsTheGridIsEmpty()
{
    Browser browser;
    RecentDocMainWindow popup(&browser.host.mainWindow());
    QVERIFY(popup.gridLayout);
    QCOMPARE(popup.tileRows, 0);
    QCOMPARE(popup.tileColumns, 4);
    QCOMPARE(popup.popupHeight, 0);
    QCOMPARE(popup.verticalLayout->contentsMargins(), QMargins(0, 0, 0, 0));
    QVERIFY(popup.findChildren<RecentDocDialog *>().isEmpty());
    QCOMPARE(popup.getColumnPosition(), -1);
}

QTEST_MAIN(TestPopup)
#include "tst_popup.moc"

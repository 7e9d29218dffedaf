// SPDX-License-Identifier: MIT
#include "state/FolderPinButton.h"
#include "tests/support/MarkingTranslator.h"
#include "tests/ui/FormText.h"
#include "tests/ui/OpenGrid.h"
#include "ui/HelpLabel.h"

#include <QLabel>

using WhatAHostHas = bool FakeHost::*;
Q_DECLARE_METATYPE(WhatAHostHas)

namespace {

const QColor titleColor(51, 51, 102);
const QColor pathColor(0, 0, 94);
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

//! What the popup is made of.
class tst_Popup : public TestCase
{
    Q_OBJECT

private slots:
    void isAFramelessDialogOfTheMainWindow()
    {
        UnshownPopup made(3);
        const RecentDocMainWindow &popup = *made.popup;
        QCOMPARE(popup.parentWidget(), &made.browser.host.mainWindow());
        QCOMPARE(popup.windowFlags(), Qt::Dialog | Qt::FramelessWindowHint);
        QVERIFY(popup.inherits("CFxDialog"));
        QCOMPARE(popup.windowModality(), Qt::NonModal);
        QCOMPARE(popup.focusPolicy(), Qt::StrongFocus);
        QVERIFY(!popup.isVisible()); // the caller shows it
        QVERIFY(popup.acceptDrops());
        QVERIFY(popup.testAttribute(Qt::WA_MouseTracking));
        QVERIFY(popup.testAttribute(Qt::WA_DeleteOnClose));
        QVERIFY(!popup.dragDialog && !popup.isCollapsed);
        QCOMPARE(popup.pressPoint, QPoint(0, 0));
        QVERIFY(!popup.forwardSelectionActive && !popup.backwardSelectionActive);

        const QMetaObject &meta = RecentDocMainWindow::staticMetaObject;
        QCOMPARE(meta.className(), "RecentDocMainWindow");
        QCOMPARE(meta.methodCount() - meta.methodOffset(), 1);
        const QMetaMethod help = meta.method(meta.methodOffset());
        QCOMPARE(help.methodSignature(), QByteArray("help()"));
        QCOMPARE(help.methodType(), QMetaMethod::Slot);
        QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    }

    void formHasItsNamesAndMeasures()
    {
        const UnshownPopup made; // nothing listed: no tiles
        const RecentDocMainWindow &popup = *made.popup;
        QCOMPARE(popup.objectName(), QStringLiteral("RecentDocMainWindow"));
        QCOMPARE(formText(popup.layout()),
                 QStringLiteral("verticalLayout 6 (verticalLayout_2 0 (horizontalLayout 0 (main_label_title, "
                                "help_label), main_label_path), gridLayout 20 (0:5 spacer, 0:0 spacer))"));
        QCOMPARE(popup.verticalLayout->contentsMargins(), QMargins(0, 0, 0, 0));
        QCOMPARE(popup.verticalLayout_2->sizeConstraint(), QLayout::SetNoConstraint);
        QCOMPARE(popup.gridLayout->contentsMargins(), QMargins(11, 11, 11, 11));
        const QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
        QCOMPARE(popup.main_label_title->sizePolicy(), policy);
        QCOMPARE(popup.main_label_path->sizePolicy(), policy);
        QCOMPARE(popup.main_label_path->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
        QCOMPARE(popup.tileRows, 0);
        QCOMPARE(popup.tileColumns, 4);
        QCOMPARE(popup.popupHeight, 0);
        QCOMPARE(popup.getColumnPosition(), -1);
    }

    void titleHasItsStyleSheet()
    {
        const UnshownPopup made;
        const QLabel &title = *made.popup->main_label_title;
        QCOMPARE(title.text(), QStringLiteral("Recent Documents"));
        QCOMPARE(title.styleSheet(),
                 QStringLiteral("\n white-space: pre-wrap; "
                                "\n font-family:'MS Shell Dlg 2'; font-size:8.25pt; font-weight:400; "
                                "font-style:normal;"
                                "\n margin-top:0px; margin-bottom:0px; margin-left:0px; margin-right:0px; "
                                "-qt-block-indent:0; text-indent:0px;"
                                "\n font-size:18pt; color:#ffffff;"));
        title.ensurePolished();
        QCOMPARE(title.font().pointSizeF(), 18.0); // the later of the two sizes
    }

    void textsAreTranslated()
    {
        MarkingTranslator translator;
        QVERIFY(QCoreApplication::installTranslator(&translator));
        const UnshownPopup made;
        QCOMPARE(made.popup->windowTitle(), QStringLiteral("RecentDocMainWindow/RecentDocMainWindow"));
        QCOMPARE(made.popup->main_label_title->text(),
                 QStringLiteral("RecentDocMainWindow/Recent Documents"));
    }

    void headerIsPaintedInItsColours()
    {
        const OpenGrid grid(2);
        const RecentDocMainWindow &popup = *grid.popup;
        QLabel *help = popup.findChild<HelpLabel *>();
        for (const QLabel *label : {popup.main_label_title, popup.main_label_path, help})
            QVERIFY(label->autoFillBackground());
        compareBrushOfAllGroups(popup.main_label_title->palette(), QPalette::Window, titleColor);
        compareBrushOfAllGroups(help->palette(), QPalette::Window, titleColor);
        compareBrushOfAllGroups(popup.main_label_path->palette(), QPalette::Window, pathColor);
        compareBrushOfAllGroups(popup.main_label_path->palette(), QPalette::WindowText, pathText);

        const QImage picture = grid.popup->grab().toImage();
        const QRect title = popup.main_label_title->geometry();
        const QRect path = popup.main_label_path->geometry();
        QCOMPARE(title.topLeft(), QPoint(0, 0)); // the header extends to the window's edges
        QCOMPARE(help->geometry().right(), popup.rect().right());
        QCOMPARE(path.width(), popup.width());
        for (const QPoint &corner : {title.topLeft(), title.bottomRight(), help->geometry().topRight(),
                                     help->geometry().bottomRight()})
            QCOMPARE(picture.pixelColor(corner), titleColor);
        for (const QPoint &corner : {path.topLeft(), path.bottomRight()})
            QCOMPARE(picture.pixelColor(corner), pathColor);
        QVERIFY(shows(picture, title, Qt::white));
        QVERIFY(shows(picture, path, pathText));
    }

    void helpIconFollowsTheTitle()
    {
        const UnshownPopup made;
        QCOMPARE(made.popup->findChildren<HelpLabel *>().size(), 1);
        const auto *help = made.popup->findChild<HelpLabel *>();
        QCOMPARE(help->cursor().shape(), Qt::PointingHandCursor);
        const QPixmap icon(QStringLiteral(":/Images/Resources/help_32x-20.svg"));
        QCOMPARE(icon.size(), QSize(20, 20));
        QCOMPARE(help->pixmap(Qt::ReturnByValue).toImage(), icon.toImage());
    }

    void theNewestPopupIsListedAndPublished()
    {
        UnshownPopup older(2);
        QCOMPARE(RecentDocMainWindow::docPathLabel.data(), older.popup->main_label_path);
        RecentDocMainWindow newer(&older.browser.host.mainWindow());
        QCOMPARE(RecentDocMainWindow::docPathLabel.data(), newer.main_label_path);
        const QList<RecentDocDialog *> tiles = older.browser.tiles();
        QCOMPARE(tiles, newer.findChildren<RecentDocDialog *>());
        QList<FolderPinButton *> pins;
        for (const RecentDocDialog *tile : tiles)
            pins.append(FakeBrowser::button(tile, "pinButton"));
        QCOMPARE(pins.size(), 2);
        QCOMPARE(RecentDocumentBrowser::docPinButtonList, pins);
        QCOMPARE(older.popup->findChildren<RecentDocDialog *>(), older.tiles); // forgotten, not deleted
    }

    void firstTileIsHighlightedAndItsPathShown()
    {
        const OpenGrid grid(3);
        QCOMPARE(grid.highlighted(), Indices{0});
        const QGraphicsEffect *effect = grid.tiles.at(0)->graphicsEffect();
        QCOMPARE(effect->metaObject()->className(), "HighlightEffect");
        QCOMPARE(effect->property("offset").toPointF(), QPointF(2.5, 2.5));
        QVERIFY(!grid.tiles.at(1)->graphicsEffect());
        QCOMPARE(grid.line(), grid.lineOf(0));
    }

    void aPopupWithoutTilesShowsNoPath()
    {
        FakeBrowser browser(2); // listed, but the menu that tiles are made from does not exist yet
        RecentDocMainWindow popup(&browser.host.mainWindow());
        QVERIFY(browser.tiles().isEmpty());
        QCOMPARE(popup.main_label_path->text(), QString());
        QCOMPARE(popup.popupHeight, 201); // sized for the documents nevertheless
    }

    void withoutARecentListOnlyTheHeaderIsShown_data()
    {
        QTest::addColumn<WhatAHostHas>("what");
        QTest::newRow("no services") << &FakeHost::hasServices;
        QTest::newRow("no application") << &FakeHost::hasApplication;
        QTest::newRow("no user profile") << &FakeHost::hasUserProfile;
        QTest::newRow("no list") << &FakeHost::hasRecentFileList;
    }

    void withoutARecentListOnlyTheHeaderIsShown()
    {
        QFETCH(WhatAHostHas, what);
        UnshownPopup older(3);
        older.browser.host.*what = false;
        RecentDocMainWindow popup(&older.browser.host.mainWindow());
        QCOMPARE(popup.size(), QSize(228, 64));
        QVERIFY(!popup.gridLayout);
        QVERIFY(popup.findChildren<RecentDocDialog *>().isEmpty());
        QCOMPARE(QSize(popup.popupWidth, popup.popupHeight), QSize(0, 0));
        QCOMPARE(popup.tileColumns, 0);
        QCOMPARE(popup.verticalLayout->contentsMargins(), QMargins(11, 11, 11, 11));
        QCOMPARE(RecentDocMainWindow::docPathLabel.data(), popup.main_label_path);
        QVERIFY(popup.findChild<HelpLabel *>());
        compareBrushOfAllGroups(popup.main_label_title->palette(), QPalette::Window, titleColor);
        QCOMPARE(popup.getColumnPosition(), -1);
        QCOMPARE(older.browser.tiles(), older.tiles); // the former ones stay listed
        QCOMPARE(RecentDocumentBrowser::docPinButtonList.size(), 3);
        popup.show();
        drainEvents();
        QCOMPARE(popup.size(), QSize(228, 64).expandedTo(popup.minimumSizeHint())); // large fonts need more
    }
};

TEST_CLASS(tst_Popup);
#include "tst_popup.moc"

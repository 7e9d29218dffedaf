// SPDX-License-Identifier: MIT
#include "state/FolderPinButton.h"
#include "tests/support/MarkingTranslator.h"
#include "tests/ui/FormText.h"
#include "tests/ui/OpenGrid.h"
#include "ui/HelpLabel.h"

#include <QLabel>
#include <QStyle>

#include <cmath>

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

QPalette paletteOf(const QColor &background, const QColor &text)
{
    QPalette palette(text, background, background.lighter(), background.darker(), Qt::gray, text, text,
                     background, background);
    palette.setColor(QPalette::Highlight, Qt::yellow);
    return palette;
}

//! As the web's contrast guidelines (WCAG 2) define it.
double luminance(const QColor &color)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor &a, const QColor &b)
{
    const double first = luminance(a);
    const double second = luminance(b);
    return (qMax(first, second) + 0.05) / (qMin(first, second) + 0.05);
}

//! The greatest contrast of any pixel of image to its background.
double contrastWithin(const QImage &image, const QColor &background)
{
    double greatest = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            greatest = qMax(greatest, contrast(image.pixelColor(x, y), background));
    }
    return greatest;
}

} // namespace

//! What the popup is made of, and whether it can be read on desktops with other colours.
class tst_Popup : public TestCase
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        qApp->setStyleSheet(QString());
        QApplication::setStyle(m_style);
        QApplication::setPalette(m_palette);
        TestCase::cleanup();
    }

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

    void namesAndRingHaveContrast_data()
    {
        QTest::addColumn<QPalette>("palette");
        QTest::addColumn<QPalette>("later"); // while the popup is open
        QTest::addColumn<QString>("laterStyle");
        const QPalette light = paletteOf(QColor(239, 239, 239), Qt::black);
        const QPalette dark = paletteOf(QColor(45, 45, 45), Qt::white);
        const QPalette highContrast = paletteOf(Qt::black, Qt::yellow);
        QTest::newRow("light") << light << light << QString();
        QTest::newRow("dark") << dark << dark << QString();
        QTest::newRow("high contrast") << highContrast << highContrast << QString();
        QTest::newRow("light, then dark") << light << dark << QString();
        QTest::newRow("dark, then light") << dark << light << QString();
        QTest::newRow("dark, then another style") << dark << dark << QStringLiteral("Windows");
        QTest::newRow("light, then a style sheet of the application")
            << light << light << QStringLiteral("QMenu { color: red; }");
        QTest::newRow("an application that styles all widgets") << light << light << QString();
    }

    void namesAndRingHaveContrast()
    {
        QFETCH(QPalette, palette);
        QFETCH(QPalette, later);
        QFETCH(QString, laterStyle);
        QApplication::setPalette(palette);
        if (qstrcmp(QTest::currentDataTag(), "an application that styles all widgets") == 0)
            qApp->setStyleSheet(
                QStringLiteral("QWidget { background: #333; color: white; }"
                               "RecentDocDialog QLabel { color: black; background: transparent; }"
                               "RecentDocMainWindow { background: #f0f0f0; }"));
        FakeBrowser browser(2);
        browser.createDocument();
        RecentDocMainWindow *popup = browser.openPopup();
        drainEvents();
        if (laterStyle.contains(QLatin1Char('{')))
            qApp->setStyleSheet(laterStyle);
        else if (!laterStyle.isEmpty())
            QApplication::setStyle(laterStyle);
        QApplication::setPalette(later);
        drainEvents();

        const QImage image = popup->grab().toImage();
        const QList<RecentDocDialog *> tiles = browser.tiles();
        const RecentDocDialog *highlighted = tiles.first();
        for (const RecentDocDialog *tile : tiles) {
            const QRect name(tile->title_label->mapTo(popup, QPoint()), tile->title_label->size());
            const double found = contrastWithin(image.copy(name), image.pixelColor(name.topRight()));
            QVERIFY2(found >= 4.5, qPrintable(QString::number(found)));
        }
        for (const QLabel *label : {popup->main_label_title, popup->main_label_path}) {
            const QRect place = label->geometry();
            const double found = contrastWithin(image.copy(place), image.pixelColor(place.topRight()));
            QVERIFY2(found >= 4.5, qPrintable(QString::number(found)));
            QVERIFY(luminance(image.pixelColor(place.topRight())) < 0.1); // the header's own background
        }
        const int middle = highlighted->geometry().center().y();
        const QColor ring = image.pixelColor(highlighted->x() - 2, middle);
        const QColor background = image.pixelColor(highlighted->x() - 6, middle);
        QVERIFY2(contrast(ring, background) >= 2.5,
                 qPrintable(ring.name() + QLatin1Char(' ') + background.name()));
    }

private:
    const QPalette m_palette = QApplication::palette();
    const QString m_style = QApplication::style()->objectName();
};

TEST_CLASS(tst_Popup);
#include "tst_popup.moc"

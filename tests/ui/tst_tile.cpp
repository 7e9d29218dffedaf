// SPDX-License-Identifier: MIT
#include "state/FolderPinButton.h"
#include "tests/support/FocusReasons.h"
#include "tests/support/MarkingTranslator.h"
#include "tests/ui/FormText.h"
#include "tests/ui/OpenGrid.h"

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

    FakeBrowser browser; // its destructor clears the lists that tiles add themselves to
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

QImage shownIn(const QLabel &label)
{
    return label.pixmap(Qt::ReturnByValue).toImage();
}

} // namespace

//! What a tile is made of, and what clicks on tiles do to the highlight and to the focus.
class tst_Tile : public TestCase
{
    Q_OBJECT

private slots:
    void isAChildOfThePopupAndNotAWindow()
    {
        const FreshTile fresh;
        const RecentDocDialog &tile = *fresh.tile;
        QCOMPARE(tile.parentWidget(), &fresh.popup);
        QVERIFY(!tile.isWindow());
        QCOMPARE(tile.windowFlags(), Qt::WindowFlags(Qt::FramelessWindowHint));
        QCOMPARE(tile.windowModality(), Qt::WindowModal);
        QVERIFY(tile.testAttribute(Qt::WA_MouseTracking));
        QVERIFY(tile.testAttribute(Qt::WA_DeleteOnClose));
        QCOMPARE(tile.geometry(), QRect(10, 90, 161, 131));
        QCOMPARE(tile.minimumSize(), QSize(161, 131));
        QCOMPARE(tile.maximumSize(), QSize(161, 131));
        QCOMPARE(tile.sizePolicy(), QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed));
        QVERIFY(!tile.isHighlighted() && !tile.graphicsEffect());

        const QMetaObject &meta = RecentDocDialog::staticMetaObject;
        QCOMPARE(meta.className(), "RecentDocDialog");
        QCOMPARE(meta.superClass(), &QDialog::staticMetaObject);
        QCOMPARE(meta.methodCount(), meta.methodOffset());
        QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    }

    void formHasItsNamesAndMeasures()
    {
        const FreshTile fresh;
        const RecentDocDialog &tile = *fresh.tile;
        QCOMPARE(tile.objectName(), QStringLiteral("RecentDocDialog"));
        QCOMPARE(formText(tile.layout()),
                 QStringLiteral("verticalLayout 6 (gridLayout_3 0 (0:0 gridLayout_2 0 (0:0 title_label, "
                                "0:1 gridLayout 0 (0:0 folderButton, 0:1 pinButton)), 2:0 image_label))"));
        QCOMPARE(tile.verticalLayout->contentsMargins(), QMargins(11, 11, 11, 11));
        const QLabel &name = *tile.title_label;
        QCOMPARE(name.sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred));
        QCOMPARE(name.maximumSize(), QSize(16777215, 16777215));
        QCOMPARE(name.sizeIncrement(), QSize(0, 0));
        QVERIFY(!name.wordWrap());
        QCOMPARE(tile.image_label->text(), QString());
        for (const char *button : {"pinButton", "folderButton"})
            QCOMPARE(FakeBrowser::button(&tile, button)->path(), tile.path());
    }

    void textsAreTranslated()
    {
        MarkingTranslator translator;
        QVERIFY(QCoreApplication::installTranslator(&translator));
        const FreshTile fresh;
        QCOMPARE(fresh.tile->windowTitle(), QStringLiteral("RecentDocDialog/RecentDocDialog"));
        QCOMPARE(fresh.tile->title_label->text(), QStringLiteral("gear.dwg")); // not translated
    }

    void hasItsStyleSheet()
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

    void longNamesAreCutButNotPaths_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("shown");
        const auto row = [](const char *name, const char *path, const char *shown) {
            QTest::newRow(name) << QString::fromUtf8(path) << QString::fromUtf8(shown);
        };
        row("a short name", "/a/gear.dwg", "gear.dwg");
        row("a name of 16 characters", "/a/abcdefghijkl.dwg", "abcdefghijkl.dwg");
        row("a name of 17 characters", "/a/abcdefghijklm.dwg", "abcdefghijklm...");
        row("a long name", "/a/a quite long drawing name.dwg", "a quite long ...");
        row("folders do not count", "/a folder with a very long name/b.dwg", "b.dwg");
        row("umlauts count once", "/a/äöüäöüäöüäöü.dwg", "äöüäöüäöüäöü.dwg");
        row("no folder", "gear.dwg", "gear.dwg");
        row("no path", "", "");
        row("markup is plain text", "/a/<b>x.dwg", "<b>x.dwg");
        row("doubled slashes and dots", "/a//b/../gear.dwg", "gear.dwg");
        row("backslashes", "C:\\a\\b.dwg", "C:\\a\\b.dwg");
        row("blanks around", " /a/gear.dwg ", "gear.dwg ");
        row("beyond the first plane", "/a/\xF0\x9F\x93\x90.dwg", "\xF0\x9F\x93\x90.dwg");
    }

    void longNamesAreCutButNotPaths()
    {
        QFETCH(QString, path);
        QFETCH(QString, shown);
        const FreshTile fresh(path);
        QCOMPARE(fresh.tile->title_label->text(), shown);
        QCOMPARE(fresh.tile->title_label->textFormat(), Qt::PlainText);
        QCOMPARE(fresh.tile->path(), path);
    }

    void pictureFillsItsLabel()
    {
        FreshTile fresh;
        const QLabel &picture = *fresh.tile->image_label;
        const QImage before = fresh.picture.copy();
        fresh.picture.fill(Qt::black); // the tile has a copy
        QVERIFY(picture.hasScaledContents());
        QCOMPARE(shownIn(picture), QPixmap::fromImage(before).toImage());
        QCOMPARE(picture.styleSheet(), QStringLiteral("QLabel {"
                                                      "                        border-width: 0.1px;"
                                                      "                        border: 1px solid;"
                                                      "                        background-color: white;"
                                                      "                        border-color: #C0C0C0"
                                                      "                            }"));
    }

    void typeIconIsInTheCorner()
    {
        const FreshTile fresh;
        const QLabel *icon = typeIcon(*fresh.tile);
        QCOMPARE(icon->parentWidget(), fresh.tile);
        QCOMPARE(icon->geometry(), QRect(140, 110, 21, 21));
        QCOMPARE(icon->geometry().bottomRight(), fresh.tile->rect().bottomRight());
        const QImage stored(QStringLiteral(":/Images/Resources/VELA_DWG.png"));
        QVERIFY(!stored.isNull());
        QCOMPARE(shownIn(*icon).size(), stored.size()); // and not the 21 pixels that are asked for
        constexpr QImage::Format painted = QImage::Format_ARGB32_Premultiplied; // what a pixmap keeps
        QCOMPARE(shownIn(*icon).convertToFormat(painted), stored.convertToFormat(painted));
    }

    void partsAreInTheirPlaces()
    {
        const OpenGrid grid(1);
        drainEvents(); // layouts have run
        const RecentDocDialog &tile = *grid.tiles.at(0);
        const QRect name = tile.title_label->geometry();
        const QRect folder = FakeBrowser::button(&tile, "folderButton")->geometry();
        const QRect pin = FakeBrowser::button(&tile, "pinButton")->geometry();
        const QRect picture = tile.image_label->geometry();
        const QRect inner = tile.rect().adjusted(11, 11, -11, -11);
        QCOMPARE(name.topLeft(), inner.topLeft());
        QVERIFY(folder.left() > name.right());
        QVERIFY(pin.left() > folder.right());
        QCOMPARE(pin.right(), inner.right());
        QVERIFY(picture.top() > qMax(name.bottom(), pin.bottom()));
        QCOMPARE(picture.left(), inner.left());
        QCOMPARE(picture.bottomRight(), inner.bottomRight());
        QCOMPARE(typeIcon(tile)->geometry(), QRect(140, 110, 21, 21));
    }

    void pinCopiesTheMenusStateOnce()
    {
        for (const bool pinned : {true, false}) {
            const FreshTile fresh(QStringLiteral("/a/gear.dwg"), pinned);
            const FolderPinButton *pin = FakeBrowser::button(fresh.tile, "pinButton");
            QCOMPARE(pin->isChecked(), pinned);
            fresh.menuPin->setChecked(!pinned);
            QCOMPARE(pin->isChecked(), pinned);
        }
    }

    void deletesItselfWhenClosedAndStaysListed()
    {
        const OpenGrid grid(2);
        const QPointer<RecentDocDialog> tile = grid.tiles.at(1);
        tile->close();
        drainEvents();
        QVERIFY(!tile);
        QCOMPARE(grid.browser.tiles().size(), 2); // the second pointer is invalid
        QCOMPARE(RecentDocumentBrowser::docPinButtonList.size(), 2);
    }

    // Examples; tst_highlightproperties tests the rules.
    void clicksSelect_data()
    {
        QTest::addColumn<Indices>("before");
        QTest::addColumn<int>("clicked");
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::addColumn<Indices>("pressed");
        QTest::addColumn<Indices>("released");
        const auto row = [](const char *name, const Indices &before, int clicked,
                            Qt::KeyboardModifiers modifiers, const Indices &pressed,
                            const Indices &released) {
            QTest::newRow(name) << before << clicked << modifiers << pressed << released;
        };
        constexpr Qt::KeyboardModifiers none = Qt::NoModifier;
        constexpr Qt::KeyboardModifiers control = Qt::ControlModifier;
        constexpr Qt::KeyboardModifiers shift = Qt::ShiftModifier;
        row("a click drops several", {0, 1, 4}, 2, none, {2}, {2});
        row("a click on one of several keeps them until the release", {0, 2, 3}, 2, none, {0, 2, 3}, {2});
        row("Control never removes", {0, 2}, 2, control, {0, 2}, {0, 2});
        row("Shift backward", {4}, 1, shift, {1, 2, 3, 4}, {1, 2, 3, 4});
        row("Shift between two fills the first gap alone", {0, 4}, 2, shift, {0, 1, 2, 4}, {0, 1, 2, 4});
        row("Shift on the only selected tile runs to the end", {2}, 2, shift, {2, 3, 4, 5}, {2, 3, 4, 5});
    }

    void clicksSelect()
    {
        QFETCH(Indices, before);
        QFETCH(int, clicked);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        QFETCH(Indices, pressed);
        QFETCH(Indices, released);
        OpenGrid grid(6);
        grid.highlight(before);
        QTest::mousePress(grid.tiles.at(clicked), Qt::LeftButton, modifiers);
        QCOMPARE(grid.highlighted(), pressed);
        QTest::mouseRelease(grid.tiles.at(clicked), Qt::LeftButton, modifiers);
        QCOMPARE(grid.highlighted(), released);
    }

    void pressGivesTheFocusToThePopup_data()
    {
        QTest::addColumn<int>("button");
        QTest::addColumn<int>("clicked");
        QTest::newRow("left, selecting") << int(Qt::LeftButton) << 2;
        QTest::newRow("left, on the selected tile") << int(Qt::LeftButton) << 0;
        QTest::newRow("right") << int(Qt::RightButton) << 2;
        QTest::newRow("middle") << int(Qt::MiddleButton) << 2;
    }

    void pressGivesTheFocusToThePopup()
    {
        QFETCH(int, button);
        QFETCH(int, clicked);
        const OpenGrid grid(6);
        QVERIFY(waitForActive(grid.popup));
        grid.tiles.at(1)->setFocus();
        QCOMPARE(QApplication::focusWidget(), grid.tiles.at(1));
        grid.tiles.at(clicked)->setFocusPolicy(Qt::StrongFocus); // as after the pointer was on it
        const FocusReasons focus(*grid.popup);
        QTest::mousePress(grid.tiles.at(clicked), Qt::MouseButton(button));
        QCOMPARE(QApplication::focusWidget(), grid.popup.data());
        QCOMPARE(focus.reasons, QList<Qt::FocusReason>{Qt::OtherFocusReason});
        QCOMPARE(grid.popup->dragDialog.data(), grid.tiles.at(clicked)); // the popup receives the press too
    }

    void releaseGivesTheFocusToThePopupOnlyWhenItSelects()
    {
        OpenGrid grid(6);
        grid.highlight({0, 2});
        QVERIFY(waitForActive(grid.popup));
        grid.tiles.at(1)->setFocus();
        QTest::mouseRelease(grid.tiles.at(2), Qt::LeftButton, Qt::ControlModifier);
        QCOMPARE(QApplication::focusWidget(), grid.tiles.at(1));
        QTest::mouseRelease(grid.tiles.at(2), Qt::LeftButton);
        QCOMPARE(grid.highlighted(), Indices({2}));
        QCOMPARE(QApplication::focusWidget(), grid.popup.data());
    }

    void selectingInstallsAnEffectAndDeselectingRecoloursIt()
    {
        const OpenGrid grid(6);
        const QPointer<QGraphicsEffect> first = grid.tiles.at(0)->graphicsEffect();
        QTest::mousePress(grid.tiles.at(2), Qt::LeftButton);
        const QPointer<QGraphicsEffect> second = grid.tiles.at(2)->graphicsEffect();
        QCOMPARE(second->property("offset").toPointF(), QPointF(2.5, 2.5));
        QVERIFY(!grid.tiles.at(1)->graphicsEffect());
        QCOMPARE(grid.tiles.at(0)->graphicsEffect(), first.data()); // is kept, in the tile's resting colour
        QCOMPARE(first->property("color").value<QColor>(), QColor(248, 248, 248, 255));

        QTest::mousePress(grid.tiles.at(0), Qt::LeftButton, Qt::ControlModifier);
        QVERIFY(!first); // replaced
        QTest::mousePress(grid.tiles.at(2), Qt::LeftButton);
        QVERIFY(second); // a press on a selected tile leaves it alone,
        QTest::mouseRelease(grid.tiles.at(2), Qt::LeftButton);
        QVERIFY(!second); // and the release selects it again
        QCOMPARE(grid.highlighted(), Indices({2}));
    }
};

TEST_CLASS(tst_Tile);
#include "tst_tile.moc"

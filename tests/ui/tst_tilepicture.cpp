// SPDX-License-Identifier: MIT
#include "tests/ui/OpenGrid.h"
#include "ui/TilePictures.h"

using Change = std::function<void(RecentDocDialog &)>;
Q_DECLARE_METATYPE(Change)

//! What a tile paints from what is kept: it must look as if nothing were.
class tst_TilePicture : public TestCase
{
    Q_OBJECT

private slots:
    void pictureIsPaintedAsByQLabel_data()
    {
        QTest::addColumn<QImage>("picture");
        const QImage pattern = pictureOf(QStringLiteral("/drawings/gear.dwg")).scaled(180, 112);
        QImage glass = pattern.convertToFormat(QImage::Format_ARGB32);
        for (int x = 0; x < glass.width(); ++x)
            glass.setPixelColor(x, x / 2, QColor(200, 0, 0, x));
        QTest::newRow("32 bits") << pattern.convertToFormat(QImage::Format_RGB32);
        QTest::newRow("palette") << pattern.convertToFormat(QImage::Format_Indexed8);
        QTest::newRow("with alpha") << glass;
        QTest::newRow("a pixel") << pattern.copy(0, 0, 1, 1);
        QTest::newRow("none") << QImage();
    }

    void pictureIsPaintedAsByQLabel()
    {
        QFETCH(QImage, picture);
        FakeBrowser browser(1);
        browser.host.onLoadPreview = [&](const QString & /*path*/, QImage &image) {
            image = picture;
            return true;
        };
        browser.createDocument();
        browser.openPopup();
        QLabel &kept = *browser.tiles().at(0)->image_label;
        QDialog parent; // whose style sheet also applies to the label
        parent.setStyleSheet(browser.tiles().at(0)->styleSheet());
        QLabel plain(&parent);
        plain.setScaledContents(true);
        plain.setPixmap(QPixmap::fromImage(picture));
        plain.setStyleSheet(kept.styleSheet());
        plain.resize(kept.size());
        const QImage expected = plain.grab().toImage();
        QCOMPARE(kept.grab().toImage(), expected);
        QCOMPARE(kept.grab().toImage(), expected); // what was kept
    }

    void scaledPicturesAreKept()
    {
        const QImage picture = pictureOf(QStringLiteral("/drawings/gear.dwg"));
        const auto key = [&](int side) {
            return TilePictures::scaled(TilePictures::whole(picture), QSize(side, side)).cacheKey();
        };
        const qint64 before = key(20);
        QCOMPARE(key(20), before);
        QVERIFY(key(21) != before);
        QCOMPARE(key(20), before);
        constexpr int large = 2000; // pixels; four such pictures fit
        for (int i = 0; i < 3; ++i)
            key(large + i);
        QCOMPARE(key(20), before);
        for (int i = 0; i < 5; ++i)
            key(large + i);
        const qint64 again = key(20);
        QVERIFY(again != before);
        TilePictures::drop();
        QVERIFY(key(20) != again);
    }

    void theLooksOfAnOpenTileChange_data()
    {
        QTest::addColumn<QString>("sheet");
        QTest::addColumn<Change>("change");
        const auto row = [](const char *name, const char *sheet, const Change &change) {
            QTest::newRow(name) << QString::fromLatin1(sheet) << change;
        };
        const Change none = [](RecentDocDialog &) {};
        row("a style sheet of the application", "QDialog { border-radius: 20px; }", none);
        row("one for labels alone", ".QLabel { border-radius: 20px; }", none);
        row("one for the pointer", "QLabel:hover { border-radius: 20px; }", [](RecentDocDialog &tile) {
            tile.grab();
            tile.image_label->setAttribute(Qt::WA_UnderMouse);
        });
        row("one of an older popup", "", [](RecentDocDialog &tile) {
            tile.parentWidget()->setStyleSheet(QStringLiteral("QLabel { border-radius: 20px; }"));
            (new RecentDocMainWindow(tile.parentWidget()->parentWidget()))->grab();
        });
        row("a disabled picture", "", [](RecentDocDialog &tile) { tile.image_label->setEnabled(false); });
    }

    void theLooksOfAnOpenTileChange()
    {
        QFETCH(QString, sheet);
        QFETCH(Change, change);
        FakeBrowser browser(2);
        browser.createDocument();
        browser.openPopup();
        RecentDocDialog &tile = *browser.tiles().at(1);
        const QImage before = tile.grab().toImage();
        qApp->setStyleSheet(sheet);
        change(tile);
        const QImage after = tile.grab().toImage();
        qApp->setStyleSheet(QString());
        QVERIFY(after != before);
    }

    void aDocumentWithoutPictureGetsABlankOne()
    {
        FakeBrowser browser(1);
        browser.host.onLoadPreview = nullptr;
        browser.createDocument();
        const RecentDocMainWindow *popup = browser.openPopup();
        const QLabel &picture = *browser.tiles().at(0)->image_label;
        QVERIFY(picture.pixmap(Qt::ReturnByValue).isNull());
        drainEvents();
        QVERIFY(picture.isVisibleTo(popup));
        const QImage painted = browser.tiles().at(0)->grab(picture.geometry()).toImage();
        QCOMPARE(painted.pixelColor(painted.rect().center()), QColor(Qt::white));
        QCOMPARE(painted.pixelColor(0, painted.height() / 2), QColor(QStringLiteral("#C0C0C0"))); // its frame
    }
};

TEST_CLASS(tst_TilePicture);
#include "tst_tilepicture.moc"

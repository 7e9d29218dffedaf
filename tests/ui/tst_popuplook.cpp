// SPDX-License-Identifier: MIT
#include "tests/support/TestCase.h"
#include "tests/support/fake/FakeBrowser.h"
#include "ui/RecentDocDialog.h"
#include "ui/RecentDocMainWindow.h"

#include <QApplication>
#include <QLabel>
#include <QStyle>

#include <cmath>

namespace {

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

//! Whether the popup can be read on desktops with other colours.
class tst_PopupLook : public TestCase
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
        QTest::newRow("an application that styles all labels and dialogs") << light << light << QString();
    }

    void namesAndRingHaveContrast()
    {
        QFETCH(QPalette, palette);
        QFETCH(QPalette, later);
        QFETCH(QString, laterStyle);
        QApplication::setPalette(palette);
        if (qstrcmp(QTest::currentDataTag(), "an application that styles all labels and dialogs") == 0)
            qApp->setStyleSheet(QStringLiteral("QLabel { color: white; } QDialog { background: black; }"
                                               "RecentDocDialog QLabel { color: black; }"
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

TEST_CLASS(tst_PopupLook);
#include "tst_popuplook.moc"

// SPDX-License-Identifier: MIT
#include "tests/support/TestCase.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QIcon>
#include <QImageReader>
#include <QPixmap>
#include <QProcess>
#include <QResource>
#include <QSet>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <dlfcn.h>

// What rcc generated; this test links it, so the first has run before main().
int qInitResources_res();
int qCleanupResources_res();

namespace {

//! The format version of the tree that was registered last; -1 when none was.
int registeredVersion = -1;

using Register = bool (*)(int, const unsigned char *, const unsigned char *, const unsigned char *);

} // namespace

// The version of a registered tree can be asked nowhere, it is only said in this call. So the test stands
// between the generated code and Qt: the linker prefers a program's own functions.
bool qRegisterResourceData(int version, const unsigned char *tree, const unsigned char *names,
                           const unsigned char *data)
{
    registeredVersion = version;
    const auto next = reinterpret_cast<Register>(dlsym(RTLD_NEXT, "_Z21qRegisterResourceDataiPKhS0_S0_"));
    return next && next(version, tree, names, data);
}

namespace {

constexpr QRgb outline = 0xFF1D2021;
constexpr QRgb backPanel = 0xFFFFB400;
constexpr QRgb frontFlap = 0xFFFFCC00;
constexpr QRgb arrow = 0xFF39A935;

struct Picture
{
    const char *name;
    int side; //!< pixels; of an SVG, its view box
};

constexpr Picture pictures[] = {
    {"VELA_DWG.png", 16},    {"pin_up_hover.png", 23}, {"pin_down_hover.png", 23}, {"help_up.png", 16},
    {"open.png", 24},        {"help_32x.svg", 16},     {"help_32x-20.svg", 20},    {"help_32x-32.svg", 32},
    {"help_32x-48.svg", 48}, {"Open_32x.svg", 16},     {"Open_32x-20.svg", 20},    {"Open_32x-32.svg", 32},
    {"Open_32x-48.svg", 48},
};

QString pathOf(const QString &name)
{
    return QStringLiteral(":/Images/Resources/") + name;
}

//! A row for each picture whose name contains part.
void addPictures(const char *part)
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("side");
    for (const Picture &picture : pictures) {
        const QString name = QLatin1String(picture.name);
        if (name.contains(QLatin1String(part)))
            QTest::newRow(picture.name) << pathOf(name) << picture.side;
    }
}

//! The picture at its own size, as a label shows it; null when Qt cannot read it.
QImage rendered(const QString &path)
{
    return QPixmap(path).toImage().convertToFormat(QImage::Format_ARGB32);
}

QVector<QRgb> opaquePixels(const QImage &image)
{
    QVector<QRgb> pixels;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) == 255)
                pixels.append(image.pixel(x, y));
        }
    }
    return pixels;
}

QSet<QRgb> opaqueColours(const QImage &image)
{
    const QVector<QRgb> pixels = opaquePixels(image);
    return {pixels.begin(), pixels.end()};
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

//! The rectangle around the pixels that are opaque and darker than mid-grey.
QRect darkPart(const QImage &image)
{
    QRect part;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) == 255 && qGray(image.pixel(x, y)) < 0x80)
                part |= QRect(x, y, 1, 1);
        }
    }
    return part;
}

} // namespace

class tst_Resources : public TestCase
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        QVERIFY2(QImageReader::supportedImageFormats().contains("svg"), "Qt's SVG plug-in is not installed");
        QCOMPARE(QProcess::execute(QStringLiteral(DRAW_IMAGES), {m_drawn.path()}), 0);
    }

    void theDirectoryHoldsThirteenImages()
    {
        QSet<QString> expected;
        for (const Picture &picture : pictures)
            expected.insert(QLatin1String(picture.name));
        QCOMPARE(expected.size(), 13);
        const QStringList found = QDir(pathOf(QString())).entryList();
        QCOMPARE(QSet<QString>(found.begin(), found.end()), expected);
        QCOMPARE(QDir(QStringLiteral(":/Images")).entryList(), QStringList(QStringLiteral("Resources")));
    }

    void theTreeIsOfVersionTwo() { QCOMPARE(registeredVersion, 2); }
    void cleaningUpTakesTheImagesAwayAndInitialisingBringsThemBack()
    {
        const QString path = pathOf(QStringLiteral("VELA_DWG.png"));
        QVERIFY(QFile::exists(path));

        QCOMPARE(qCleanupResources_res(), 1);
        const bool existsAfterCleanup = QFile::exists(path);
        QCOMPARE(qInitResources_res(),
                 1); // before any check that can end this function: others need the images

        QVERIFY(!existsAfterCleanup);
        QCOMPARE(QImage(path).size(), QSize(16, 16));
    }

    void imagesAreStoredAsTheyAre_data() { addPictures(""); }
    void imagesAreStoredAsTheyAre()
    {
        QFETCH(QString, path);
        const QResource resource(path);
        QVERIFY(resource.isValid());
        QCOMPARE(resource.compressionAlgorithm(), QResource::NoCompression);
        QVERIFY(resource.size() > 0);
        QVERIFY(resource.lastModified().isValid());
        QVERIFY(resource.lastModified() <= QDateTime::currentDateTime());
    }

    void bitmapsAreWhatTheProgramDraws_data() { addPictures(".png"); }
    void bitmapsAreWhatTheProgramDraws()
    {
        QFETCH(QString, path);
        QFETCH(int, side);
        QImageReader reader(path);
        QCOMPARE(reader.format(), QByteArrayLiteral("png"));
        const QImage image = reader.read();
        QCOMPARE(image.size(), QSize(side, side));
        QVERIFY(image.hasAlphaChannel());
        QVERIFY(qAlpha(image.pixel(side - 1, 0)) < 255); // no picture reaches into this corner
        QCOMPARE(image, QImage(m_drawn.filePath(QFileInfo(path).fileName())));
    }

    void vectorPicturesHaveTheirViewBoxAndHideALayer_data() { addPictures(".svg"); }
    void vectorPicturesHaveTheirViewBoxAndHideALayer()
    {
        QFETCH(QString, path);
        QFETCH(int, side);
        QCOMPARE(QPixmap(path).size(), QSize(side, side));
        const QByteArray hidden = contentOf(path);
        QXmlStreamReader xml(hidden);
        QVERIFY(xml.readNextStartElement());
        QCOMPARE(xml.name().toString(), QStringLiteral("svg"));
        QVERIFY(!xml.attributes().hasAttribute(QStringLiteral("width")));
        QVERIFY(!xml.attributes().hasAttribute(QStringLiteral("height")));
        QCOMPARE(xml.attributes().value(QStringLiteral("viewBox")).toString(),
                 QStringLiteral("0 0 %1 %1").arg(side));
        const QByteArray shown = QByteArray(hidden).replace(R"(display="none")", R"(display="inline")");
        QVERIFY(shown != hidden);
        // A layer that drew nothing either way would hide nothing.
        QVERIFY(QImage::fromData(shown, "svg") != QImage::fromData(hidden, "svg"));
    }

    void iconsYieldPixels_data() { addPictures(""); }
    void iconsYieldPixels()
    {
        QFETCH(QString, path);
        // As the buttons show them: through an icon, which reads SVG by another plug-in than a pixmap does.
        constexpr int buttonIconSide = 16;
        const QImage image = QIcon(path).pixmap(buttonIconSide, buttonIconSide).toImage();
        QCOMPARE(image.size(), QSize(buttonIconSide, buttonIconSide));
        int visible = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                visible += qAlpha(image.pixel(x, y)) >= 128;
        }
        QVERIFY2(visible >= buttonIconSide, qPrintable(QString::number(visible)));
        // The question marks in SVG have their one colour and nothing else, see below.
        if (!path.contains(QLatin1String("help_32x")))
            QVERIFY(opaqueColours(rendered(path)).size() > 1);
    }

    void iconsAreNotEnlarged()
    {
        QIcon icon;
        icon.addFile(pathOf(QStringLiteral("VELA_DWG.png")), QSize(21, 21));
        QCOMPARE(icon.pixmap(21, 21).size(), QSize(16, 16));
    }

    void questionMarksAreOfOneColour_data() { addPictures("help_32x"); }
    void questionMarksAreOfOneColour()
    {
        QFETCH(QString, path);
        QFETCH(int, side);
        const QImage image = rendered(path);
        QCOMPARE(opaqueColours(image), QSet<QRgb>{outline});
        for (const QPoint corner :
             {QPoint(0, 0), QPoint(side - 1, 0), QPoint(0, side - 1), QPoint(side - 1, side - 1)})
            QCOMPARE(qAlpha(image.pixel(corner)), 0);
    }

    void theArrowRisesOutOfTheFolder_data() { addPictures("Open_32x"); }
    void theArrowRisesOutOfTheFolder()
    {
        QFETCH(QString, path);
        QFETCH(int, side);
        const QVector<QRgb> fromTheTop = opaquePixels(rendered(path));
        for (const QRgb colour : {outline, backPanel, frontFlap, arrow}) {
            // A side's worth of pixels is an area one sees, and no stray one.
            QVERIFY2(fromTheTop.count(colour) >= side, qPrintable(QColor(colour).name()));
        }
        QCOMPARE(fromTheTop.first(), arrow);
        QCOMPARE(fromTheTop.last(), outline);
        QVERIFY(fromTheTop.lastIndexOf(arrow) < fromTheTop.indexOf(frontFlap)); // which hides its foot
    }

    void pinsAreGreyOnOnePlateAndThePinnedOneLooksAnother()
    {
        const QImage up = rendered(pathOf(QStringLiteral("pin_up_hover.png")));
        const QImage down = rendered(pathOf(QStringLiteral("pin_down_hover.png")));
        for (const QImage &image : {up, down}) {
            QVERIFY(image.allGray());
            QVERIFY(qGray(image.pixel(2, 2)) > 0xC0);             // the ground
            QVERIFY(darkPart(image).width() > image.width() / 2); // the pin
        }
        QVERIFY(up != down);
        // Toggling must not make the button jump.
        QCOMPARE(up.convertToFormat(QImage::Format_Alpha8), down.convertToFormat(QImage::Format_Alpha8));
    }

    void theNeedleOfTheUnpinnedPinPointsLeft()
    {
        const QImage image = rendered(pathOf(QStringLiteral("pin_up_hover.png")));
        const QRect pin = darkPart(image);
        const int middle = image.height() / 2;
        const QRect needle = darkPart(image.copy(pin.left(), 0, 4, image.height()));
        QCOMPARE(needle.top(), middle);
        QCOMPARE(needle.bottom(), middle);
        const QRect cap = darkPart(image.copy(pin.right(), 0, 1, image.height()));
        QVERIFY(cap.height() > image.height() / 3);
    }

    void theDrawingFileIsALightSheetWithLettersBelow()
    {
        const QImage image = rendered(pathOf(QStringLiteral("VELA_DWG.png")));
        QCOMPARE(qAlpha(image.pixel(0, 0)), 255);
        QCOMPARE(qAlpha(image.pixel(15, 0)), 0);  // folded over
        QVERIFY(qGray(image.pixel(8, 7)) > 0xF0); // between sketch and letters

        const QImage lowerHalf = image.copy(0, 8, 16, 8);
        const QVector<QRgb> below = opaquePixels(lowerHalf);
        const QVector<QRgb> above = opaquePixels(image.copy(0, 0, 16, 8));
        QCOMPARE(above.count(outline), 0);
        QCOMPARE(darkPart(lowerHalf), QRect(2, 1, 13, 5));
        QVERIFY(below.count(outline) > 0);
    }

private:
    QTemporaryDir m_drawn;
};

TEST_CLASS(tst_Resources);
#include "tst_resources.moc"

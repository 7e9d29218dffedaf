// SPDX-License-Identifier: MIT
#include "host/runtime/documents/DocumentManager.h"
#include "tests/support/RunningHost.h"
#include "tests/support/TestCase.h"

#include <CFxPreviewBitmap.h>

#include <QDataStream>

#include <future>
#include <memory>
#include <vector>

namespace {

//! A drawing whose preview section stands right behind its start and holds a bitmap of one green pixel.
QByteArray drawingWithAGreenPixel()
{
    constexpr qint32 sectionAt = 17;
    constexpr qint32 bitmapAt = sectionAt + 16 + 4 + 1 + 9; // behind sentinel, size, count and one entry
    constexpr qint32 bitmapSize = 40 + 4;                   // header and pixel, in bytes
    QByteArray drawing;
    QDataStream out(&drawing, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    const auto write = [&out](const QByteArray &bytes) { out.writeRawData(bytes.constData(), bytes.size()); };
    const QByteArray sentinel = QByteArray::fromHex("1F256D07D43628289D57CA3F9D44102B");
    write(QByteArray("AC1015").leftJustified(13, '\0'));
    out << sectionAt;
    write(sentinel);
    out << qint32(1 + 9 + bitmapSize) << quint8(1) << quint8(2) << bitmapAt << bitmapSize;
    out << qint32(40) << qint32(1) << qint32(1) << quint16(1) << quint16(32);
    write(QByteArray(24, '\0'));
    out << quint32(0x0000ff00);
    for (const char c : sentinel)
        out << quint8(~c);
    return drawing;
}

QImage readAsAModuleDoes(const QString &path)
{
    const std::unique_ptr<CFxPreviewBitmap> preview(CFxPreviewBitmap::Create());
    QImage image;
    if (preview->Load(path) && preview->IsValid())
        preview->ToImage(image);
    return image;
}

} // namespace

class TestPreviewBitmap : public TestCase
{
    Q_OBJECT

private slots:
    void aStoredPictureIsRead()
    {
        RunningHost running;
        const QImage image = readAsAModuleDoes(running.makeFile("green.dwg", drawingWithAGreenPixel()));
        QCOMPARE(image.size(), QSize(1, 1));
        QCOMPARE(image.pixelColor(0, 0), QColor(Qt::green));
    }

    void whereThereIsNoneNoneIsRead()
    {
        RunningHost running;
        const std::unique_ptr<CFxPreviewBitmap> preview(CFxPreviewBitmap::Create());
        QVERIFY(!preview->IsValid());
        QVERIFY(preview->Load(running.makeFile("green.dwg", drawingWithAGreenPixel())));
        QVERIFY(!preview->Load(running.makeDrawing("bare.dwg")));
        QVERIFY(!preview->IsValid()); // the former picture is not left
        QVERIFY(!preview->Load(running.path("missing.dwg")));
        QImage image(1, 1, QImage::Format_RGB32);
        preview->ToImage(image);
        QVERIFY(image.isNull());
    }

    void severalThreadsReadAtOnce()
    {
        RunningHost running;
        std::vector<std::future<QImage>> images;
        for (int i = 0; i < 16; ++i) {
            const QString path = running.makeFile(QString("%1.dwg").arg(i), drawingWithAGreenPixel());
            images.push_back(std::async(std::launch::async, readAsAModuleDoes, path));
        }
        for (std::future<QImage> &image : images)
            QCOMPARE(image.get().size(), QSize(1, 1));
    }

    void anOpenedDrawingHasItsPicture()
    {
        RunningHost running;
        running.host.documents().open(running.makeFile("green.dwg", drawingWithAGreenPixel()));
        QCOMPARE(running.host.documents().current()->facts().preview.pixelColor(0, 0), QColor(Qt::green));
    }
};

QTEST_MAIN(TestPreviewBitmap)
#include "tst_previewbitmap.moc"

// SPDX-License-Identifier: MIT
#include "host/runtime/preview/DrawingFile.h"
#include "samples/DrawingWriter.h"
#include "tests/support/TestCase.h"
#include "tests/support/bytes/BytesOfPreview.h"

#include <QTemporaryDir>

using namespace fxsamples;

namespace {

QByteArray sample(const DrawingForm &form)
{
    return drawingFile(testbytes::patternPicture(24, 60, 40), form);
}

} // namespace

//! Samples contain a header and a preview and nothing more, unlike drawings.
class tst_PreviewAlone : public TestCase
{
    Q_OBJECT

private slots:
    void onlySamplesContainAPreviewAlone_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<bool>("isAlone");
        for (const Version version : allVersions) {
            const QByteArray tag = versionTag(version);
            QTest::newRow(tag + " after the header")
                << sample({version, Picture::Bitmap8, Placement::BehindHeader}) << true;
            QTest::newRow(tag + " after filling")
                << sample({version, Picture::Bitmap24, Placement::AfterFilling}) << true;
            if (carriesPng(version)) {
                QTest::newRow(tag + " PNG")
                    << sample({version, Picture::Png, Placement::AfterFilling}) << true;
            }
        }
        const QByteArray whole = sample({Version::AC1018, Picture::Bitmap8, Placement::AfterFilling});
        QTest::newRow("a byte after the preview") << whole + 'x' << false;
        QTest::newRow("a byte before it") << QByteArray(whole).replace(0x200, 1, "x") << false;
        QTest::newRow("no preview at all")
            << QByteArray(whole).replace(0x0D, 2, QByteArray(2, '\0')) << false;
        QTest::newRow("cut off") << whole.chopped(1) << false;
        QTest::newRow("an old version") << QByteArray(whole).replace(0, 6, "AC1009") << false;
        QTest::newRow("an empty file") << QByteArray() << false;
    }

    void onlySamplesContainAPreviewAlone()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(bool, isAlone);
        const QTemporaryDir folder;
        const QString path = testbytes::writeFile(folder.filePath("drawing.dwg"), bytes);
        QCOMPARE(fxhost::readDrawing(path).isPreviewAlone, isAlone);
    }
};

CORE_TEST_CLASS(tst_PreviewAlone);
#include "tst_previewalone.moc"

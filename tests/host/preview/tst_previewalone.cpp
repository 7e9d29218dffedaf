// SPDX-License-Identifier: MIT
#include "host/runtime/preview/PreviewReader.h"
#include "samples/DrawingWriter.h"
#include "tests/support/TestCase.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

Q_DECLARE_METATYPE(fxsamples::DrawingForm)

using namespace fxsamples;

//! Telling samples, which hold a header and a preview and nothing more, from drawings.
class tst_PreviewAlone : public TestCase
{
    Q_OBJECT

private slots:
    void sampleHoldsItsPreviewAlone_data();
    void sampleHoldsItsPreviewAlone();
    void anythingElseInTheFileMakesADifference_data();
    void anythingElseInTheFileMakesADifference();
    void realDrawingsHoldMore();

private:
    bool isAlone(const QByteArray &bytes);

    QTemporaryDir m_folder;
};

namespace {

QByteArray sample(const DrawingForm &form)
{
    QImage picture(60, 40, QImage::Format_RGB32);
    picture.fill(Qt::darkGreen);
    return drawingFile(picture, form);
}

} // namespace

bool tst_PreviewAlone::isAlone(const QByteArray &bytes)
{
    QFile file(m_folder.filePath(QStringLiteral("drawing.dwg")));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
    file.close();
    return fxhost::holdsPreviewAlone(file.fileName());
}

void tst_PreviewAlone::sampleHoldsItsPreviewAlone_data()
{
    QTest::addColumn<DrawingForm>("form");
    for (const Version version : allVersions) {
        const QByteArray tag = versionTag(version);
        QTest::newRow(tag + " behind the header")
            << DrawingForm{version, Picture::Bitmap8, Placement::BehindHeader};
        QTest::newRow(tag + " after filling")
            << DrawingForm{version, Picture::Bitmap24, Placement::AfterFilling};
        if (carriesPng(version))
            QTest::newRow(tag + " PNG") << DrawingForm{version, Picture::Png, Placement::AfterFilling};
    }
}

void tst_PreviewAlone::sampleHoldsItsPreviewAlone()
{
    QFETCH(DrawingForm, form);
    QVERIFY(isAlone(sample(form)));
}

void tst_PreviewAlone::anythingElseInTheFileMakesADifference_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray whole = sample({Version::AC1018, Picture::Bitmap8, Placement::AfterFilling});
    QTest::newRow("a byte behind the preview") << whole + 'x';
    QByteArray filled = whole;
    filled[0x200] = 1;
    QTest::newRow("a byte in front of it") << filled;
    QByteArray pointed = whole;
    pointed[0x0D] = 0;
    pointed[0x0E] = 0;
    QTest::newRow("no preview at all") << pointed;
    QTest::newRow("cut off") << whole.left(whole.size() - 1);
    QTest::newRow("an old version") << QByteArray(whole).replace(0, 6, "AC1009");
    QTest::newRow("an empty file") << QByteArray();
}

void tst_PreviewAlone::anythingElseInTheFileMakesADifference()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(!isAlone(bytes));
}

void tst_PreviewAlone::realDrawingsHoldMore()
{
    const QDir drawings(QStringLiteral(SHARED_DRAWINGS_DIR));
    if (!drawings.exists())
        QSKIP("There are no real drawings here to try.");
    const QStringList names = drawings.entryList({QStringLiteral("*.dwg")}, QDir::Files);
    QVERIFY(!names.isEmpty());
    for (const QString &name : names)
        QVERIFY2(!fxhost::holdsPreviewAlone(drawings.filePath(name)), qPrintable(name));
}

QTEST_GUILESS_MAIN(tst_PreviewAlone)
#include "tst_previewalone.moc"

// SPDX-License-Identifier: MIT
#include "host/runtime/preview/DrawingFile.h"

#include "host/runtime/preview/PreviewReader.h"
#include "samples/DrawingWriter.h"
#include "tests/support/TestCase.h"
#include "tests/support/bytes/BytesOfPreview.h"
#include "tests/support/bytes/BytesOfSpecialFiles.h"

#include <QTemporaryDir>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using fxhost::DrawingFile;
using namespace fxsamples;
using namespace testbytes;

namespace {

//! While it exists, this process has no more rights than an ordinary user, even if it runs as root.
class OrdinaryUser
{
public:
    OrdinaryUser()
    {
        constexpr uid_t ordinary = 65534;
        if (m_user == 0 && ::seteuid(ordinary) != 0)
            qFatal("cannot drop the rights of root");
    }
    ~OrdinaryUser()
    {
        if (::seteuid(m_user) != 0)
            qFatal("cannot restore the rights of root");
    }
    Q_DISABLE_COPY(OrdinaryUser)

private:
    uid_t m_user = ::geteuid();
};

//! A sample, which contains a header and a preview and nothing more, unlike a drawing.
QByteArray sample(const DrawingForm &form)
{
    return drawingFile(patternPicture(24), form);
}

} // namespace

class tst_DrawingFile : public TestCase
{
    Q_OBJECT

private slots:
    void everyReleasedVersionIsADrawing_data()
    {
        QTest::addColumn<QByteArray>("version");
        for (const char *version : {"AC1.2", "AC1.40", "AC1.50", "AC2.10", "AC1001", "AC1002", "AC1003",
                                    "AC1004", "AC1006", "AC1009", "AC1012", "AC1013", "AC1014", "AC1015",
                                    "AC1018", "AC1021", "AC1024", "AC1027", "AC1032"})
            QTest::newRow(version) << QByteArray(version);
    }

    void everyReleasedVersionIsADrawing()
    {
        QFETCH(QByteArray, version);
        for (const QByteArray &rest :
             {QByteArray(), QByteArray(200, '\0'), QByteArray(" and a shopping list")}) {
            const DrawingFile drawing = read(version + rest);
            QVERIFY(drawing.outcome);
            QCOMPARE(drawing.version, version);
            QCOMPARE(drawing.size, version.size() + rest.size());
        }
    }

    void anythingElseIsNotADrawing_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        for (const char *start : {"A",
                                  "AC",
                                  "AC10",
                                  "AC103",
                                  "AC1.",
                                  "AC1.4",
                                  "AC2.1",
                                  "AC1000",
                                  "AC1010",
                                  "AC1011",
                                  "AC1033",
                                  "AC1099",
                                  "AC10+9",
                                  "AC10 9",
                                  "AC10-1",
                                  "AC100?",
                                  "AC101:",
                                  "AC103/",
                                  "AC1O32",
                                  "AC0032",
                                  "ac1032",
                                  " AC1032",
                                  "MC0.0",
                                  "version https://storage.example/v1",
                                  "<?xml version=\"1.0\"?>",
                                  "%PDF-1.7"})
            QTest::newRow(start) << QByteArray(start);
        QTest::newRow("an empty file") << QByteArray();
        QTest::newRow("zeros") << QByteArray(100, '\0');
    }

    void anythingElseIsNotADrawing()
    {
        QFETCH(QByteArray, bytes);
        const DrawingFile drawing = read(bytes);
        QVERIFY(!drawing.outcome);
        QCOMPARE(drawing.version, QByteArray());
        QCOMPARE(drawing.outcome.reason(), QString("The file is not a drawing."));
    }

    void specialFilesAreRefusedWithTheReason_data() { addSpecialFileRows(); }
    void specialFilesAreRefusedWithTheReason()
    {
        QFETCH(SpecialFile, kind);
        const BytesOfSpecialFiles files;
        const Alarm alarm;
        const DrawingFile drawing = fxhost::readDrawing(files.path(kind));
        QVERIFY(!drawing.outcome && drawing.version.isEmpty());
        QVERIFY(fxhost::readPreview(files.path(kind)).isNull());
        if (kind <= SpecialFile::LinkToNothing)
            QCOMPARE(drawing.outcome.reason(), QString("The file does not exist."));
        else if (kind == SpecialFile::LinkToItself)
            QCOMPARE(drawing.outcome.reason(),
                     QString("The file cannot be read: %1.").arg(qt_error_string(ELOOP)));
        else
            QCOMPARE(drawing.outcome.reason(), QString("It is not a regular file."));
    }

    void unreadableFileIsRefusedWithTheReason()
    {
        const QString path = writeFile(m_dir.filePath("secret.dwg"), "AC1032");
        QVERIFY(::chmod(QFile::encodeName(path).constData(), 0) == 0);
        const OrdinaryUser user;
        const DrawingFile drawing = fxhost::readDrawing(path);
        QVERIFY(fxhost::readPreview(path).isNull());
        QVERIFY(drawing.outcome.reason().contains(qt_error_string(EACCES)));
    }

    void fileOfTheFarFutureIsRead()
    {
        const QString path = writeFile(m_dir.filePath("future.dwg"), drawingWith().bytes());
        constexpr timespec future = {1'000'000'000'000,
                                     0}; // file systems take the latest date that they know
        const timespec times[] = {future, future};
        QCOMPARE(::utimensat(AT_FDCWD, QFile::encodeName(path).constData(), times, 0), 0);
        QVERIFY(fxhost::readDrawing(path).modified > QDateTime::currentDateTime());
    }

    void formatIsNamedByItsYear()
    {
        for (const char *name :
             {"AC1015 (2000 format)", "AC1018 (2004 format)", "AC1021 (2007 format)", "AC1024 (2010 format)",
              "AC1027 (2013 format)", "AC1032 (2018 format)", "AC1009", "AC1014", "AC1.2", ""})
            QCOMPARE(fxhost::drawingFormatName(QByteArray(name).split(' ').first()), QString(name));
    }

    void onlySamplesContainAPreviewAlone_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<bool>("isAlone");
        for (const Version version : allVersions) {
            const QByteArray tag = versionTag(version);
            QTest::newRow(tag + " after the header")
                << sample({version, Picture::Bitmap8, Placement::AfterHeader}) << true;
            QTest::newRow(tag + " after filling")
                << sample({version, Picture::Bitmap24, Placement::AfterFilling}) << true;
            if (supportsPng(version)) {
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
        QCOMPARE(read(bytes).isPreviewAlone, isAlone);
    }

private:
    DrawingFile read(const QByteArray &bytes) const
    {
        return fxhost::readDrawing(writeFile(m_dir.filePath("drawing.dwg"), bytes));
    }

    QTemporaryDir m_dir;
};

CORE_TEST_CLASS(tst_DrawingFile);
#include "tst_drawingfile.moc"

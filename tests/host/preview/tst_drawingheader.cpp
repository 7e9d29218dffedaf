// SPDX-License-Identifier: MIT
#include "host/runtime/preview/DrawingHeader.h"

#include "host/runtime/preview/PreviewReader.h"
#include "tests/support/PreviewBytes.h"
#include "tests/support/SpecialFiles.h"
#include "tests/support/TestCase.h"

#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>
#include <unistd.h>

using fxhost::DrawingError;
using fxhost::DrawingHeader;
using namespace testbytes;

Q_DECLARE_METATYPE(fxhost::DrawingError)

namespace {

//! As long as it lives, this process has a user's rights, also when it is root's.
class NobodyInParticular
{
public:
    NobodyInParticular()
    {
        constexpr uid_t nobody = 65534;
        if (m_user == 0 && ::seteuid(nobody) != 0)
            qFatal("cannot be somebody else");
    }
    ~NobodyInParticular()
    {
        if (::seteuid(m_user) != 0)
            qFatal("cannot be myself again");
    }
    Q_DISABLE_COPY(NobodyInParticular)

private:
    uid_t m_user = ::geteuid();
};

} // namespace

class tst_DrawingHeader : public TestCase
{
    Q_OBJECT

private slots:
    void everyReleasedVersionIsADrawing_data();
    void everyReleasedVersionIsADrawing();
    void whatIsBehindTheVersionDoesNotMatter();
    void anythingElseIsNoDrawing_data();
    void anythingElseIsNoDrawing();
    void aSpecialFileIsToldByItsKind_data();
    void aSpecialFileIsToldByItsKind();
    void aFileThatMayNotBeReadSaysWhy();
    void reasonsDifferAndEndAsSentences();
    void aFormatIsNamedByItsYearWhereItHasOne_data();
    void aFormatIsNamedByItsYearWhereItHasOne();

private:
    DrawingHeader read(const QByteArray &bytes) const
    {
        return fxhost::readDrawingHeader(writeFile(m_dir.filePath(QStringLiteral("drawing.dwg")), bytes));
    }

    QTemporaryDir m_dir;
};

void tst_DrawingHeader::everyReleasedVersionIsADrawing_data()
{
    QTest::addColumn<QByteArray>("version");
    for (const char *version :
         {"AC1.2", "AC1.40", "AC1.50", "AC2.10", "AC1001", "AC1002", "AC1003", "AC1004", "AC1006", "AC1009",
          "AC1012", "AC1013", "AC1014", "AC1015", "AC1018", "AC1021", "AC1024", "AC1027", "AC1032"})
        QTest::newRow(version) << QByteArray(version);
}

void tst_DrawingHeader::everyReleasedVersionIsADrawing()
{
    QFETCH(QByteArray, version);
    for (const QByteArray &file : {version, version + QByteArray(200, '\0')}) {
        const DrawingHeader header = read(file);
        QCOMPARE(header.error, DrawingError::None);
        QCOMPARE(header.version, version);
        QVERIFY(header.reason.isEmpty());
    }
}

void tst_DrawingHeader::whatIsBehindTheVersionDoesNotMatter()
{
    QCOMPARE(read("AC1032 and then a shopping list").version, QByteArray("AC1032"));
    QCOMPARE(read("AC1.2 and then a shopping list").version, QByteArray("AC1.2"));
}

void tst_DrawingHeader::anythingElseIsNoDrawing_data()
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

void tst_DrawingHeader::anythingElseIsNoDrawing()
{
    QFETCH(QByteArray, bytes);
    const DrawingHeader header = read(bytes);
    QCOMPARE(header.error, DrawingError::NotADrawing);
    QVERIFY(header.version.isEmpty());
    QCOMPARE(header.reason, QStringLiteral("The file is not a drawing."));
}

void tst_DrawingHeader::aSpecialFileIsToldByItsKind_data()
{
    addSpecialFileRows();
}

void tst_DrawingHeader::aSpecialFileIsToldByItsKind()
{
    QFETCH(SpecialFile, kind);
    const SpecialFiles files;
    const Alarm alarm;
    const DrawingHeader header = fxhost::readDrawingHeader(files.path(kind));
    QVERIFY(header.version.isEmpty());
    switch (kind) {
    case SpecialFile::Nothing:
    case SpecialFile::EmptyPath:
    case SpecialFile::PathWithNull:
    case SpecialFile::BelowAFile:
    case SpecialFile::LinkToNothing:
        QCOMPARE(header.error, DrawingError::Missing);
        break;
    case SpecialFile::LinkToItself:
        QCOMPARE(header.error, DrawingError::Unreadable);
        break;
    case SpecialFile::Directory:
    case SpecialFile::Fifo:
    case SpecialFile::Socket:
    case SpecialFile::EndlessDevice:
    case SpecialFile::SilentDevice:
        QCOMPARE(header.error, DrawingError::NotAFile);
        break;
    }
}

void tst_DrawingHeader::aFileThatMayNotBeReadSaysWhy()
{
    const QString path = writeFile(m_dir.filePath(QStringLiteral("secret.dwg")), "AC1032");
    QVERIFY(::chmod(QFile::encodeName(path).constData(), 0) == 0);
    DrawingHeader header;
    bool hasPicture = true;
    {
        const NobodyInParticular user;
        header = fxhost::readDrawingHeader(path);
        hasPicture = !fxhost::readPreview(path).isNull();
    }
    QVERIFY(!hasPicture);
    QCOMPARE(header.error, DrawingError::Unreadable);
    QVERIFY(header.reason.contains(qt_error_string(EACCES)));
}

void tst_DrawingHeader::reasonsDifferAndEndAsSentences()
{
    const SpecialFiles files;
    QSet<QString> reasons = {read("no drawing").reason};
    for (const SpecialFile kind : {SpecialFile::Nothing, SpecialFile::Directory, SpecialFile::LinkToItself})
        reasons.insert(fxhost::readDrawingHeader(files.path(kind)).reason);
    QCOMPARE(reasons.size(), 4);
    for (const QString &reason : qAsConst(reasons))
        QVERIFY2(reason.endsWith(QLatin1Char('.')) && !reason.contains(QLatin1String("%1")),
                 qPrintable(reason));
}

void tst_DrawingHeader::aFormatIsNamedByItsYearWhereItHasOne_data()
{
    QTest::addColumn<QByteArray>("version");
    QTest::addColumn<QString>("name");
    for (const auto &[version, name] :
         std::initializer_list<std::pair<const char *, const char *>>{{"AC1015", "AC1015 (2000 format)"},
                                                                      {"AC1018", "AC1018 (2004 format)"},
                                                                      {"AC1021", "AC1021 (2007 format)"},
                                                                      {"AC1024", "AC1024 (2010 format)"},
                                                                      {"AC1027", "AC1027 (2013 format)"},
                                                                      {"AC1032", "AC1032 (2018 format)"},
                                                                      {"AC1009", "AC1009"},
                                                                      {"AC1014", "AC1014"},
                                                                      {"AC1.2", "AC1.2"},
                                                                      {"", ""}})
        QTest::newRow(version) << QByteArray(version) << QString::fromLatin1(name);
}

void tst_DrawingHeader::aFormatIsNamedByItsYearWhereItHasOne()
{
    QFETCH(QByteArray, version);
    QFETCH(QString, name);
    QCOMPARE(fxhost::drawingFormatName(version), name);
}

QTEST_GUILESS_MAIN(tst_DrawingHeader)
#include "tst_drawingheader.moc"

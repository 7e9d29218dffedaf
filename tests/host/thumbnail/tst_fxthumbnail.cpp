// SPDX-License-Identifier: MIT
#include "host/runtime/Paths.h"
#include "host/runtime/preview/PreviewReader.h"
#include "tests/support/TestCase.h"
#include "tests/support/bytes/BytesOfPng.h"
#include "tests/support/bytes/BytesOfPreview.h"
#include "tests/support/bytes/BytesOfSpecialFiles.h"
#include "tests/support/process/ThumbnailRun.h"

#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace testbytes;

namespace {

QByteArray drawingWithPng(const QByteArray &png)
{
    return drawingWith(pngEntry(png)).bytes();
}

//! The longest name of a file: its temporary file, whose name is longer, cannot be created.
const QString nameAtLimit(255, 'o');

} // namespace

//! The program as file managers run it. Its input files that contain no picture are in tst_PreviewRefusals.
class tst_FxThumbnail : public TestCase
{
    Q_OBJECT

private slots:
    void initTestCase() { fxhost::keepBytesOfPaths(); }
    void init()
    {
        TestCase::init();
        m_dir = std::make_unique<QTemporaryDir>();
        m_output = path("out.png");
    }

    void thePictureIsWritten_data()
    {
        QTest::addColumn<QByteArray>("drawing");
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<QSize>("size");
        const auto add = [](const char *name, const QByteArray &drawing, const QStringList &options,
                            const QSize &size) { QTest::newRow(name) << drawing << options << size; };
        const auto bitmap = [](int width, int height) {
            return drawingWith(bitmapEntry(patternBitmap(24, width, height).bytes())).bytes();
        };
        add("small", bitmap(200, 120), {}, {200, 120});
        add("as large as the size", bitmap(256, 256), {}, {256, 256});
        add("wide", bitmap(512, 300), {}, {256, 150});
        add("high", bitmap(300, 512), {"-s", "128"}, {75, 128});
        add("very wide", bitmap(2000, 2), {"--size=64"}, {64, 1});
        add("of 16 bits a channel", drawingWithPng(blankPng({600, 300, 16, 6})), {"-s512"}, {512, 256});
    }

    void thePictureIsWritten()
    {
        QFETCH(QByteArray, drawing);
        QFETCH(QStringList, options);
        QFETCH(QSize, size);
        const QString input = writeFile(path("a.dwg"), drawing);
        const ThumbnailRun run(options + QStringList{input, m_output});
        QCOMPARE(run.errors, QByteArray());
        QCOMPARE(run.output, QByteArray());
        QCOMPARE(run.status, 0);
        const QImage written(m_output, "PNG");
        QCOMPARE(written.size(), size);
        const QImage stored = fxhost::readPreview(input);
        if (stored.size() == size)
            QCOMPARE(written, stored.convertToFormat(written.format()));
    }

    void theInputCanBeAUrl()
    {
        const QString input = writeFile(path(fxhost::pathFromBytes("gr\xfcn #1.dwg")), drawingWith().bytes());
        QCOMPARE(ThumbnailRun({"file://" + path("gr%FCn%20%231.dwg"), m_output}).status, 0);
        QCOMPARE(QImage(m_output), fxhost::readPreview(input));
    }

    void wrongUseIsReported_data()
    {
        QTest::addColumn<QStringList>("arguments");
        const auto add = [](const QStringList &arguments) {
            QTest::newRow(qPrintable(arguments.join(' '))) << arguments;
        };
        add({});
        add({"a.dwg"});
        add({"a.dwg", "out.png", "b.png"});
        add({"a.dwg", ""});
        add({"--width", "5", "a.dwg", "out.png"});
        for (const char *size : {"", "0", "-1", "5px", "99999999999"})
            add({"-s", size, "a.dwg", "out.png"});
        add({"a.dwg", "a.dwg"});
        add({"a.dwg", "same.dwg"});
    }

    void wrongUseIsReported()
    {
        QFETCH(QStringList, arguments);
        const QByteArray drawing = drawingWith().bytes();
        writeFile(path("a.dwg"), drawing);
        QCOMPARE(::link(qPrintable(path("a.dwg")), qPrintable(path("same.dwg"))), 0);
        arguments.replaceInStrings(QRegularExpression("(.+\\.(dwg|png))"), path("\\1"));
        QVERIFY(ThumbnailRun(arguments).isRefusal(2));
        QCOMPARE(bytesOf("a.dwg"), drawing);
        QVERIFY(!QFile::exists(m_output));
    }

    void filesOfOtherKindsAreRefused_data() { addSpecialFileRows(); }
    void filesOfOtherKindsAreRefused()
    {
        QFETCH(SpecialFile, kind);
        if (kind == SpecialFile::EmptyPath || kind == SpecialFile::PathWithNull)
            return; // not an argument of a program
        const BytesOfSpecialFiles files;
        QVERIFY(ThumbnailRun({files.path(kind), m_output}).isRefusal(1));
        QVERIFY(!QFile::exists(m_output));
        const QString input = writeFile(path("a.dwg"), drawingWith().bytes());
        if (QFile::exists(files.path(kind)) || kind == SpecialFile::BelowAFile)
            QVERIFY(ThumbnailRun({input, files.path(kind)}).isRefusal(1));
    }

    void aFullDiskLeavesWhatWasThere()
    {
        const QString input = writeFile(path("a.dwg"), drawingWith(bitmapEntry(noise())).bytes());
        // One block of 512 bytes. Qt leaks a picture that it cannot write.
        const QString full = "trap '' XFSZ; ulimit -f 1; export ASAN_OPTIONS=detect_leaks=0";
        QVERIFY(ThumbnailRun({input, m_output}, full).isRefusal(1));
        QCOMPARE(QDir(m_dir->path()).entryList(QDir::Files), QStringList("a.dwg"));
        writeFile(m_output, "former");
        QVERIFY(ThumbnailRun({input, m_output}, full).isRefusal(1));
        QCOMPARE(bytesOf("out.png"), QByteArray("former"));
        writeFile(m_output, {});
        QVERIFY(ThumbnailRun({input, m_output}, full).isRefusal(1));
        QCOMPARE(bytesOf("out.png"), QByteArray());
    }

    void aCallerReadsThePictureFromTheFileThatItHasCreated()
    {
        const QString input = writeFile(path("a.dwg"), drawingWith().bytes());
        QFile created(m_output);
        QVERIFY(created.open(QIODevice::ReadWrite));
        QCOMPARE(ThumbnailRun({input, m_output}).status, 0);
        QCOMPARE(QImage::fromData(created.readAll(), "PNG"), fxhost::readPreview(input));
    }

    void aFileIsWrittenInPlaceWhereItCannotBeReplaced()
    {
        const QString input = writeFile(path("a.dwg"), drawingWith().bytes());
        writeFile(path(nameAtLimit), QByteArray(9999, 'x'));
        QCOMPARE(ThumbnailRun({input, path(nameAtLimit)}).status, 0);
        QCOMPARE(QImage(path(nameAtLimit), "PNG"), fxhost::readPreview(input));
    }

    void theLargestPictureNeedsLittleMemory()
    {
#ifdef __SANITIZE_ADDRESS__
        QSKIP("The sanitizer needs more itself.");
#endif
        for (const int depth : {8, 16}) {
            const quint32 side = depth == 8 ? 2560 : 1810;
            const QByteArray drawing = drawingWithPng(blankPng({side, side, depth, 6}));
            const QByteArray input = writeFile(path("a.dwg"), drawing).toUtf8();
            const QByteArray output = m_output.toUtf8();
            const char *arguments[] = {FXTHUMBNAIL_PROGRAM, "-s1024", input.constData(), output.constData(),
                                       nullptr};
            pid_t program = 0;
            int status = -1;
            rusage used = {};
            QCOMPARE(::posix_spawn(&program, FXTHUMBNAIL_PROGRAM, nullptr, nullptr,
                                   const_cast<char **>(arguments), environ),
                     0);
            QCOMPARE(::wait4(program, &status, 0, &used), program);
            QCOMPARE(status, 0);
            QVERIFY2(used.ru_maxrss < 64L * 1024, qPrintable(QString::number(used.ru_maxrss))); // KiB
        }
    }

private:
    QString path(const QString &name) const
    {
        return m_dir->filePath(name);
    }
    QByteArray bytesOf(const QString &name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    //! A bitmap whose PNG is not smaller.
    static QByteArray noise()
    {
        BitmapBytes bitmap = patternBitmap(24, 100, 100);
        quint32 state = 1;
        for (char &byte : bitmap.pixels)
            byte = static_cast<char>((state = state * 1103515245 + 12345) >> 16);
        return bitmap.bytes();
    }

    std::unique_ptr<QTemporaryDir> m_dir;
    QString m_output;
};

CORE_TEST_CLASS(tst_FxThumbnail);
#include "tst_fxthumbnail.moc"

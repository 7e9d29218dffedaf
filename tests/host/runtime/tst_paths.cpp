// SPDX-License-Identifier: MIT
#include "host/runtime/Paths.h"
#include "tests/support/TestCase.h"

#include <CFxString.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTextCodec>
#include <QTextStream>

using fxhost::pathBytes;
using fxhost::pathFromBytes;

//! File names of any bytes, converted to text and back.
class tst_Paths : public TestCase
{
    Q_OBJECT

private slots:
    void initTestCase() { fxhost::keepBytesOfPaths(); }
    void everyNameIsRestored()
    {
        QVector<QByteArray> names = {QByteArray(),
                                     "/gr\xfcn.dwg",              // Latin 1
                                     "/a\xc3",                    // a lead byte at the end
                                     "/\xe6\x9dplan",             // and before ASCII
                                     "/\x80\xbf",                 // a trail byte alone
                                     "/\xc0\xaf",                 // an overlong slash
                                     "/\xed\xa0\x80\xed\xb2\x80", // a surrogate
                                     "/\xed\xb3\xbf", // the code point of an invalid byte, as UTF-8
                                     "/\xf4\x90\x80\x80\xf8\xff", // beyond Unicode
                                     "/\xf0\x9f\x93\x90\x90",     // a wrong byte after four bytes
                                     QByteArray("/a\0\xff\0", 5), // null bytes
                                     "\xef\xbb\xbf/a",            // a byte order mark
                                     "/\xef\xbf\xbd \xff",        // a replacement character
                                     "/\xef\xbf\xbf\xef\xb7\x90", // no character
                                     "/\xd7\x90\xd7\x91\xe2\x80\xaegwd\xe2\x80\xac", // right to left
                                     QByteArray(4095, '\xfe')};
        QRandomGenerator random(20261121);
        for (int round = 0; round < 20000; ++round) {
            // Mostly lead bytes, trail bytes and bytes of surrogates.
            const QByteArray usual("a\x80\xbf\xc3\xa4\xe6\x9d\xb1\xed\xb2\xf0\x9f\x93\x90\xff\xef");
            QByteArray name;
            for (int i = random.bounded(12); i > 0; --i)
                name += random.bounded(4) ? usual.at(random.bounded(usual.size()))
                                          : char(1 + random.bounded(255));
            names.append(name);
        }
        for (const QByteArray &bytes : qAsConst(names)) {
            const QString path = pathFromBytes(bytes);
            QCOMPARE(pathBytes(path), bytes);
            QCOMPARE(pathFromBytes("/folder/" + bytes), "/folder/" + path); // alone or with a folder
            QCOMPARE(QString(CFxString(path)), path); // also through the modules' string
            QCOMPARE(pathBytes(CFxString(path)), bytes);
        }
    }

    void utf8NamesAreDecoded()
    {
        const QString text = "/pl\u00e4ne/\u6771\u4eac \U0001F4D0\n.dwg";
        QCOMPARE(pathFromBytes(text.toUtf8()), text);
        QCOMPARE(pathBytes(text), text.toUtf8());
        QCOMPARE(pathFromBytes("/\xe4\xc3\xa4"), QString(QString("/") + QChar(0xdce4) + QChar(0xe4)));
    }

    void differentNamesGiveDifferentTexts()
    {
        QVERIFY(pathFromBytes("/a\xff") != pathFromBytes("/a\xfe"));
        QVERIFY(pathFromBytes("/a\xff") != pathFromBytes("/a\xef\xbf\xbd"));
        QVERIFY(pathFromBytes("/\xed\xb3\xbf") != pathFromBytes("/\xff"));
    }

    void qtFindsFilesByTheirBytes()
    {
        const QTemporaryDir folder;
        const QByteArray bytes = QFile::encodeName(folder.path()) + "/gr\xfcn \xc3\xa4.dwg";
        const QString path = pathFromBytes(bytes);
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.close();
        QVERIFY(QFileInfo(path).isFile());
        QCOMPARE(QFile::encodeName(path), bytes);
        const QStringList names = QDir(folder.path()).entryList(QDir::Files);
        QCOMPARE(names.size(), 1);
        QCOMPARE(folder.filePath(names.constFirst()), path);
    }

    void otherProgramsReceiveTheBytes()
    {
        QProcess printf;
        printf.start("printf", {"%s", pathFromBytes("/gr\xfcn \xc3\xa4")});
        QVERIFY(printf.waitForFinished());
        QCOMPARE(printf.readAllStandardOutput(), QByteArray("/gr\xfcn \xc3\xa4"));
    }

    void streamsOfTextStayUtf8()
    {
        QByteArray bytes;
        {
            QTextStream stream(&bytes);
            stream << QString("\u00e4") << QChar(0xd83d) << QChar(0xdcd0);
        }
        QCOMPARE(bytes, QByteArray("\xc3\xa4\xf0\x9f\x93\x90"));
        QTextStream stream(bytes);
        QCOMPARE(stream.readAll(), QString("\u00e4\U0001F4D0"));
    }

    void textInPiecesStaysUtf8()
    {
        const QScopedPointer<QTextDecoder> decoder(QTextCodec::codecForLocale()->makeDecoder());
        QString text;
        for (const char *piece : {"x", "\xc3\xa4", "y\xc3", "\xa4z\xf0\x9f", "\x93", "\x90"})
            text += decoder->toUnicode(piece);
        QCOMPARE(text, QString("x\u00e4y\u00e4z\U0001F4D0"));
    }

    void onlyASlashMakesAPathAbsolute()
    {
        const QString folder = QDir::currentPath() + '/';
        QCOMPARE(fxhost::absolutePath("/a//b.dwg"), QString("/a//b.dwg"));
        QCOMPARE(fxhost::absolutePath(QString()), QString());
        for (const char *name : {"a.dwg", ":a.dwg", ":/a.dwg", "-a.dwg", "..dwg"})
            QCOMPARE(fxhost::absolutePath(QLatin1String(name)), folder + QLatin1String(name));
    }
};

CORE_TEST_CLASS(tst_Paths);
#include "tst_paths.moc"

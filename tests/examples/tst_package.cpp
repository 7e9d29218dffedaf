// SPDX-License-Identifier: MIT
#include "tests/support/HelpLinks.h"
#include "tests/support/TestCase.h"

#include <QTemporaryDir>

namespace {

const QString installation = EXAMPLES_DIR "/prefix";
const QString moduleFile = installation + "/" MODULE_IN_PREFIX;

//! What a program printed, or an empty text if it failed.
QString outputOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    const bool isDone = process.waitForFinished(patience) && process.exitStatus() == QProcess::NormalExit &&
                        process.exitCode() == 0;
    return isDone ? QString::fromUtf8(process.readAllStandardOutput()) : QString();
}

//! The lines of the block of this kind in the installed page for hosts.
QStringList documented(const QString &kind)
{
    QFile page(installation + "/" DOCS_IN_PREFIX "/HOSTING.md");
    if (!page.open(QIODevice::ReadOnly))
        return {};
    const QString text = QString::fromUtf8(page.readAll());
    return text.section("```" + kind + "\n", 1).section("\n```", 0, 0).split('\n');
}

QStringList sorted(QStringList list)
{
    list.sort();
    list.removeDuplicates(); // constructors and destructors have several symbols
    return list;
}

//! Starts a program that does not end by itself. \return the first line that it prints
QString firstLineOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    while (!process.canReadLine() && process.waitForReadyRead(patience)) {}
    const QString line = QString::fromUtf8(process.readLine()).trimmed();
    process.kill();
    process.waitForFinished(patience);
    return line;
}

} // namespace

//! The installed package, and the examples that are built with it.
class tst_Package : public TestCase
{
    Q_OBJECT

private slots:
    void moduleExportsTheDocumentedNames()
    {
        const QString output = outputOf("nm", {"--dynamic", "--defined-only", "--demangle", moduleFile});
        static const QRegularExpression line("^[0-9a-f]+ (\\S) (.+)$", QRegularExpression::MultilineOption);
        QStringList names;
        QStringList unique; // one per process, which keeps the loader from unloading its library
        auto matches = line.globalMatch(output);
        while (matches.hasNext()) {
            const QRegularExpressionMatch match = matches.next();
            names.append(match.captured(2));
            if (match.captured(1) == "u")
                unique.append(match.captured(2));
        }
        QCOMPARE(sorted(names), sorted(documented("exports")));
        QCOMPARE(unique, QStringList());
    }

    void moduleNeedsTheDocumentedNames()
    {
        const QString output = outputOf("nm", {"--dynamic", "--undefined-only", "--demangle", moduleFile});
        QStringList functions;
        QStringList classes;
        static const QRegularExpression line("^ +U ([^@\n]+)$", QRegularExpression::MultilineOption);
        static const QRegularExpression ofClass("^(?:typeinfo|vtable) for ");
        auto matches = line.globalMatch(output);
        while (matches.hasNext()) {
            const QString name = matches.next().captured(1);
            if (name.contains(ofClass))
                classes.append(QString(name).remove(ofClass));
            else
                functions.append(name);
        }
        QCOMPARE(sorted(functions), sorted(documented("imports")));
        const QStringList documentedClasses = documented("classes");
        for (const QString &name : qAsConst(classes)) // an optimised build needs fewer
            QVERIFY2(documentedClasses.contains(name), qPrintable(name));
    }

    void moduleNeedsQtAndTheCompilersLibraries()
    {
        const QString output = outputOf("readelf", {"--dynamic", "--wide", moduleFile});
        QVERIFY(output.contains("NEEDED"));
        static const QRegularExpression line("\\((NEEDED|RPATH|RUNPATH)\\)[^\\[]*\\[([^\\]]*)\\]");
        QStringList others;
        auto matches = line.globalMatch(output);
        while (matches.hasNext())
            others.append(matches.next().captured(2));
        static const QRegularExpression known(
            "^lib(Qt5(Core|Gui|Widgets|Concurrent)|stdc\\+\\+|gcc_s|m|c)\\.so\\.\\d+$");
        others.erase(std::remove_if(others.begin(), others.end(),
                                    [](const QString &name) { return name.contains(known); }),
                     others.end());
        QCOMPARE(others, QStringList());
        QVERIFY(output.contains("BIND_NOW")); // a host that lacks a function is refused when it loads
        QVERIFY(!outputOf("readelf", {"--sections", moduleFile}).contains(".debug_info"));
    }

    void helpIsInstalledWithItsPictures()
    {
        QCOMPARE(brokenHelpLinks(installation + "/" HELP_IN_PREFIX), QStringList());
    }

    void hostLoadsTheModule_data()
    {
        QTest::addColumn<QString>("host");
        QTest::addColumn<bool>("hasRuntimeBeside");
        QTest::addColumn<QRegularExpression>("said");
        const QRegularExpression loaded("^loaded, 2 commands$");
        const QRegularExpression refused("undefined symbol: \\w*(CFx|Od|Fx|od)\\w+$");
        for (const bool isBeside : {false, true}) {
            const auto row = [&](const char *name, const char *folder, const QRegularExpression &line) {
                QTest::addRow("%s%s", name, isBeside ? ", another runtime beside the module" : "")
                    << QString(EXAMPLES_DIR "/%1/minimal-host").arg(folder) << isBeside << line;
            };
            row("in the program", "program/minimal-host", loaded);
            row("in the program, by clang++ and pkg-config", "pkgconfig", loaded);
            row("in a library, by clang++", "library/minimal-host", loaded);
            row("not exported", "hidden", refused);
        }
    }

    void hostLoadsTheModule()
    {
        QFETCH(QString, host);
        QFETCH(bool, hasRuntimeBeside);
        QFETCH(QRegularExpression, said);
        const QTemporaryDir folder;
        QString module = moduleFile;
        if (hasRuntimeBeside) {
            const QString runtime = folder.filePath("libfxhost.so");
            QVERIFY(QFile::copy(installation + "/" RUNTIME_IN_PREFIX "/libfxhost.so", runtime));
            module = folder.filePath("RecentDocumentBrowser.so");
            QVERIFY(QFile::copy(moduleFile, module));
        }
        const QString line = firstLineOf(host, {module});
        QVERIFY2(line.contains(said), qPrintable(line));
    }

    void installedHostLoadsBothModules()
    {
        const QTemporaryDir folder;
        const QString script = folder.filePath("script");
        const QString log = folder.filePath("log");
        QFile file(script);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("_MODULELOAD " EXAMPLES_DIR "/program/minimal-module/minimal-module.so\n_NEW\n_DRAWINGS\n"
                   "_MODULEUNLOAD minimal-module\n_QUIT\n");
        file.close();
        QCOMPARE(
            outputOf(installation + "/bin/fxhost",
                     {"--profile", folder.filePath("profile"), "--script", script, "--log", log}),
            "2 drawings were opened or created\n"); // the current one when it was loaded, and the new one
        QFile written(log);
        QVERIFY(written.open(QIODevice::ReadOnly));
        QVERIFY(written.readAll().startsWith("module " + moduleFile.toUtf8() + " loaded\n"));
        // The browser's package may not be installed.
        QFile other(log + "2");
        QVERIFY(QFile::rename(moduleFile, moduleFile + ".away"));
        outputOf(installation + "/bin/fxhost",
                 {"--profile", folder.filePath("profile"), "--script", script, "--log", other.fileName()});
        QVERIFY(QFile::rename(moduleFile + ".away", moduleFile));
        QVERIFY(other.open(QIODevice::ReadOnly));
        QVERIFY(other.readLine().startsWith("module " EXAMPLES_DIR));
        for (const char *helper : {"/bin/fxshow", "/" RUNTIME_IN_PREFIX "/fxprobe"})
            QVERIFY2(QFileInfo(installation + helper).isExecutable(), helper);
    }

    void headersRefuseBinariesThatDoNotFit_data()
    {
        QTest::addColumn<QString>("option");
        QTest::addColumn<bool>("fits");
        QTest::newRow("as usual") << "-O1" << true;
        QTest::newRow("no type information") << "-fno-rtti" << false;
        QTest::newRow("former strings of libstdc++") << "-D_GLIBCXX_USE_CXX11_ABI=0" << false;
        QTest::newRow("a namespace of Qt") << "-DQT_NAMESPACE=other" << false;
    }

    void headersRefuseBinariesThatDoNotFit()
    {
        QFETCH(QString, option);
        QFETCH(bool, fits);
        QProcess compiler;
        const QStringList flags =
            outputOf("pkg-config", {"--cflags", installation + "/" PKGCONFIG_IN_PREFIX "/fxsdk.pc"})
                .simplified()
                .split(' ');
        compiler.start("c++", QStringList{"-std=c++17", "-fsyntax-only", option, "-include", "OdString.h",
                                          "-x", "c++", "/dev/null"} +
                                  flags);
        QVERIFY(compiler.waitForFinished(patience));
        const QByteArray said = compiler.readAllStandardError();
        QCOMPARE(compiler.exitCode() == 0, fits);
        QVERIFY2(fits || said.contains("FxSdkApi.h"), said.constData()); // not another header's complaint
    }
};

CORE_TEST_CLASS(tst_Package);
#include "tst_package.moc"

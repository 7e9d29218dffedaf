// SPDX-License-Identifier: MIT
#include "tests/support/TestCase.h"

#include <QProcess>
#include <QRegularExpression>

namespace {

//! What the module shows outside itself. A host that links against a name finds it here or not at all.
const char *const exportedNames[] = {
    // For the loader.
    "odrxGetAPIVersion",
    "odrxCreateModuleObject",
    "deleteModuleObject",
    // For whoever holds the module object.
    "RecentDocumentBrowser::RecentDocumentBrowser()",
    "RecentDocumentBrowser::~RecentDocumentBrowser()",
    "RecentDocumentBrowser::initApp()",
    "RecentDocumentBrowser::uninitApp()",
    "RecentDocumentBrowser::DocumentCreated(CFxDocument*)",
    "RecentDocumentBrowser::mainFrameCreated(QWidget*)",
    "RecentDocumentBrowser::mainFrameDestroyed(QWidget*)",
    // The host's menus and keys.
    "RecentDocumentBrowser::LoadMenu()",
    "RecentDocumentBrowser::GetMenuItem(CFxString const&)",
    "RecentDocumentBrowser::UnLoadMenu(CFxUIMenuItem*)",
    "RecentDocumentBrowser::SetShortCutKey()",
    // The registry.
    "RecentDocumentBrowser::AddRecentFiles(QMenu*, QAction*)",
    "RecentDocumentBrowser::UpdatePin(QString&)",
    "RecentDocumentBrowser::CreateRecentDocList(QWidget*)",
    "RecentDocumentBrowser::getHighlightedRecentDoc()",
    "RecentDocumentBrowser::getHighlightedRecentDocList()",
    "RecentDocumentBrowser::getHighlightedRecentDocPathList()",
    "RecentDocumentBrowser::AddInToMenuPinButtonList(FolderPinButton*)",
    "RecentDocumentBrowser::AddInToDocPinButtonList(FolderPinButton*)",
    "RecentDocumentBrowser::CreatePinButton(QWidget*, QString&)",
    "RecentDocumentBrowser::CreateFolderButton(QWidget*, QString&)",
    "RecentDocumentBrowser::GetQImage(QString const&)",
    "RecentDocumentBrowser::CreateRecentFileImageMap()",
    "RecentDocumentBrowser::recentDocDialogList",
    "RecentDocumentBrowser::recentFileImageMap",
    "RecentDocumentBrowser::recentDocActionList",
    "RecentDocumentBrowser::menuPinButtonList",
    "RecentDocumentBrowser::docPinButtonList",
    "RecentDocumentBrowser::recentDocMenu",
    "RecentDocumentBrowser::before",
};

struct Symbol
{
    char type;
    QString name;
};

//! What nm says of the symbols that the module defines for others.
QVector<Symbol> dynamicSymbols()
{
    QProcess nm;
    nm.start(QStringLiteral(NM_PROGRAM), {QStringLiteral("--dynamic"), QStringLiteral("--defined-only"),
                                          QStringLiteral("--demangle"), QStringLiteral(MODULE_FILE)});
    if (!nm.waitForFinished() || nm.exitStatus() != QProcess::NormalExit || nm.exitCode() != 0)
        return {};
    static const QRegularExpression line(QStringLiteral("^[0-9a-f]+ (\\S) (.+)$"),
                                         QRegularExpression::MultilineOption);
    QVector<Symbol> symbols;
    auto matches = line.globalMatch(QString::fromUtf8(nm.readAllStandardOutput()));
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        symbols.append({match.captured(1).at(0).toLatin1(), match.captured(2)});
    }
    return symbols;
}

} // namespace

//! The built module's symbol table against the list of what it may show.
class tst_Exports : public TestCase
{
    Q_OBJECT

private slots:
    void initTestCase();
    void everyNameOfTheListIsExported_data();
    void everyNameOfTheListIsExported();
    void nothingElseIsExported();
    void noSymbolKeepsTheModuleFromUnloading();

private:
    QVector<Symbol> m_symbols;
};

void tst_Exports::initTestCase()
{
    m_symbols = dynamicSymbols();
    QVERIFY2(!m_symbols.isEmpty(), NM_PROGRAM " shows no symbols of " MODULE_FILE);
}

void tst_Exports::everyNameOfTheListIsExported_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : exportedNames)
        QTest::newRow(name) << QString::fromLatin1(name);
}

void tst_Exports::everyNameOfTheListIsExported()
{
    QFETCH(QString, name);
    QVERIFY(std::any_of(m_symbols.cbegin(), m_symbols.cend(),
                        [&](const Symbol &symbol) { return symbol.name == name; }));
}

void tst_Exports::nothingElseIsExported()
{
    QStringList strangers;
    for (const Symbol &symbol : qAsConst(m_symbols)) {
        const bool isListed =
            std::any_of(std::begin(exportedNames), std::end(exportedNames),
                        [&](const char *name) { return symbol.name == QLatin1String(name); });
        if (!isListed)
            strangers.append(symbol.name);
    }
    QVERIFY2(strangers.isEmpty(), qPrintable(strangers.join(QLatin1Char('\n'))));
}

void tst_Exports::noSymbolKeepsTheModuleFromUnloading()
{
    QStringList unique; // once in the whole process, which is why the loader never lets go of its library
    for (const Symbol &symbol : qAsConst(m_symbols)) {
        if (symbol.type == 'u')
            unique.append(symbol.name);
    }
    QVERIFY2(unique.isEmpty(), qPrintable(unique.join(QLatin1Char('\n'))));
}

QTEST_GUILESS_MAIN(tst_Exports)
#include "tst_exports.moc"

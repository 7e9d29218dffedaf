// SPDX-License-Identifier: MIT
#include "tests/support/TestCase.h"

namespace {

//! All that a host can link against.
const QStringList exportedNames = {
    // For the loader.
    "odrxGetAPIVersion",
    "odrxCreateModuleObject",
    "deleteModuleObject",
    // The module object.
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

} // namespace

class tst_Exports : public TestCase
{
    Q_OBJECT

private slots:
    void theListedNamesAreExportedAndNothingElse()
    {
        QProcess nm;
        nm.start(NM_PROGRAM, {"--dynamic", "--defined-only", "--demangle", MODULE_FILE});
        QVERIFY2(nm.waitForFinished() && nm.exitStatus() == QProcess::NormalExit && nm.exitCode() == 0,
                 NM_PROGRAM " lists no symbols of " MODULE_FILE);
        static const QRegularExpression line("^[0-9a-f]+ (\\S) (.+)$", QRegularExpression::MultilineOption);
        QStringList names;
        QStringList unique; // one per process, which keeps the loader from unloading its library
        auto matches = line.globalMatch(QString::fromUtf8(nm.readAllStandardOutput()));
        while (matches.hasNext()) {
            const QRegularExpressionMatch match = matches.next();
            names.append(match.captured(2));
            if (match.captured(1) == "u")
                unique.append(match.captured(2));
        }
        QStringList expected = exportedNames;
        expected.sort();
        names.sort();
        names.removeDuplicates(); // constructors and destructors have several symbols
        QCOMPARE(names, expected);
        QCOMPARE(unique, QStringList());
    }
};

CORE_TEST_CLASS(tst_Exports);
#include "tst_exports.moc"

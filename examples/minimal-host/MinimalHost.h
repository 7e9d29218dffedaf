// SPDX-License-Identifier: MIT
#pragma once

#include <CFxDocument.h>
#include <CFxDocumentManager.h>
#include <CFxRecentFileList.h>
#include <CFxServices.h>
#include <sdkhost/Customization.h>
#include <sdkhost/Host.h>
#include <sdkhost/Module.h>

#include <QImage>
#include <QMainWindow>
#include <QMenu>

//! A window with a File menu, and all that a module can use of its host.
class FXSDK_API MinimalHost : public QMainWindow,
                              public sdkhost::Host,
                              private CFxSystemServices,
                              private CFxApplication,
                              private CFxUserProfile,
                              private CFxRecentFileList,
                              private CFxMainFrame,
                              private CFxDocumentManager
{
public:
    explicit MinimalHost(const QString &moduleFile);
    ~MinimalHost() override;

    void loadModule();
    void unloadModule();
    //! Puts a drawing at the top of the recent ones.
    void addRecent(const CFxString &path);
    //! \param path empty for a new drawing
    void addDrawing(const CFxString &path);

private:
    CFxSystemServices &services() override { return *this; }
    CFxDocument *currentDocument() const override;
    const OdEdCommand *runningCommand() const override { return m_running; }
    void requestHelp(int topic) override;
    void showMessage(const QString &text) override;
    QImage readPreview(const CFxString &path) const override;

    CFxApplication *GetApplication() override { return this; }
    CFxMainFrame *GetMainFrame() override { return this; }
    CFxDocumentManager *GetDocumentManager() override { return this; }
    CFxUICustomization *GetCustomization() override { return &m_customization; }
    OdRxObject *RunCommand(const CFxString &name, const CFxString *argument) override;

    CFxUserProfile *GetUserProfile() override { return this; }
    CFxRecentFileList *GetRecentFileList() override { return this; }
    void GetPaths(std::vector<CFxString> &paths) const override { paths = m_recent; }
    QWidget *GetMainWindow() override { return this; }

    void AddReactor(CFxDocumentManagerReactor *reactor) override { documentReactors().add(reactor); }
    void RemoveReactor(CFxDocumentManagerReactor *reactor) override { documentReactors().remove(reactor); }
    bool OpenDocument(const CFxString &path, int mode, int flags, OdString &result) override;

    void setUpCustomization();
    void showMenu();
    void showRecentMenu();
    void runMacro(QString macro);

    const QString m_moduleFile;
    std::unique_ptr<sdkhost::Module> m_module; //!< null while it is not loaded
    sdkhost::Customization m_customization;
    std::vector<CFxString> m_recent; //!< most recent first
    std::vector<std::unique_ptr<CFxDocument>> m_documents;
    const OdEdCommand *m_running = nullptr;
    QMenu *m_fileMenu;
    QMenu *m_recentMenu;
};

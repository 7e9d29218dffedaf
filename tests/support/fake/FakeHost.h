// SPDX-License-Identifier: MIT
#pragma once

#include <CFxDocumentManager.h>
#include <CFxPreviewBitmap.h>
#include <CFxRecentFileList.h>
#include <CFxServices.h>
#include <OdEdCommandStack.h>
#include <OdEditor.h>

#include <QImage>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <memory>
#include <set>
#include <vector>

class FakeCustomization;

//! What odrxAlloc() does in a program with fake hosts.
struct FakeMemory
{
    static inline bool isOut = false;
    static inline std::set<void *> inUse;
};

//! A host that only records calls and that can lack any service, for what the real host cannot be made to do.
//! While one exists, GetFxSystemServices(), odedRegCmds(), odedEditor() and CFxPreviewBitmap::Create() of the
//! test program use it. Each call is a line in calls, in order.
class FakeHost
{
public:
    struct OpenCall
    {
        QString path;
        int mode;
        int flags;
        bool resultWasEmpty;
    };

    FakeHost();
    ~FakeHost();

    //! The recent documents, most recent first.
    void setRecent(const QStringList &paths) { m_recent.assign(paths.begin(), paths.end()); }

    // What the host lacks.
    bool hasServices = true;
    bool hasApplication = true;
    bool hasUserProfile = true;
    bool hasRecentFileList = true;
    bool hasMainFrame = true;
    bool hasMainWindow = true;
    bool hasDocumentManager = true;
    bool hasCustomization = false; //!< only where a test is about menus and keys
    bool opensDocuments = true;
    bool hasCommandStack = true;
    bool hasEditor = true;
    bool previewFactoryGivesObjects = true;

    // Called within the host's operations; may be empty. They may throw.
    std::function<void(const QString &path)> onOpen;
    std::function<void(const QString &name)> onRunCommand;
    std::function<void()> onCommandStack; //!< before each addCommand, removeCommand and lookupCommand
    std::function<void()> onEditor;       //!< before each addReactor and removeReactor
    //! Replaces reading a file's picture: fills image and returns whether there was one. Runs on worker
    //! threads. Empty: no file has a picture.
    std::function<bool(const QString &path, QImage &image)> onLoadPreview;
    bool previewsAreValid = true;
    //! Called before each step of reading a file's picture: "create", "load", "validate",
    //! "convert", and "converted" once the image has been filled. Runs on worker threads.
    std::function<void(const QString &step)> onPreviewStep;
    bool runCommandGivesHandle = true;

    // The results.
    QStringList calls;
    std::vector<OpenCall> opened;
    QStringList commandsRun;
    std::vector<OdEdCommand *> commands; //!< on the stack, in order of registration
    std::vector<CFxDocumentManagerReactor *> documentReactors;
    std::vector<OdEditorReactor *> editorReactors;
    int openReferences = 0; //!< to stack, editor, found commands and command runs, taken and not yet released
    int previewsCreated() const;
    int previewsAlive() const;

    //! The main window: a plain widget whose geometry tests set.
    QWidget &mainWindow() { return *m_mainWindow; }

    //! Deletes the main window without notifying the module. From then on there is none.
    void deleteMainWindow();

    //! The host's menus and keys, empty at first; the module sees them while hasCustomization.
    FakeCustomization &customization() { return *m_customization; }

    QStringList openedPaths() const;

private:
    friend CFxSystemServices *GetFxSystemServices();
    friend OdEdCommandStack *odedRegCmds();
    friend OdEditor *odedEditor();
    class Services;
    class Stack;
    class EditorObject;
    class Run;
    void note(const QString &call, const std::function<void()> &hook);

    std::unique_ptr<FakeCustomization> m_customization;
    std::unique_ptr<Services> m_services;
    std::unique_ptr<Stack> m_stack;
    std::unique_ptr<EditorObject> m_editor;
    std::vector<std::unique_ptr<Run>> m_runs;
    std::unique_ptr<QWidget> m_mainWindow;
    std::vector<CFxString> m_recent;
};

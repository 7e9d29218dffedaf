// SPDX-License-Identifier: MIT
#pragma once

#include <OdEditorReactor.h>

#include <QtGlobal>

class CFxDocument;
class CFxString;
class QWidget;

//! Hears of what the application and its main window do. The handlers of this class do nothing. GUI thread.
class FXSDK_API CFxEditorReactor : public OdEditorReactor
{
public:
    ~CFxEditorReactor() override;

    //! The main window is built and its menus can be changed. A module that is loaded later is notified after
    //! its initApp().
    virtual void mainFrameCreated(QWidget *mainFrame);
    //! The main window is about to go away with its menus and children.
    virtual void mainFrameDestroyed(QWidget *mainFrame);
    virtual void appActivated();
    virtual void appDeactivated();
    //! The main window was minimised, maximised or restored.
    virtual void windowStateChanged(QWidget *mainFrame);
    virtual void selectionSetCreated(CFxDocument *document);
    virtual void selectionSetDestroyed(CFxDocument *document);
    virtual void beginSaveEx(CFxDocument *document);
    //! A drawing was asked for and could not be opened.
    virtual void cancelDwgOpen(const CFxString &path);
    virtual void closeAborted(CFxDocument *document);
    //! A modal CFxDialog is about to be shown, or was hidden.
    virtual void beginModalState();
    virtual void endModalState();
};

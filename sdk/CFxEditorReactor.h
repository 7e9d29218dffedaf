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
    virtual void mainFrameCreated(QWidget *mainFrame); // [gui-thread]
    //! The main window is about to go away with its menus and children.
    virtual void mainFrameDestroyed(QWidget *mainFrame); // [gui-thread]
    virtual void appActivated();                         // [gui-thread]
    virtual void appDeactivated();                       // [gui-thread]
    //! The main window was minimised, maximised or restored.
    virtual void windowStateChanged(QWidget *mainFrame);       // [gui-thread]
    virtual void selectionSetCreated(CFxDocument *document);   // [gui-thread]
    virtual void selectionSetDestroyed(CFxDocument *document); // [gui-thread]
    virtual void beginSaveEx(CFxDocument *document);           // [gui-thread]
    //! A drawing was asked for and could not be opened.
    virtual void cancelDwgOpen(const CFxString &path); // [gui-thread]
    virtual void closeAborted(CFxDocument *document);  // [gui-thread]
    //! A modal CFxDialog is about to be shown, or was hidden.
    virtual void beginModalState(); // [gui-thread]
    virtual void endModalState();   // [gui-thread]
};

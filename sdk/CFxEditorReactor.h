// SPDX-License-Identifier: MIT
#pragma once

#include <OdEditorReactor.h>

#include <QtGlobal>

class CFxDocument;
class CFxString;
class QWidget;

//! Is notified of events of the application and its main window, through OdEditor. A host that has no
//! selections and does not save does not notify of them. The default implementations do nothing. GUI thread.
class FXSDK_API CFxEditorReactor : public OdEditorReactor
{
public:
    ~CFxEditorReactor() override;

    //! The main window was created, and its menus can be changed: CFxMainFrame returns the window, and
    //! CFxUICustomization contains the host's menus. A module that is loaded later is notified after its
    //! initApp().
    virtual void mainFrameCreated(QWidget *mainFrame); // [gui-thread]
    //! The main window, which CFxMainFrame still returns, is about to be destroyed with its menus and child
    //! widgets, after its drawings were closed. A module that is ended earlier is notified, too, and removes
    //! its commands and reactors in either case.
    virtual void mainFrameDestroyed(QWidget *mainFrame); // [gui-thread]
    virtual void appActivated();                         // [gui-thread]
    virtual void appDeactivated();                       // [gui-thread]
    //! The main window was minimised, maximised or restored.
    virtual void windowStateChanged(QWidget *mainFrame);       // [gui-thread]
    virtual void selectionSetCreated(CFxDocument *document);   // [gui-thread]
    virtual void selectionSetDestroyed(CFxDocument *document); // [gui-thread]
    virtual void beginSaveEx(CFxDocument *document);           // [gui-thread]
    //! A drawing could not be opened, and the user was shown the reason.
    virtual void cancelDwgOpen(const CFxString &path); // [gui-thread]
    virtual void closeAborted(CFxDocument *document);  // [gui-thread]
    //! A modal CFxDialog is about to be shown, or was hidden. Pairs of several dialogs can be nested.
    virtual void beginModalState(); // [gui-thread]
    virtual void endModalState();   // [gui-thread]
};

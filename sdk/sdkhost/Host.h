// SPDX-License-Identifier: MIT
#pragma once

#include <CFxDocumentManagerReactor.h>
#include <FxSdkApi.h>
#include <sdkhost/CommandStack.h>
#include <sdkhost/Editor.h>
#include <sdkhost/ReactorList.h>

class CFxDocument;
class CFxString;
class CFxSystemServices;
class OdEdCommand;
class QImage;
class QString;

namespace sdkhost {

//! The host as its modules see it: keeps the commands and reactors that they register, and gives
//! GetFxSystemServices(), odedRegCmds(), odedEditor() and the base classes what they need. A program derives
//! one class from it, implements what is specific to the program, and installs the object. GUI thread, except
//! for installed() and readPreview().
class FXSDK_API Host
{
public:
    Host();
    virtual ~Host();

    Host(const Host &) = delete;
    Host &operator=(const Host &) = delete;

    //! The installed host, or null. Any thread.
    static Host *installed();
    //! Replaces the installed host. Call this with null when the host ends, after all modules have ended.
    //! \param host not owned; may be null
    static void install(Host *host);

    //! The registered commands. The host runs them: it finds a command by its name and calls execute() with a
    //! CommandContext.
    CommandStack &commandStack() { return m_commandStack; }
    //! The reactors to events of commands, the application and the main window. The host notifies them:
    //! `editor().reactors().notify(&CFxEditorReactor::mainFrameCreated, window)`.
    Editor &editor() { return m_editor; }
    //! The reactors to events of drawings. The host's CFxDocumentManager adds, removes and notifies them.
    ReactorList<CFxDocumentManagerReactor> &documentReactors() { return m_documentReactors; }

    virtual CFxSystemServices &services() = 0;
    //! The drawing that a late module is notified of; null if none is open.
    virtual CFxDocument *currentDocument() const = 0;
    //! The command that is being executed, or null. Its module is not unloaded meanwhile.
    virtual const OdEdCommand *runningCommand() const = 0;

    //! Shows a help page.
    //! \param topic 0 is the front page
    virtual void requestHelp(int topic) = 0;
    //! Shows a text to the user, in whole sentences: a module failed.
    virtual void showMessage(const QString &text) = 0;
    //! The picture in the drawing at path; a null image if there is none. Any thread, also several at once.
    virtual QImage readPreview(const CFxString &path) const = 0;

private:
    CommandStack m_commandStack;
    Editor m_editor;
    ReactorList<CFxDocumentManagerReactor> m_documentReactors;
};

} // namespace sdkhost

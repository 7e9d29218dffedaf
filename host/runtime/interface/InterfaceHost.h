// SPDX-License-Identifier: MIT
#pragma once

#include <FxSdkApi.h>

class CFxString;
class CFxSystemServices;
class OdEdCommandStack;
class OdEditor;
class QImage;
class QString;

namespace fxhost {

//! What the functions and base classes of the programming interface need from the host. A host implements
//! this class and installs itself. GUI thread, except for installed() and readPreview().
class FXSDK_API InterfaceHost
{
public:
    InterfaceHost() = default;
    virtual ~InterfaceHost();

    InterfaceHost(const InterfaceHost &) = delete;
    InterfaceHost &operator=(const InterfaceHost &) = delete;

    //! The installed host, or null. Any thread.
    static InterfaceHost *installed();
    //! Replaces the installed host. Must be called with null when the host ends, after all modules have
    //! ended.
    //! \param host not owned; may be null
    static void install(InterfaceHost *host);

    // These do not add a reference.
    virtual CFxSystemServices &services() = 0;
    virtual OdEditor &editorObject() = 0;
    virtual OdEdCommandStack &commandStackObject() = 0;

    //! Shows a help page.
    //! \param topic 0 is the front page
    virtual void requestHelp(int topic) = 0;
    //! Notifies the editor's reactors that a modal dialog is about to be shown, or was hidden.
    virtual void setModalState(bool isModal) = 0;
    //! Shows a text to the user, in whole sentences.
    virtual void showMessage(const QString &text) = 0;
    //! The picture in the drawing at path; a null image if there is none. Any thread, also several at once.
    virtual QImage readPreview(const CFxString &path) const = 0;
};

} // namespace fxhost

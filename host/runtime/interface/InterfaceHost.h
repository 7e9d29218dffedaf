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

//! What the functions and base classes of the programming interface need from the host. A host implements it
//! and installs itself. GUI thread, but for readPreview().
class FXSDK_API InterfaceHost
{
public:
    InterfaceHost() = default;
    virtual ~InterfaceHost();

    InterfaceHost(const InterfaceHost &) = delete;
    InterfaceHost &operator=(const InterfaceHost &) = delete;

    //! The installed host, or null. Any thread.
    static InterfaceHost *installed();
    //! \param host installed from now on and not owned; null when it ends, after every module
    static void install(InterfaceHost *host);

    //! Each without a new reference, and never null.
    virtual CFxSystemServices &services() = 0;
    virtual OdEditor &editorObject() = 0;
    virtual OdEdCommandStack &commandStackObject() = 0;

    //! Shows a help page. \param topic 0 is the front page
    virtual void requestHelp(int topic) = 0;
    //! Notifies the editor's reactors that a modal dialog is shown, or that it is not any more.
    virtual void setModalState(bool isModal) = 0;
    //! Shows a text to the user, in whole sentences.
    virtual void showMessage(const QString &text) = 0;
    //! The picture in the drawing at path; a null image when there is none. Any thread, several at once.
    virtual QImage readPreview(const CFxString &path) const = 0;
};

} // namespace fxhost

// SPDX-License-Identifier: MIT
#pragma once

#include <CFxEditorReactor.h>
#include <OdEditor.h>
#include <sdkhost/ReactorList.h>
#include <sdkhost/RxHostOwned.h>

namespace sdkhost {

//! The engine's editor: the list of reactors to events of commands, the application and the main window.
//! `editor.reactors().notify(&CFxEditorReactor::appActivated)` notifies all reactors. GUI thread.
class FXSDK_API Editor : public RxHostOwned<OdEditor>
{
public:
    //! \param report receives the reactors' exceptions
    explicit Editor(MessageSink report);
    ~Editor() override;

    void addReactor(OdEditorReactor *reactor) override;
    void removeReactor(OdEditorReactor *reactor) override;

    const ReactorList<OdEditorReactor> &reactors() const { return m_reactors; }

private:
    ReactorList<OdEditorReactor> m_reactors;
};

} // namespace sdkhost

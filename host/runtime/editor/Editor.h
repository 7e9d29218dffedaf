// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"
#include "host/runtime/RxHostOwned.h"
#include "host/runtime/editor/ReactorList.h"

#include <CFxEditorReactor.h>
#include <OdEditor.h>

namespace fxhost {

//! The engine's editor: the reactors to commands, to the application and to the main window. GUI thread.
//! `editor.reactors().notify(&CFxEditorReactor::appActivated)` notifies all of them.
class FXHOST_API Editor : public RxHostOwned<OdEditor>
{
public:
    //! \param report gets what reactors throw
    explicit Editor(MessageSink report);
    ~Editor() override;

    void addReactor(OdEditorReactor *reactor) override;
    void removeReactor(OdEditorReactor *reactor) override;

    const ReactorList<OdEditorReactor> &reactors() const { return m_reactors; }

private:
    ReactorList<OdEditorReactor> m_reactors;
};

} // namespace fxhost

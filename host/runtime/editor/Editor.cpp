// SPDX-License-Identifier: MIT
#include "host/runtime/editor/Editor.h"

#include "host/runtime/interface/GuiThread.h"

#include <utility>

namespace fxhost {

Editor::Editor(MessageSink report) : m_reactors(std::move(report)) {}

Editor::~Editor() = default;

void Editor::addReactor(OdEditorReactor *reactor)
{
    FXHOST_ASSERT_GUI_THREAD();
    m_reactors.add(reactor);
}

void Editor::removeReactor(OdEditorReactor *reactor)
{
    FXHOST_ASSERT_GUI_THREAD();
    m_reactors.remove(reactor);
}

} // namespace fxhost

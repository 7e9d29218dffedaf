// SPDX-License-Identifier: MIT
#include <sdkhost/Editor.h>

#include <sdkhost/GuiThread.h>

#include <utility>

namespace sdkhost {

Editor::Editor(MessageSink report) : m_reactors(std::move(report)) {}

Editor::~Editor() = default;

void Editor::addReactor(OdEditorReactor *reactor)
{
    SDKHOST_ASSERT_GUI_THREAD();
    m_reactors.add(reactor);
}

void Editor::removeReactor(OdEditorReactor *reactor)
{
    SDKHOST_ASSERT_GUI_THREAD();
    m_reactors.remove(reactor);
}

} // namespace sdkhost

// SPDX-License-Identifier: MIT
#include "host/runtime/editor/Editor.h"

#include <utility>

namespace fxhost {

Editor::Editor(MessageSink report) : m_reactors(std::move(report)) {}

Editor::~Editor() = default;

void Editor::addReactor(OdEditorReactor *reactor)
{
    m_reactors.add(reactor);
}

void Editor::removeReactor(OdEditorReactor *reactor)
{
    m_reactors.remove(reactor);
}

} // namespace fxhost

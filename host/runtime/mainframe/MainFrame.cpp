// SPDX-License-Identifier: MIT
#include "host/runtime/mainframe/MainFrame.h"

#include <CFxEditorReactor.h>
#include <sdkhost/Editor.h>
#include <sdkhost/GuiThread.h>

#include <QEvent>
#include <QWidget>

namespace fxhost {

MainFrame::MainFrame(Editor &editor) : m_editor(editor) {}

void MainFrame::setWindow(QWidget *window)
{
    if (QWidget *former = m_window) {
        former->removeEventFilter(this);
        m_editor.reactors().notify(&CFxEditorReactor::mainFrameDestroyed, former);
    }
    m_window = window;
    if (!window)
        return;
    window->installEventFilter(this);
    m_editor.reactors().notify(&CFxEditorReactor::mainFrameCreated, window);
}

QWidget *MainFrame::GetMainWindow()
{
    SDKHOST_ASSERT_GUI_THREAD();
    return m_window;
}

bool MainFrame::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_window && event->type() == QEvent::WindowStateChange)
        m_editor.reactors().notify(&CFxEditorReactor::windowStateChanged, m_window.data());
    return QObject::eventFilter(watched, event);
}

} // namespace fxhost

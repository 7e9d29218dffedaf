// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"

#include <CFxServices.h>

#include <QObject>
#include <QPointer>

namespace fxhost {

//! The modules' access to the host's main window. GUI thread.
class FXHOST_API MainFrame : public QObject, public CFxMainFrame
{
    Q_OBJECT
public:
    //! \param editor must outlive this
    explicit MainFrame(Editor &editor);

    //! Sets the main window. Notifies the modules that the former window, which must still exist, is about to
    //! be destroyed, and then that the new one was created.
    //! \param window not owned; null after the main window was deleted
    void setWindow(QWidget *window);
    //! The main window, or null.
    QWidget *GetMainWindow() override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    Editor &m_editor;
    QPointer<QWidget> m_window;
};

} // namespace fxhost

// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"

#include <CFxServices.h>

#include <QObject>
#include <QPointer>

namespace fxhost {

class Editor;

//! The host's main window, as modules see it. GUI thread.
class FXHOST_API MainFrame : public QObject, public CFxMainFrame
{
    Q_OBJECT
public:
    //! \param editor must outlive this
    explicit MainFrame(Editor &editor);

    //! Notifies modules that the main window is there, or, with null, that the one that was there is about to
    //! be deleted. The former window must still exist. A window that was set before is reported gone first.
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

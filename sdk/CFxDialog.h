// SPDX-License-Identifier: MIT
#pragma once

#include <FxSdkApi.h>

#include <QDialog>

//! Base class of the dialogs of the host and its modules. While a modal dialog is shown, the host is in the
//! modal state; editor reactors are notified when it begins and ends. GUI thread.
class FXSDK_API CFxDialog : public QDialog
{
    Q_OBJECT
public:
    //! \param parent owns the dialog; may be null
    //! \param modal whether the dialog blocks the rest of the application
    //! \param flags window flags, passed to QDialog unchanged
    // [gui-thread]
    explicit CFxDialog(QWidget *parent = nullptr, bool modal = true, Qt::WindowFlags flags = {});
    ~CFxDialog() override;

    int exec() override;            // [gui-thread]
    void done(int result) override; // [gui-thread]
    void accept() override;         // [gui-thread]
    void reject() override;         // [gui-thread]

protected:
    //! Called once, before the dialog is shown for the first time.
    virtual void onFirstShow(); // [gui-thread]
    //! Called before the dialog closes.
    //! \return false to keep the dialog open
    virtual bool onAboutToEnd(int result); // [gui-thread]

    bool event(QEvent *event) override;         // [gui-thread]
    void showEvent(QShowEvent *event) override; // [gui-thread]
    void hideEvent(QHideEvent *event) override; // [gui-thread]

private:
    void leaveModalState();

    bool m_wasShown = false;
    bool m_inModalState = false;
};

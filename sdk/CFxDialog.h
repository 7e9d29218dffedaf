// SPDX-License-Identifier: MIT
#pragma once

#include <FxSdkApi.h>

#include <QDialog>

//! Base class of the dialogs of the host and its modules. While a modal dialog is shown, the host is in the
//! modal state; editor reactors are notified when it begins and ends. GUI thread.
//!
//! The host defines the class with its meta-object, for which moc must process this header there, and only
//! there. sdkhost/ does this.
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

    //! Shows the dialog as a modal one, even if it is not, and returns done()'s result.
    int exec() override; // [gui-thread]
    //! Closes the dialog as QDialog::done() does, also one that is not modal, if onAboutToEnd() returns true.
    void done(int result) override; // [gui-thread]
    // These two, and closing the window, call done() once.
    void accept() override; // [gui-thread]
    void reject() override; // [gui-thread]

protected:
    //! Called once, before the dialog is shown for the first time.
    virtual void onFirstShow(); // [gui-thread]
    //! Called by done(), but not if the dialog is hidden or deleted instead.
    //! \return false to keep the dialog open
    virtual bool onAboutToEnd(int result); // [gui-thread]

    // Overrides must call these.
    //! Catches what the dialog's handlers throw, which must not pass through Qt, and shows it to the user.
    bool event(QEvent *event) override;         // [gui-thread]
    void showEvent(QShowEvent *event) override; // [gui-thread]
    void hideEvent(QHideEvent *event) override; // [gui-thread]

private:
    void leaveModalState();

    bool m_wasShown = false;
    bool m_inModalState = false;
};

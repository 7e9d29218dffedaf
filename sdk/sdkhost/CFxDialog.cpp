// SPDX-License-Identifier: MIT
#include <CFxDialog.h>
#include <sdkhost/Host.h>

#include <QHideEvent>
#include <QShowEvent>

#include <exception>

using sdkhost::Host;

namespace {

void setModalState(bool isModal)
{
    if (Host *host = Host::installed())
        host->editor().reactors().notify(isModal ? &CFxEditorReactor::beginModalState
                                                 : &CFxEditorReactor::endModalState);
}

void showFailure(const QString &text)
{
    if (Host *host = Host::installed())
        host->showMessage(text);
}

} // namespace

CFxDialog::CFxDialog(QWidget *parent, bool modal, Qt::WindowFlags flags) : QDialog(parent, flags)
{
    setModal(modal);
}

CFxDialog::~CFxDialog()
{
    leaveModalState(); // a dialog that is deleted while it is visible receives no hide event
}

int CFxDialog::exec()
{
    return QDialog::exec();
}

void CFxDialog::done(int result)
{
    if (onAboutToEnd(result))
        QDialog::done(result);
}

void CFxDialog::accept()
{
    QDialog::accept();
}

void CFxDialog::reject()
{
    QDialog::reject();
}

void CFxDialog::onFirstShow() {}

bool CFxDialog::onAboutToEnd(int)
{
    return true;
}

bool CFxDialog::event(QEvent *event)
{
    // Exceptions must not pass through Qt's event loop: one from a module's handler would terminate the host.
    try {
        return QDialog::event(event);
    } catch (const std::exception &error) {
        showFailure(tr("A dialog failed: %1").arg(QString::fromLocal8Bit(error.what())));
    } catch (...) {
        showFailure(tr("A dialog failed."));
    }
    return true;
}

void CFxDialog::showEvent(QShowEvent *event)
{
    if (!event->spontaneous()) {
        if (!m_wasShown) {
            m_wasShown = true;
            onFirstShow();
        }
        if (isModal() && !m_inModalState) {
            m_inModalState = true;
            setModalState(true);
        }
    }
    QDialog::showEvent(event);
}

void CFxDialog::hideEvent(QHideEvent *event)
{
    QDialog::hideEvent(event);
    if (!event->spontaneous())
        leaveModalState();
}

void CFxDialog::leaveModalState()
{
    if (!m_inModalState)
        return;
    m_inModalState = false;
    setModalState(false);
}

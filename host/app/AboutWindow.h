// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

class QLabel;

namespace fxhost {

//! Shows the program's name, version and licence, and what it consists of. GUI thread.
class AboutWindow : public QDialog
{
    Q_OBJECT
public:
    explicit AboutWindow(QWidget *parent);

    //! Shows and activates the window.
    //! \param modules paths of the loaded modules
    void showModules(const QStringList &modules);

private:
    QLabel *m_facts;
};

} // namespace fxhost

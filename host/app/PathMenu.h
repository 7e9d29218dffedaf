// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>

namespace fxhost {

//! A menu of paths or file names, which are left to right on every desktop. GUI thread.
class PathMenu : public QMenu
{
    Q_OBJECT
public:
    explicit PathMenu(QWidget *parent = nullptr);

    //! Appends an entry, which has the number as its mnemonic.
    QAction *addNumbered(int number, const QString &text);
    //! Appends a text that cannot be chosen.
    void addPlaceholder(const QString &text);
};

} // namespace fxhost

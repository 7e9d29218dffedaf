// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

//! The help icon in the popup's header. Pressing any mouse button runs the help command and closes the popup.
//! GUI thread.
class HelpLabel : public QLabel
{
    Q_OBJECT
public:
    //! \param parent the popup
    explicit HelpLabel(QWidget *parent);
    ~HelpLabel() override;

protected:
    void mousePressEvent(QMouseEvent *event) override;
};

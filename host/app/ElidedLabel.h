// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

namespace fxhost {

//! A line of text that is shortened where it does not fit; the tool tip has the whole. GUI thread.
class ElidedLabel : public QLabel
{
    Q_OBJECT
public:
    //! \param mode what is given up
    ElidedLabel(const QString &text, Qt::TextElideMode mode, QWidget *parent = nullptr);

    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Qt::TextElideMode m_mode;
};

} // namespace fxhost

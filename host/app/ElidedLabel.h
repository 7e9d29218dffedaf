// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

namespace fxhost {

//! A line of text that is elided if it does not fit; the tool tip shows the full text. GUI thread.
class ElidedLabel : public QLabel
{
    Q_OBJECT
public:
    //! \param text plain text
    //! \param mode where the text is elided
    ElidedLabel(const QString &text, Qt::TextElideMode mode, QWidget *parent = nullptr);

    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Qt::TextElideMode m_mode;
};

} // namespace fxhost

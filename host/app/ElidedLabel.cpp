// SPDX-License-Identifier: MIT
#include "host/app/ElidedLabel.h"

#include <QPainter>

namespace fxhost {

ElidedLabel::ElidedLabel(const QString &text, Qt::TextElideMode mode, QWidget *parent)
    : QLabel(text, parent), m_mode(mode)
{
    // A path is not markup, even if a directory is called "<b>".
    setTextFormat(Qt::PlainText);
    setToolTip(text.toHtmlEscaped());
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {0, QLabel::minimumSizeHint().height()};
}

void ElidedLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setLayoutDirection(layoutDirection()); // instead of the application's
    const QString shown = fontMetrics().elidedText(text(), m_mode, contentsRect().width());
    painter.drawText(contentsRect(), static_cast<int>(alignment() | Qt::TextSingleLine), shown);
}

} // namespace fxhost

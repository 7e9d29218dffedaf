// SPDX-License-Identifier: MIT
#include "ui/QBalloonTip.h"

#include <QBitmap>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>

namespace {

QBalloonTip *theSolitaryBalloonTip = nullptr;

//! Replaces a negative timeout, in milliseconds.
constexpr int defaultTimeout = 10000;

// The outline, in pixels. The body starts to the right of the pointer and below the content's top margin.
constexpr int bodyLeft = 38;
constexpr int bodyTop = 18;
constexpr int cornerRadius = 7;
constexpr int cornerSide = 2 * cornerRadius;
constexpr int pointerTop = 25; // also the y coordinate of the tip
constexpr int pointerBottom = 45;
// Margins of the content, in pixels. The margin is wide above the content, or below it if the balloon is
// flipped.
constexpr int sideMargin = 4;
constexpr int narrowMargin = 3;
constexpr int wideMargin = 21;
//! Width of the message and size of the picture, in pixels.
constexpr int messageWidth = 166;
constexpr int pictureWidth = 161;
constexpr int pictureHeight = 91;
//! How much darker the border is than the background, as a factor for QColor::darker().
constexpr int borderFactor = 160;

//! The body, a rounded rectangle, with the pointer on its left edge.
QPainterPath outlineOf(const QSize &size)
{
    const int right = size.width() - 1;
    const int bottom = size.height() - 1;
    const int arcLeft = size.width() - cornerSide - 1;
    const int arcTop = size.height() - cornerSide - 1;
    const auto arc = [](QPainterPath &path, int x, int y, double startAngle) {
        path.arcTo(QRectF(x, y, cornerSide, cornerSide), startAngle, -90);
    };
    QPainterPath path;
    path.moveTo(bodyLeft + cornerRadius, bodyTop);
    path.lineTo(right - cornerRadius, bodyTop);
    arc(path, arcLeft, bodyTop, 90);
    path.lineTo(right, bottom - cornerRadius);
    arc(path, arcLeft, arcTop, 0);
    path.lineTo(bodyLeft + cornerRadius, bottom);
    arc(path, bodyLeft, arcTop, -90);
    path.lineTo(bodyLeft, pointerBottom);
    path.lineTo(0, pointerTop);
    path.lineTo(bodyLeft, pointerTop);
    arc(path, bodyLeft, bodyTop, 180);
    return path;
}

void paintOutline(QPaintDevice *device, const QPainterPath &path, const QColor &border, const QColor &ground)
{
    QPainter painter(device);
    painter.setPen(QPen(QBrush(border), 1.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    painter.setBrush(QBrush(ground));
    painter.drawPath(path);
}

} // namespace

void QBalloonTip::showBalloon(const QImage &icon, const QString &title, const QString &message,
                              const QPoint &position, int timeout, bool showArrow)
{
    hideBalloon();
    if (message.isEmpty() && title.isEmpty())
        return;
    theSolitaryBalloonTip = new QBalloonTip(icon, title, message);
    theSolitaryBalloonTip->balloon(position, timeout < 0 ? defaultTimeout : timeout, showArrow);
}

void QBalloonTip::hideBalloon()
{
    if (!theSolitaryBalloonTip)
        return;
    theSolitaryBalloonTip->close();
    theSolitaryBalloonTip = nullptr;
}

bool QBalloonTip::isBalloonVisible()
{
    return theSolitaryBalloonTip && theSolitaryBalloonTip->isVisible();
}

QBalloonTip::QBalloonTip(const QImage &icon, const QString &title, const QString &message)
    : QWidget(nullptr, Qt::ToolTip)
{
    setAttribute(Qt::WA_DeleteOnClose);

    auto *titleLabel = new QLabel(this);
    titleLabel->setText(title);
    titleLabel->setWordWrap(true);
    QFont titleFont = titleLabel->font();
    titleFont.setWeight(QFont::Bold);
    titleLabel->setFont(titleFont);
    titleLabel->setTextFormat(Qt::PlainText);

    auto *messageLabel = new QLabel(this);
    messageLabel->setFixedWidth(messageWidth);
    messageLabel->setText(message);
    messageLabel->setTextFormat(Qt::PlainText);
    messageLabel->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    messageLabel->setWordWrap(true);
    messageLabel->setIndent(1);

    auto *layout = new QGridLayout;
    if (icon.isNull()) {
        layout->addWidget(titleLabel, 0, 1, 1, 2, Qt::AlignLeft);
    } else {
        auto *pictureLabel = new QLabel;
        pictureLabel->setFixedSize(pictureWidth, pictureHeight);
        pictureLabel->setScaledContents(true);
        pictureLabel->setPixmap(QPixmap::fromImage(icon));
        pictureLabel->setStyleSheet(
            QStringLiteral("QLabel {                    border-width: 0.1px;                    border: 1px "
                           "solid;                    border-color: #C0C0C0;                    "
                           "background-color: rgb(255, 255, 255)                        }"));
        layout->addWidget(titleLabel, 0, 1, Qt::AlignLeft);
        layout->addWidget(pictureLabel, 1, 1, Qt::AlignLeft);
    }
    // Column 0 is the space for the pointer.
    layout->addWidget(new QLabel, 0, 0);
    layout->addItem(new QSpacerItem(40, 20, QSizePolicy::Expanding, QSizePolicy::Minimum), 0, 0, 1, 1);
    // Without a picture, the message is at the balloon's corner, outside the layout.
    if (!icon.isNull())
        layout->addWidget(messageLabel, 2, 1, Qt::AlignLeft);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->setContentsMargins(3, 3, 3, 3);
    setLayout(layout);

    QPalette colors = palette();
    colors.setBrush(QPalette::Window, QColor(248, 248, 248));
    colors.setBrush(QPalette::WindowText, QColor(Qt::black));
    setPalette(colors);
}

QBalloonTip::~QBalloonTip()
{
    // A hidden balloon is deleted later, when the next one may already be visible.
    if (theSolitaryBalloonTip == this)
        theSolitaryBalloonTip = nullptr;
}

void QBalloonTip::balloon(const QPoint &position, int /*timeout*/, bool /*showArrow*/)
{
    const QScreen *screen = QGuiApplication::screenAt(position);
    const QRect area = (screen ? screen : QGuiApplication::primaryScreen())->geometry();

    const bool flip = position.y() + sizeHint().height() + bodyTop > area.bottom() - area.top();
    setContentsMargins(sideMargin, flip ? narrowMargin : wideMargin, sideMargin,
                       flip ? wideMargin : narrowMargin);
    updateGeometry();
    const QSize size = sizeHint();
    move(qMax(position.x(), area.left()), position.y() - pointerTop);

    const QPainterPath outline = outlineOf(size);
    QBitmap mask(size);
    mask.fill(Qt::color0);
    paintOutline(&mask, outline, Qt::color1, Qt::color1);
    setMask(mask);

    const QColor ground = palette().color(QPalette::Window);
    m_pixmap = QPixmap(size);
    paintOutline(&m_pixmap, outline, ground.darker(borderFactor), ground);
    show();
}

void QBalloonTip::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.drawPixmap(rect(), m_pixmap);
}

void QBalloonTip::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
}

void QBalloonTip::timerEvent(QTimerEvent * /*event*/) {}

void QBalloonTip::mousePressEvent(QMouseEvent * /*event*/) {}

// SPDX-License-Identifier: MIT
#include "host/app/DocumentView.h"

#include "host/app/DrawingWords.h"
#include "host/app/ElidedLabel.h"
#include "host/app/Look.h"
#include "host/app/PictureCanvas.h"
#include "host/runtime/documents/Document.h"

#include <QGuiApplication>
#include <QStyle>
#include <QVBoxLayout>

namespace fxhost {

namespace {

// In pixels. Stored pictures are rarely wider than 256 pixels, and are shown enlarged.
constexpr QSize preferredSize(640, 440);
constexpr int stripMargin = 8;
constexpr int stripSpacing = 2;

QString canvasText(const Document &document)
{
    return document.isNew()
               ? DocumentView::tr(
                     "New drawing\n\nTo see a stored one, choose File > Open, or drop its file here.")
               : DocumentView::tr("No picture is stored in this drawing.");
}

QLabel *addLine(QVBoxLayout *layout, const QString &text, const QColor &color, Qt::TextElideMode mode)
{
    auto *line = new ElidedLabel(text, mode);
    QPalette palette = line->palette();
    palette.setColor(QPalette::WindowText, color);
    line->setPalette(palette);
    layout->addWidget(line);
    return line;
}

//! Adds a path or a row of facts. It keeps its left-to-right order but is right-aligned on right-to-left
//! desktops.
QLabel *addOrderedLine(QVBoxLayout *layout, const QString &text, const QColor &color, Qt::TextElideMode mode)
{
    QLabel *line = addLine(layout, text, color, mode);
    line->setAlignment(QStyle::visualAlignment(QGuiApplication::layoutDirection(), Qt::AlignLeft) |
                       Qt::AlignVCenter);
    line->setLayoutDirection(Qt::LeftToRight);
    return line;
}

} // namespace

DocumentView::DocumentView(const Document &document, QWidget *parent) : QWidget(parent)
{
    auto *strip = new QWidget(this);
    QPalette palette = strip->palette();
    palette.setColor(QPalette::Window, look::strip);
    strip->setPalette(palette);
    strip->setAutoFillBackground(true);
    auto *lines = new QVBoxLayout(strip);
    lines->setContentsMargins(stripMargin, stripMargin / 2, stripMargin, stripMargin / 2);
    lines->setSpacing(stripSpacing);
    if (!document.isNew()) {
        addOrderedLine(lines, document.filePath(), look::ink, Qt::ElideMiddle)
            ->setObjectName(QStringLiteral("path"));
        addOrderedLine(lines, factsLine(document), look::faintInk, Qt::ElideRight)
            ->setObjectName(QStringLiteral("facts"));
    }
    const QString note =
        document.file().isPreviewAlone
            ? tr("A sample: this file contains only a file header and a preview.")
            : tr("This program shows the picture stored in a drawing; it does not render drawings.");
    addLine(lines, note, look::faintInk, Qt::ElideRight)->setObjectName(QStringLiteral("note"));

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(new PictureCanvas(document.file().preview, canvasText(document), this), 1);
    layout->addWidget(strip);
}

QSize DocumentView::sizeHint() const
{
    // Cascaded windows get this size regardless of the available space. Three quarters of it keep every title
    // visible.
    const QWidget *area = parentWidget() ? parentWidget()->parentWidget() : nullptr;
    return area ? preferredSize.boundedTo(area->size() * 3 / 4) : preferredSize;
}

} // namespace fxhost

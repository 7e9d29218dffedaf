// SPDX-License-Identifier: MIT
#include "host/app/EmptyHint.h"

#include "host/app/Look.h"

#include <QFontInfo>
#include <QLabel>
#include <QVBoxLayout>

namespace fxhost {

namespace {

constexpr double headingScale = 1.6; // of the usual text
constexpr int margin = 24;           // pixels
constexpr int spacing = 10;          // pixels

} // namespace

EmptyHint::EmptyHint(QWidget *parent) : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText, look::ink);
    setPalette(colors);

    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(spacing);
    layout->addStretch();
    const auto addLine = [this, layout](const QString &text) {
        auto *const line = new QLabel(text, this);
        line->setAlignment(Qt::AlignCenter);
        line->setWordWrap(true);
        layout->addWidget(line);
        return line;
    };
    QLabel *const heading = addLine(tr("No drawing is open"));
    QFont font = heading->font();
    font.setPointSizeF(QFontInfo(font).pointSizeF() * headingScale);
    heading->setFont(font);
    addLine(tr("Choose File > Open, or drop drawing files here."));
    addLine(
        tr("Drawings that you open are listed in File > Recent Drawings. Later, F4 shows their pictures."));
    layout->addStretch();
}

} // namespace fxhost

// SPDX-License-Identifier: MIT
// What the module does for a new drawing, above all the hidden menu, against a menu written straight with Qt.
#include "bench/Bench.h"
#include "bench/Browser.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QMenu>
#include <QToolButton>
#include <QWidgetAction>

#include <memory>

using bench::Browser;
using bench::Row;

namespace {

QToolButton *newButton(const QString &icon)
{
    auto *button = new QToolButton;
    button->setStyleSheet(QStringLiteral("border: none;\nmargin: 0px;\npadding: 0px;"));
    button->setIcon(QIcon(icon));
    button->setFixedSize(21, 21);
    button->setCursor(Qt::PointingHandCursor);
    return button;
}

//! The same entries: the path, a folder and a pin.
void fill(QMenu *menu, const QStringList &paths)
{
    menu->addSeparator();
    int number = 1;
    for (const QString &path : paths) {
        auto *widget = new QWidget;
        widget->setStyleSheet(QStringLiteral(":hover{color:blue ; background-color:palette(highlight);}"));
        auto *text = new QToolButton;
        text->setText(QStringLiteral("&%1 %2").arg(number++).arg(path));
        text->setStyleSheet(QStringLiteral(
            "QToolButton { color: rgba(0, 0, 0, 100%); background-color: rgba(0, 0, 0, 0%); }"));
        QToolButton *pin = newButton(QStringLiteral(":/Images/Resources/pin_up_hover.png"));
        pin->setCheckable(true);
        auto *layout = new QHBoxLayout;
        layout->setAlignment(Qt::AlignTop);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(0);
        layout->addWidget(text);
        layout->addStretch();
        layout->addWidget(newButton(QStringLiteral(":/Images/Resources/Open_32x-32.svg")));
        layout->addWidget(pin);
        widget->setLayout(layout);
        auto *action = new QWidgetAction(menu);
        action->setText(text->text());
        action->setDefaultWidget(widget);
        menu->addAction(action);
    }
    menu->addSeparator();
}

Row newDrawing(int count, double most)
{
    const auto browser = std::make_shared<Browser>(count);
    const auto menu = std::make_shared<std::unique_ptr<QMenu>>();
    Row row;
    row.most = most;
    row.ours = {{}, [browser] { browser->createDocument(); }, Browser::paint};
    row.other = {[menu] { *menu = std::make_unique<QMenu>(); },
                 [menu, browser] { fill(menu->get(), browser->paths()); },
                 [menu] {
                     menu->reset();
                     Browser::paint();
                 }};
    return row;
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    return bench::run({
        {QStringLiteral("new-drawing-10"), [] { return newDrawing(10, 0.5); }},
        {QStringLiteral("new-drawing-50"), [] { return newDrawing(50, 0.5); }},
        {QStringLiteral("new-drawing-200"), [] { return newDrawing(200, 0.5); }},
    });
}

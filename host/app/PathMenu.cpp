// SPDX-License-Identifier: MIT
#include "host/app/PathMenu.h"

#include <QApplication>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOption>

namespace fxhost {

namespace {

//! The text escaped for a menu: without mnemonics, and without tabs, which would start the shortcut column.
QString shown(QString text)
{
    return text.replace(QLatin1Char('&'), QLatin1String("&&")).replace(QLatin1Char('\t'), QLatin1Char(' '));
}

//! Draws a menu's texts in the menu's layout direction. Qt's styles use the application's.
class OwnDirection : public QProxyStyle
{
public:
    using QProxyStyle::QProxyStyle;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override
    {
        const Qt::LayoutDirection before = painter->layoutDirection();
        painter->setLayoutDirection(option->direction);
        QProxyStyle::drawControl(element, option, painter, widget);
        painter->setLayoutDirection(before);
    }
};

} // namespace

PathMenu::PathMenu(QWidget *parent) : QMenu(parent)
{
    setLayoutDirection(Qt::LeftToRight);
    auto *style = new OwnDirection(QApplication::style()->objectName());
    style->setParent(this);
    setStyle(style);
}

QAction *PathMenu::addNumbered(int number, const QString &text)
{
    return addAction(QStringLiteral("&%1 ").arg(number) + shown(text));
}

void PathMenu::addPlaceholder(const QString &text)
{
    addAction(text)->setEnabled(false);
}

} // namespace fxhost

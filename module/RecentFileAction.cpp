// SPDX-License-Identifier: MIT
#include "module/RecentFileAction.h"

#include "module/RecentDocumentBrowser.h"
#include "state/FolderPinButton.h"

#include <QHBoxLayout>
#include <QMenu>
#include <QStyleOptionToolButton>
#include <QStylePainter>

namespace {

//! Draws only its text. The style sheet would also make the panel black that the Fusion style draws for the
//! button in every state. The text's first ampersand marks the key; those of the path are drawn.
class MenuTextButton : public FolderPinButton
{
public:
    using FolderPinButton::FolderPinButton;

    QSize sizeHint() const override
    {
        const auto sizeOf = [this](const QString &words) {
            return fontMetrics().size(Qt::TextShowMnemonic, words);
        };
        return QToolButton::sizeHint() + sizeOf(drawnText()) - sizeOf(text());
    }

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QStyleOptionToolButton option;
        initStyleOption(&option);
        option.text = drawnText();
        QStylePainter painter(this);
        painter.setLayoutDirection(option.direction); // instead of the application's
        painter.drawControl(QStyle::CE_ToolButtonLabel, option);
    }

private:
    QString drawnText() const
    {
        return text().mid(0, 1) + text().mid(1).replace(QLatin1Char('&'), QLatin1String("&&"));
    }
};

} // namespace

RecentFileAction::RecentFileAction(const CFxString &text, const CFxString &path, QMenu *menu,
                                   QAction *successor)
    : QWidgetAction(nullptr), filePath(path)
{
    setText(text);

    // The widget is in its menu, and the buttons are in the widget, before they get their style sheets: Qt
    // applies the sheets of widgets that get another parent, even if these are never shown.
    auto *widget = new QWidget;
    setDefaultWidget(widget);
    if (menu)
        menu->insertAction(successor, this);
    widget->setStyleSheet(QStringLiteral(":hover{color:blue ; background-color:palette(highlight);}"));
    auto *layout = new QHBoxLayout(widget);
    layout->setAlignment(Qt::AlignTop);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);

    QString displayText = FolderPinButton::pathInMenuText(text);
    textButton = new MenuTextButton(widget, displayText);
    textButton->setObjectName(QStringLiteral("menuTextButton"));
    textButton->setText(text);
    textButton->setLayoutDirection(Qt::LeftToRight); // paths are always left to right
    textButton->setStyleSheet(
        QStringLiteral("QToolButton {                        color: rgba(0, 0, 0, 100%);"
                       "                        background-color: rgba(0, 0, 0, 0%);"
                       "                    }"));
    // In the order in which Tab and screen readers reach them.
    FolderPinButton *folder = RecentDocumentBrowser::CreateFolderButton(widget, displayText);
    FolderPinButton *pin = RecentDocumentBrowser::CreatePinButton(widget, displayText);

    layout->addWidget(textButton);
    layout->addSpacerItem(new QSpacerItem(40, 20, QSizePolicy::Expanding, QSizePolicy::Minimum));
    if (folder && pin) {
        layout->addWidget(folder);
        layout->addWidget(pin);
    }
    RecentDocumentBrowser::AddInToMenuPinButtonList(pin);
}

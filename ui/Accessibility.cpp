// SPDX-License-Identifier: MIT
#include "ui/Accessibility.h"

#include "state/FolderPinButton.h"
#include "ui/HelpLabel.h"
#include "ui/RecentDocDialog.h"
#include "ui/RecentDocMainWindow.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QFileInfo>
#include <QMouseEvent>
#include <QPointer>

// The widgets differ from what is described here. In the widget tree, the popup keeps the keyboard focus and
// the tiles are its children, next to the header. Here, the tiles are in a list, and the tile that the
// highlight moved to last has the focus.
//
// Qt may query a widget until the end of its destruction, when the object is no longer of its derived class.
// Code that needs the derived class therefore casts each time.

namespace {

QPointer<RecentDocDialog> lastTile;

void notify(QObject *object, QAccessible::Event type)
{
    QAccessibleEvent event(object, type);
    QAccessible::updateAccessibility(&event);
}

//! The popup's tiles in display order, without tiles that are being destroyed.
QList<RecentDocDialog *> tilesOf(const QWidget *popup)
{
    return popup->findChildren<RecentDocDialog *>(QString(), Qt::FindDirectChildrenOnly);
}

//! The tile that is presented as focused; null if none is highlighted.
RecentDocDialog *currentTile(const QWidget *popup)
{
    RecentDocDialog *current = nullptr;
    const QList<RecentDocDialog *> tiles = tilesOf(popup);
    for (RecentDocDialog *tile : tiles) {
        if (tile->isHighlighted() && (!current || tile == lastTile))
            current = tile;
    }
    return current;
}

//! Sends left-button events to the widget's centre from the event loop. The events may close the popup or
//! wait for another program, and the assistive program must not wait for that.
void useMouseLater(QWidget *widget, const QVector<QEvent::Type> &types)
{
    const auto send = [widget = QPointer<QWidget>(widget), types] {
        for (const QEvent::Type type : types) {
            if (!widget)
                return;
            QMouseEvent event(type, widget->rect().center(), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(widget, &event);
        }
    };
    QMetaObject::invokeMethod(widget, send, Qt::QueuedConnection);
}

//! The list of the tiles, which has no widget.
class TileList final : public QAccessibleObject
{
public:
    explicit TileList(QWidget *popup) : QAccessibleObject(nullptr), m_popup(popup) {}

    bool isValid() const override { return true; }
    QAccessible::Role role() const override { return QAccessible::List; }
    QAccessibleInterface *parent() const override { return QAccessible::queryAccessibleInterface(m_popup); }
    int childCount() const override { return tilesOf(m_popup).size(); }
    QAccessibleInterface *child(int index) const override
    {
        return QAccessible::queryAccessibleInterface(tilesOf(m_popup).value(index));
    }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        return tilesOf(m_popup).indexOf(qobject_cast<RecentDocDialog *>(child->object()));
    }
    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name ? RecentDocMainWindow::tr("Recent Documents") : QString();
    }
    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.invisible = !m_popup->isVisible();
        state.multiSelectable = true;
        return state;
    }
    QRect rect() const override
    {
        QRect area;
        const QList<RecentDocDialog *> tiles = tilesOf(m_popup);
        for (const RecentDocDialog *tile : tiles)
            area |= QRect(tile->mapToGlobal(QPoint()), tile->size());
        return area;
    }

private:
    QWidget *m_popup;
};

//! The popup. Its children are the header's labels, followed by the list.
class PopupInterface final : public QAccessibleWidget
{
public:
    explicit PopupInterface(RecentDocMainWindow *popup)
        : QAccessibleWidget(popup, QAccessible::Dialog), m_list(new TileList(popup)),
          m_listId(QAccessible::registerAccessibleInterface(m_list))
    {
        // Queued, because Qt notifies of the popup's focus itself right after this signal.
        QObject::connect(
            qApp, &QApplication::focusChanged, popup,
            [popup](const QWidget * /*old*/, const QWidget *now) {
                RecentDocDialog *tile = now == popup ? currentTile(popup) : nullptr;
                if (tile)
                    notify(tile, QAccessible::Focus);
            },
            Qt::QueuedConnection);
    }
    ~PopupInterface() override { QAccessible::deleteAccessibleInterface(m_listId); }
    Q_DISABLE_COPY(PopupInterface)

    TileList *list() const { return m_list; }

    int childCount() const override { return header().size() + 1; }
    QAccessibleInterface *child(int index) const override
    {
        const QList<QLabel *> labels = header();
        return index == labels.size() ? m_list : QAccessible::queryAccessibleInterface(labels.value(index));
    }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        return child == m_list ? header().size() : header().indexOf(qobject_cast<QLabel *>(child->object()));
    }
    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name ? m_list->text(kind) : QAccessibleWidget::text(kind);
    }
    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.focused = state.focused && !currentTile(widget());
        return state;
    }

private:
    QList<QLabel *> header() const
    {
        return widget()->findChildren<QLabel *>(QString(), Qt::FindDirectChildrenOnly);
    }

    TileList *m_list;
    QAccessible::Id m_listId;
};

//! A tile, with the full file name of its drawing as name and the path as description.
class TileInterface final : public QAccessibleWidget
{
public:
    explicit TileInterface(RecentDocDialog *tile) : QAccessibleWidget(tile, QAccessible::ListItem) {}

    QAccessibleInterface *parent() const override
    {
        QAccessibleInterface *parent = QAccessibleWidget::parent();
        const auto *popup = dynamic_cast<PopupInterface *>(parent);
        return popup ? popup->list() : parent;
    }
    QString text(QAccessible::Text kind) const override
    {
        const auto *tile = qobject_cast<RecentDocDialog *>(object());
        if (tile && kind == QAccessible::Name)
            return QFileInfo(tile->path()).fileName();
        if (tile && kind == QAccessible::Description)
            return tile->path();
        return QAccessibleWidget::text(kind);
    }
    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        if (const auto *tile = qobject_cast<RecentDocDialog *>(object())) {
            const QWidget *popup = tile->parentWidget();
            state.selectable = true;
            state.selected = tile->isHighlighted();
            state.focusable = true;
            state.focused = popup && popup->hasFocus() && tile == currentTile(popup);
        }
        return state;
    }

    QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
    //! Opens the drawing, or highlights only this tile. Does not set the focus to the tile, because the popup
    //! closes when it loses the focus.
    void doAction(const QString &name) override
    {
        if (name == pressAction())
            useMouseLater(widget(), {QEvent::MouseButtonDblClick});
        if (name == setFocusAction())
            useMouseLater(widget(), {QEvent::MouseButtonPress, QEvent::MouseButtonRelease});
    }
};

//! A widget that responds to clicks: a small button, or the help icon.
class ButtonInterface final : public QAccessibleWidget
{
public:
    explicit ButtonInterface(HelpLabel *help) : QAccessibleWidget(help, QAccessible::Button) {}
    explicit ButtonInterface(FolderPinButton *button)
        : QAccessibleWidget(button, button->isCheckable() ? QAccessible::CheckBox : QAccessible::Button)
    {
        // The name is the tip, which depends on the state.
        QObject::connect(button, &QAbstractButton::toggled, button,
                         [button] { notify(button, QAccessible::NameChanged); });
    }

    QString text(QAccessible::Text kind) const override
    {
        auto *button = qobject_cast<FolderPinButton *>(object());
        if (button && kind == QAccessible::Name)
            return button->prepareBalloon().message;
        if (qobject_cast<HelpLabel *>(object()) && kind == QAccessible::Name)
            return HelpLabel::tr("Help");
        return QAccessibleWidget::text(kind);
    }
    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        if (const auto *button = qobject_cast<QAbstractButton *>(object())) {
            state.checkable = button->isCheckable();
            state.checked = button->isChecked();
        }
        return state;
    }

    QStringList actionNames() const override
    {
        return {role() == QAccessible::CheckBox ? toggleAction() : pressAction()};
    }
    //! Sends a click, because Qt's own action toggles a button without one, which pins nothing.
    void doAction(const QString &name) override
    {
        if (actionNames().contains(name))
            useMouseLater(widget(), {QEvent::MouseButtonPress, QEvent::MouseButtonRelease});
    }
};

//! Casts instead of comparing class names: another copy of the module may have installed a factory, too, and
//! Qt calls each factory for the widgets of both.
QAccessibleInterface *newInterface(const QString & /*className*/, QObject *object)
{
    if (auto *popup = qobject_cast<RecentDocMainWindow *>(object))
        return new PopupInterface(popup);
    if (auto *tile = qobject_cast<RecentDocDialog *>(object))
        return new TileInterface(tile);
    auto *button = qobject_cast<FolderPinButton *>(object);
    if (button && button->objectName() != QLatin1String("menuTextButton")) // which Qt describes by its text
        return new ButtonInterface(button);
    if (auto *help = qobject_cast<HelpLabel *>(object))
        return new ButtonInterface(help);
    return nullptr;
}

} // namespace

void Accessibility::begin()
{
    QAccessible::installFactory(newInterface);
}

void Accessibility::end()
{
    QAccessible::removeFactory(newInterface);
}

void Accessibility::highlightChanged(RecentDocDialog *tile)
{
    // The only selection event that Qt's bridge on Linux forwards, for selecting and deselecting.
    notify(tile, QAccessible::Selection);
}

void Accessibility::highlightMovedTo(RecentDocDialog *tile)
{
    if (!QAccessible::isActive())
        return;
    lastTile = tile;
    notify(tile, QAccessible::Focus);
}

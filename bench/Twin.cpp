// SPDX-License-Identifier: MIT
#include "bench/Twin.h"

#include <QFileInfo>
#include <QGraphicsEffect>
#include <QGridLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

//! The plate behind a highlighted tile.
class Plate : public QGraphicsEffect
{
public:
    QColor color = QColor(0, 0, 150, 100);

    QRectF boundingRectFor(const QRectF &rect) const override
    {
        return rect.adjusted(-reach, -reach, reach, reach);
    }

protected:
    void draw(QPainter *painter) override
    {
        QPoint position;
        const QPixmap source = sourcePixmap(Qt::DeviceCoordinates, &position, PadToEffectiveBoundingRect);
        QRectF plate = boundingRectFor(QRectF(QPointF(), QSizeF(source.size()) / source.devicePixelRatio()));
        plate.moveTopLeft(position - QPointF(reach, reach));
        painter->save();
        painter->setWorldTransform(QTransform());
        painter->setPen(Qt::NoPen);
        painter->setBrush(color);
        painter->drawRoundedRect(plate, 5, 5, Qt::RelativeSize);
        painter->drawPixmap(QPointF(position), source);
        painter->restore();
    }

private:
    static constexpr double reach = 2.5;
};

QString tileSheet(const char *background)
{
    return QStringLiteral("QDialog {color:lightGray; background-color: %1; border-width: 0.1px; "
                          "border: 1px solid; border-color: #C0C0C0 }")
        .arg(QLatin1String(background));
}

QToolButton *newButton(QWidget *parent, const QIcon &icon)
{
    auto *button = new QToolButton(parent);
    button->setMouseTracking(true);
    button->setStyleSheet(QStringLiteral("border: none;\nmargin: 0px;\npadding: 0px;"));
    button->setToolButtonStyle(Qt::ToolButtonIconOnly);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    button->setCursor(Qt::PointingHandCursor);
    button->setIcon(icon);
    return button;
}

QIcon pinIcon()
{
    QIcon icon;
    icon.addFile(QStringLiteral(":/Images/Resources/pin_down_hover.png"), QSize(21, 21), QIcon::Normal,
                 QIcon::On);
    icon.addFile(QStringLiteral(":/Images/Resources/pin_up_hover.png"), QSize(21, 21), QIcon::Normal,
                 QIcon::Off);
    return icon;
}

QIcon folderIcon()
{
    QIcon icon;
    icon.addFile(QStringLiteral(":/Images/Resources/Open_32x-32.svg"), QSize(21, 21), QIcon::Normal,
                 QIcon::On);
    return icon;
}

} // namespace

class TwinTile : public QDialog
{
    Q_OBJECT
public:
    TwinTile(TwinPopup *popup, const TwinDrawing &drawing)
        : QDialog(popup), path(drawing.path), m_popup(popup)
    {
        setObjectName(QStringLiteral("RecentDocDialog"));
        auto *column = new QVBoxLayout(this);
        column->setContentsMargins(11, 11, 11, 11);
        auto *parts = new QGridLayout;
        auto *top = new QGridLayout;
        auto *buttons = new QGridLayout;
        for (QGridLayout *layout : {parts, top, buttons})
            layout->setSpacing(0);
        auto *name = new QLabel(this);
        name->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
        auto *picture = new QLabel(this);
        top->addWidget(name, 0, 0);
        top->addLayout(buttons, 0, 1);
        parts->addLayout(top, 0, 0);
        parts->addWidget(picture, 2, 0);
        column->addLayout(parts);
        setMouseTracking(true);
        setWindowFlags(Qt::FramelessWindowHint);
        setFixedSize(161, 131);
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        setStyleSheet(tileSheet("rgb(248, 248, 248)"));

        QString text = QFileInfo(path).fileName();
        if (text.size() > 16)
            text = text.left(13) + QStringLiteral("...");
        name->setTextFormat(Qt::PlainText);
        name->setText(text);
        QPalette black;
        black.setColor(QPalette::WindowText, Qt::black);
        name->setPalette(black);

        picture->setScaledContents(true);
        picture->setPixmap(QPixmap::fromImage(drawing.picture));
        picture->setStyleSheet(QStringLiteral("QLabel { border-width: 0.1px; border: 1px solid; "
                                              "background-color: white; border-color: #C0C0C0 }"));

        QIcon type;
        type.addFile(QStringLiteral(":/Images/Resources/VELA_DWG.png"), QSize(21, 21));
        auto *typeLabel = new QLabel(this);
        typeLabel->setPixmap(type.pixmap(21, 21));
        typeLabel->setGeometry(140, 110, 21, 21);

        buttons->addWidget(newButton(this, folderIcon()), 0, 0);
        QToolButton *pin = newButton(this, pinIcon());
        pin->setCheckable(true);
        pin->setChecked(drawing.isPinned);
        buttons->addWidget(pin, 0, 1);
    }

    const QString path;

    bool isHighlighted() const { return m_plate && m_plate->color.alpha() != 255; }

    void highlight()
    {
        m_plate = new Plate;
        setGraphicsEffect(m_plate);
        update();
        m_popup->showPath(path);
    }

    void clearHighlight()
    {
        m_plate->color = QColor(248, 248, 248);
        update();
    }

protected:
    void enterEvent(QEvent * /*event*/) override
    {
        m_popup->showPath(path);
        setStyleSheet(tileSheet("rgb(240, 240, 240)"));
    }

    void leaveEvent(QEvent * /*event*/) override
    {
        m_popup->showPath(m_popup->highlightedPath());
        setStyleSheet(tileSheet("rgb(248, 248, 248)"));
    }

private:
    TwinPopup *m_popup;
    Plate *m_plate = nullptr;
};

// NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): setupUi() initialises the form's members
TwinPopup::TwinPopup(QWidget *parent, const QVector<TwinDrawing> &drawings)
    : QDialog(parent, Qt::FramelessWindowHint)
{
    setupUi(this);
    setAcceptDrops(true);
    setMouseTracking(true);
    setAttribute(Qt::WA_DeleteOnClose);
    QPalette ground;
    ground.setColor(QPalette::Window, QColor(240, 240, 240));
    setPalette(ground);
    buildHeader();
    verticalLayout->setSizeConstraint(QLayout::SetNoConstraint);
    place(parent->geometry(), drawings.size());

    auto *grid = new QGridLayout;
    grid->setSpacing(20);
    grid->setContentsMargins(11, 11, 11, 11);
    grid->addItem(new QSpacerItem(40, 20, QSizePolicy::Expanding, QSizePolicy::Minimum), 0, m_columns + 1);
    grid->addItem(new QSpacerItem(20, 40, QSizePolicy::Minimum, QSizePolicy::Expanding), m_rows, 0);
    for (const TwinDrawing &drawing : drawings) {
        grid->addWidget(new TwinTile(this, drawing), m_tiles.size() / m_columns, m_tiles.size() % m_columns);
        m_tiles.append(static_cast<TwinTile *>(grid->itemAt(grid->count() - 1)->widget()));
    }
    if (!m_tiles.isEmpty())
        m_tiles.first()->highlight();
    verticalLayout->addLayout(grid);
    verticalLayout->setContentsMargins(0, 0, 0, 0);
    const int spareHeight = 8;
    const int least = verticalLayout->minimumSize().height() - m_rows * spareHeight;
    setMinimumHeight(least <= height() ? 0 : least);
}

void TwinPopup::buildHeader()
{
    const auto paintGround = [](QWidget *widget, const QPalette &palette) {
        widget->setPalette(palette);
        widget->ensurePolished();
        widget->setAutoFillBackground(true);
    };
    QPalette title = main_label_title->palette();
    title.setColor(QPalette::Window, QColor(51, 51, 102));
    paintGround(main_label_title, title);

    auto *help = new QLabel(this);
    help->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    help->setPixmap(QPixmap(QStringLiteral(":/Images/Resources/help_32x-20.svg")));
    help->setCursor(Qt::PointingHandCursor);
    help->setPalette(title);
    help->setAutoFillBackground(true);
    horizontalLayout->addWidget(help);

    QPalette path = main_label_path->palette();
    path.setColor(QPalette::Window, QColor(0, 0, 94));
    path.setColor(QPalette::WindowText, QColor(188, 188, 253));
    paintGround(main_label_path, path);
    main_label_path->setTextFormat(Qt::PlainText);
}

void TwinPopup::place(const QRect &frame, int count)
{
    m_columns = frame.width() <= 585 ? 4 : frame.width() <= 900 ? 3 : frame.width() / 322;
    m_rows = (count + m_columns - 1) / m_columns;
    const int width = m_columns * 181;
    const int height = m_rows == 1 ? 201 : m_rows * 175;
    int x = (frame.width() - width) / 2;
    int y = (frame.height() - height) / 2;
    if (x <= 1 && y <= 1) {
        x = frame.left();
        y = frame.top();
    }
    if (x <= 1)
        x = frame.top();
    if (y <= 1)
        y = frame.left();
    setGeometry(x, y, width, height);
}

void TwinPopup::showPath(const QString &path)
{
    QString text = path;
    if (QFontMetrics(QFont()).horizontalAdvance(path) > width())
        text = path.left(97).leftJustified(100, QLatin1Char('.'));
    main_label_path->setText(text);
}

QString TwinPopup::highlightedPath() const
{
    for (const TwinTile *tile : m_tiles) {
        if (tile->isHighlighted())
            return tile->path;
    }
    return {};
}

void TwinPopup::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Right) {
        QDialog::keyPressEvent(event);
        return;
    }
    for (int i = 0; i < m_tiles.size(); ++i) {
        if (m_tiles.at(i)->isHighlighted()) {
            m_tiles.at(i)->clearHighlight();
            m_tiles.at((i + 1) % m_tiles.size())->highlight();
            return;
        }
    }
}

#include "Twin.moc"

// SPDX-License-Identifier: MIT
#include "host/app/AboutWindow.h"

#include <OdRxModule.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QGridLayout>
#include <QIcon>
#include <QLabel>
#include <QPlainTextEdit>
#include <QScreen>
#include <QStyle>

namespace fxhost {

namespace {

constexpr int licenceLines = 8; // visible at a time
constexpr int licenceColumns = 80;

QString licence()
{
    QFile file(QStringLiteral(":/LICENSE"));
    file.open(QIODevice::ReadOnly);
    return QString::fromUtf8(file.readAll()).trimmed();
}

QString row(const QString &name, const QString &value)
{
    return QStringLiteral("<tr><td>%1&nbsp;&nbsp;</td><td>%2</td></tr>")
        .arg(name.toHtmlEscaped(), value.toHtmlEscaped());
}

} // namespace

AboutWindow::AboutWindow(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("aboutWindow"));
    setWindowTitle(tr("About %1").arg(QCoreApplication::applicationName()));

    auto *icon = new QLabel;
    const int side = style()->pixelMetric(QStyle::PM_MessageBoxIconSize);
    icon->setPixmap(QApplication::windowIcon().pixmap(side, side));

    m_facts = new QLabel;
    m_facts->setWordWrap(true); // a translation may be wider than a small screen
    m_facts->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);

    auto *text = new QPlainTextEdit(licence());
    text->setReadOnly(true);
    text->setTabChangesFocus(true);
    text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    text->setAccessibleName(tr("Licence"));
    const QFontMetrics metrics(text->font());
    text->setMinimumSize(metrics.averageCharWidth() * licenceColumns, metrics.lineSpacing() * licenceLines);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *layout = new QGridLayout(this);
    layout->addWidget(icon, 0, 0, Qt::AlignTop);
    layout->addWidget(m_facts, 0, 1);
    layout->addWidget(text, 1, 0, 1, 2);
    layout->addWidget(buttons, 2, 0, 1, 2);
    layout->setColumnStretch(1, 1);
    layout->setRowStretch(1, 1);
}

void AboutWindow::showModules(const QStringList &modules)
{
    QStringList names;
    for (const QString &path : modules)
        names.append(QFileInfo(path).fileName());
    const QString interface =
        QStringLiteral("%1.%2.%3").arg(odrxApiMajor).arg(odrxApiMinor).arg(odrxApiMajorBuild);
    const QString description = tr("Shows the pictures stored in DWG drawings and loads plug-in modules.");
    m_facts->setText(
        QStringLiteral("<h3>%1 %2</h3><p>%3</p><table>%4</table>")
            .arg(QCoreApplication::applicationName(), QCoreApplication::applicationVersion(),
                 description.toHtmlEscaped(),
                 row(tr("Loaded modules:"), names.isEmpty() ? tr("none") : names.join(QLatin1String(", "))) +
                     row(tr("Module interface:"), interface) +
                     row(tr("Qt:"), QString::fromLatin1(qVersion())) +
                     row(tr("Licence:"), tr("MIT licence, see below"))));
    // Qt limits the first size to a part of the screen, without regard to the height of wrapped text.
    const int width = sizeHint().width();
    const QSize room = screen()->availableSize() * 9 / 10; // with space for the frame
    resize(QSize(width, layout()->totalHeightForWidth(width)).boundedTo(room));
    show();
    raise();
    activateWindow();
}

} // namespace fxhost

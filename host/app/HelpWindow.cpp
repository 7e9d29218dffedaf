// SPDX-License-Identifier: MIT
#include "host/app/HelpWindow.h"

#include "host/app/HelpPage.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QScreen>
#include <QShortcut>
#include <QTextBrowser>
#include <QToolBar>
#include <QVBoxLayout>

namespace fxhost {

namespace {

// Wide enough for about 70 characters per line, which is easy to read.
constexpr QSize helpWindowSize(620, 520);
constexpr QSize smallestSize(320, 240);

//! Null if the topic has no page.
QUrl pageOf(int topic)
{
    const QString page = helpPage(QStringLiteral(":/help"), topic, QLocale().uiLanguages());
    return page.isEmpty() ? QUrl() : QUrl(QStringLiteral("qrc") + page);
}

} // namespace

HelpWindow::HelpWindow(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("helpWindow"));
    setWindowTitle(tr("Help"));
    setMinimumSize(smallestSize);
    resize(helpWindowSize.boundedTo(screen()->availableSize() * 9 / 10)); // with space for the frame

    m_browser = new QTextBrowser(this);
    m_browser->setFrameShape(QFrame::NoFrame);
    m_browser->document()->setDocumentMargin(2 * m_browser->document()->documentMargin());

    auto *bar = new QToolBar(this);
    bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    QAction *contents = bar->addAction(tr("Contents"));
    QAction *back = bar->addAction(tr("Back"));
    QAction *forward = bar->addAction(tr("Forward"));
    back->setShortcut(QKeySequence::Back);
    forward->setShortcut(QKeySequence::Forward);
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(contents, &QAction::triggered, this, [this] { showTopic(frontPage); });
    connect(back, &QAction::triggered, m_browser, &QTextBrowser::backward);
    connect(forward, &QAction::triggered, m_browser, &QTextBrowser::forward);
    connect(m_browser, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(m_browser, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);

    m_wanted = new QLineEdit;
    m_wanted->setPlaceholderText(tr("Find"));
    m_result = new QLabel;
    auto *space = new QWidget;
    space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    bar->addWidget(space);
    bar->addWidget(m_result);
    bar->addWidget(m_wanted);
    connect(m_wanted, &QLineEdit::returnPressed, this, &HelpWindow::find);
    connect(m_wanted, &QLineEdit::textChanged, m_result, &QLabel::clear);
    auto *focusFind = new QAction(this);
    focusFind->setShortcut(QKeySequence::Find);
    connect(focusFind, &QAction::triggered, m_wanted, [this] {
        m_wanted->setFocus(Qt::ShortcutFocusReason);
        m_wanted->selectAll();
    });
    addAction(focusFind);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(bar);
    layout->addWidget(m_browser);
}

void HelpWindow::offerIn(QDialog *dialog, int topic)
{
    const auto *const key = new QShortcut(QKeySequence::HelpContents, dialog);
    connect(key, &QShortcut::activated, dialog, [dialog, topic] {
        auto *const help = new HelpWindow(dialog);
        help->setAttribute(Qt::WA_DeleteOnClose);
        help->showTopic(topic);
    });
}

void HelpWindow::showTopic(int topic)
{
    const QUrl page = pageOf(topic);
    if (!page.isEmpty())
        m_browser->setSource(page);
    else
        m_browser->setHtml(tr("<h2>No page</h2><p>There is no help page for topic %1.</p>"
                              "<p>See the <a href=\"%2\">contents</a>.</p>")
                               .arg(topic)
                               .arg(pageOf(frontPage).toString()));
    show();
    raise();
    activateWindow();
    m_browser->setFocus();
}

//! Selects the next place that contains the wanted text, or after the last one, the first.
void HelpWindow::find()
{
    const QString wanted = m_wanted->text();
    if (wanted.isEmpty() || m_browser->find(wanted))
        return;
    const QTextCursor former = m_browser->textCursor();
    m_browser->moveCursor(QTextCursor::Start);
    if (m_browser->find(wanted))
        return;
    m_browser->setTextCursor(former);
    m_result->setText(tr("Not found"));
}

QString HelpWindow::text() const
{
    return m_browser->toPlainText();
}

} // namespace fxhost

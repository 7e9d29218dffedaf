// SPDX-License-Identifier: MIT
#include "host/app/HelpWindow.h"

#include <QAction>
#include <QFile>
#include <QTextBrowser>
#include <QToolBar>
#include <QVBoxLayout>

namespace fxhost {

namespace {

// Wide enough for about 70 characters per line, which is easy to read.
constexpr QSize helpWindowSize(620, 520);
constexpr QSize smallestSize(320, 240);

QUrl pageOf(int topic)
{
    return QUrl(QStringLiteral("qrc:/help/%1.html").arg(topic));
}

bool exists(const QUrl &page)
{
    return QFile::exists(QLatin1Char(':') + page.path());
}

} // namespace

HelpWindow::HelpWindow(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("helpWindow"));
    setWindowTitle(tr("Help"));
    setMinimumSize(smallestSize);
    resize(helpWindowSize);

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

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(bar);
    layout->addWidget(m_browser);
}

void HelpWindow::showTopic(int topic)
{
    const QUrl page = pageOf(topic);
    if (exists(page))
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

QString HelpWindow::text() const
{
    return m_browser->toPlainText();
}

} // namespace fxhost

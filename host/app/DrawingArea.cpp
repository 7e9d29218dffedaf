// SPDX-License-Identifier: MIT
#include "host/app/DrawingArea.h"

#include "host/app/DocumentView.h"
#include "host/app/EmptyHint.h"
#include "host/app/Look.h"
#include "host/runtime/documents/Document.h"
#include "host/runtime/documents/DocumentManager.h"

#include <QEvent>
#include <QMdiSubWindow>

namespace fxhost {

DrawingArea::DrawingArea(DocumentManager &documents, QWidget *parent)
    : QMdiArea(parent), m_documents(documents), m_hint(new EmptyHint(viewport()))
{
    setBackground(look::backdrop);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setActivationOrder(QMdiArea::ActivationHistoryOrder);

    connect(&m_documents, &DocumentManager::documentAdded, this, &DrawingArea::addWindow);
    connect(&m_documents, &DocumentManager::documentAboutToClose, this, &DrawingArea::removeWindow);
    connect(&m_documents, &DocumentManager::currentChanged, this, &DrawingArea::showCurrent);
    connect(&m_documents, &DocumentManager::activateRequested, this, &DrawingArea::showCurrent);
    connect(this, &QMdiArea::subWindowActivated, this,
            [this](const QMdiSubWindow *window) { m_documents.setCurrent(documentOf(window)); });
}

QMdiSubWindow *DrawingArea::windowOf(const Document *document) const
{
    return m_windows.value(const_cast<Document *>(document));
}

Document *DrawingArea::documentOf(const QObject *window) const
{
    for (auto entry = m_windows.begin(); entry != m_windows.end(); ++entry) {
        if (entry.value() == window)
            return entry.key();
    }
    return nullptr;
}

void DrawingArea::addWindow(Document *document)
{
    m_hint->hide();
    // As in other drawing programs, a drawing fills the area until the user arranges the windows.
    const QMdiSubWindow *active = activeSubWindow();
    const bool maximized = !active || active->isMaximized();

    auto *window = new QMdiSubWindow;
    window->setWidget(new DocumentView(*document));
    window->setWindowTitle(document->title());
    window->setAttribute(Qt::WA_DeleteOnClose);
    m_windows.insert(document, addSubWindow(window));
    window->installEventFilter(this);
    if (maximized)
        window->showMaximized();
    else
        window->show();
}

void DrawingArea::removeWindow(Document *document)
{
    // Remove it from the map first: closing a window that is already being closed must not close the drawing
    // again.
    if (QMdiSubWindow *window = m_windows.take(document))
        window->close();
    m_hint->setVisible(m_windows.isEmpty());
}

void DrawingArea::showCurrent(Document *document)
{
    QMdiSubWindow *window = windowOf(document);
    if (!window)
        return;
    if (window->isMinimized())
        window->showNormal();
    setActiveSubWindow(window);
}

bool DrawingArea::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Close) {
        if (Document *document = documentOf(watched))
            m_documents.close(document);
    }
    return QMdiArea::eventFilter(watched, event);
}

void DrawingArea::resizeEvent(QResizeEvent *event)
{
    QMdiArea::resizeEvent(event);
    m_hint->resize(viewport()->size());
}

} // namespace fxhost

// SPDX-License-Identifier: MIT
#pragma once

#include <QMap>
#include <QMdiArea>

namespace fxhost {

class Document;
class DocumentManager;

//! The centre of the main window: a window for each open drawing, and a hint while none is open. GUI thread.
class DrawingArea : public QMdiArea
{
    Q_OBJECT
public:
    //! \param documents must outlive the area
    explicit DrawingArea(DocumentManager &documents, QWidget *parent = nullptr);

    //! The window of a drawing; null if it has none.
    QMdiSubWindow *windowOf(const Document *document) const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void addWindow(Document *document);
    void removeWindow(Document *document);
    void showCurrent(Document *document);
    Document *documentOf(const QObject *window) const;

    DocumentManager &m_documents;
    QWidget *m_hint; //!< shown while no drawing is open
    QMap<Document *, QMdiSubWindow *> m_windows;
};

} // namespace fxhost

// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

class QTextBrowser;

namespace fxhost {

//! Shows the program's help pages, which lie in its resources, one file a topic. GUI thread.
class HelpWindow : public QDialog
{
    Q_OBJECT
public:
    //! The page that stands at the start of the help.
    static constexpr int frontPage = 0;

    explicit HelpWindow(QWidget *parent);

    //! Shows the window with the page of a topic in front; a topic without a page gets one that says so.
    void showTopic(int topic);

    QString text() const;

private:
    QTextBrowser *m_browser;
};

} // namespace fxhost

// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

class QLabel;
class QLineEdit;
class QTextBrowser;

namespace fxhost {

//! Shows the program's help pages, which are in its resources, one file per topic, in the user's language.
//! GUI thread.
class HelpWindow : public QDialog
{
    Q_OBJECT
public:
    //! The topic of the first page.
    static constexpr int frontPage = 0;

    explicit HelpWindow(QWidget *parent);

    //! Shows and activates the window with the page of a topic. If the topic has no page, shows a page that
    //! says so.
    void showTopic(int topic);

    QString text() const;

private:
    void find();

    QTextBrowser *m_browser;
    QLineEdit *m_wanted;
    QLabel *m_result;
};

} // namespace fxhost

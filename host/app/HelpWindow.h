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
    static constexpr int recentDrawings = 3087; //!< the browser's topic, too

    explicit HelpWindow(QWidget *parent);

    //! Lets F1 show a page in a help window of the dialog's own. For modal dialogs, which block other
    //! windows.
    static void offerIn(QDialog *dialog, int topic);

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

// SPDX-License-Identifier: MIT
#include "tests/support/TestCase.h"
#include "tests/support/real/RealHost.h"

#include <CFxDialog.h>
#include <CFxEditorReactor.h>
#include <sdkhost/Editor.h>

#include <QPointer>
#include <QSignalSpy>

#include <memory>
#include <stdexcept>
#include <utility>

namespace {

class ModalListener : public CFxEditorReactor
{
public:
    explicit ModalListener(fxhost::FxHost &host) : m_host(host) { host.editor().addReactor(this); }
    ~ModalListener() override { m_host.editor().removeReactor(this); }

    void beginModalState() override { events << "begin"; }
    void endModalState() override { events << "end"; }

    QStringList takeEvents() { return std::exchange(events, {}); }

    QStringList events;

private:
    fxhost::FxHost &m_host;
};

const QStringList beginAndEnd = {"begin", "end"};

class HookedDialog : public CFxDialog
{
public:
    using CFxDialog::CFxDialog;

    int firstShows = 0;
    QList<int> ends;
    bool mayEnd = true;
    bool throwsOnKeys = false;
    bool wasVisibleAtFirstShow = false;

protected:
    void onFirstShow() override
    {
        ++firstShows;
        wasVisibleAtFirstShow = testAttribute(Qt::WA_Mapped);
    }

    bool onAboutToEnd(int result) override
    {
        ends.append(result);
        return mayEnd;
    }

    void keyPressEvent(QKeyEvent *event) override
    {
        if (throwsOnKeys)
            throw std::runtime_error("stuck key");
        CFxDialog::keyPressEvent(event);
    }
};

} // namespace

class tst_CFxDialog : public TestCase
{
    Q_OBJECT

private slots:
    void constructorArgumentsAreUsed()
    {
        QWidget parent;
        CFxDialog modal(&parent);
        QVERIFY(modal.isModal());
        QCOMPARE(modal.parentWidget(), &parent);
        CFxDialog popup(&parent, false, Qt::FramelessWindowHint);
        QVERIFY(!popup.isModal());
        QVERIFY(popup.windowFlags() & Qt::FramelessWindowHint);
    }

    void firstShowIsNotifiedOnceAndBeforehand()
    {
        HookedDialog dialog(nullptr, false);
        QCOMPARE(dialog.firstShows, 0);
        dialog.show();
        dialog.hide();
        dialog.show();
        QCOMPARE(dialog.firstShows, 1);
        QVERIFY(!dialog.wasVisibleAtFirstShow);
    }

    void everyWayToEndADialogAsksFirst_data()
    {
        QTest::addColumn<QByteArray>("way");
        QTest::addColumn<int>("result");
        QTest::newRow("accept") << QByteArray("accept") << int(QDialog::Accepted);
        QTest::newRow("reject") << QByteArray("reject") << int(QDialog::Rejected);
        QTest::newRow("close") << QByteArray("close") << int(QDialog::Rejected);
    }

    void everyWayToEndADialogAsksFirst()
    {
        QFETCH(QByteArray, way);
        QFETCH(int, result);
        HookedDialog dialog(nullptr, false);
        QSignalSpy finished(&dialog, &QDialog::finished);
        dialog.show();
        dialog.mayEnd = false;
        QMetaObject::invokeMethod(&dialog, way.constData());
        QVERIFY(dialog.isVisible());
        QVERIFY(finished.isEmpty());
        dialog.mayEnd = true;
        QMetaObject::invokeMethod(&dialog, way.constData());
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.ends, QList<int>({result, result}));
        QCOMPARE(finished.size(), 1);
    }

    void execReturnsTheResult()
    {
        HookedDialog dialog;
        QMetaObject::invokeMethod(
            &dialog, [&] { dialog.done(7); }, Qt::QueuedConnection);
        QCOMPARE(dialog.exec(), 7);
    }

    void aModalDialogPutsTheHostIntoTheModalState()
    {
        RealHost running;
        ModalListener listener(running.host);
        CFxDialog shown(nullptr, false);
        shown.show();
        shown.accept();
        QCOMPARE(listener.events, QStringList()); // it is not modal

        // exec() makes any dialog modal.
        QMetaObject::invokeMethod(&shown, &CFxDialog::accept, Qt::QueuedConnection);
        shown.exec();
        QCOMPARE(listener.takeEvents(), beginAndEnd);

        auto modal = std::make_unique<CFxDialog>();
        modal->show();
        QCOMPARE(listener.events, QStringList("begin"));
        modal->accept();
        QCOMPARE(listener.takeEvents(), beginAndEnd);
        modal->show();
        modal.reset();
        QCOMPARE(listener.takeEvents(), beginAndEnd);

        const QPointer<CFxDialog> passing = new CFxDialog;
        passing->setAttribute(Qt::WA_DeleteOnClose);
        passing->show();
        passing->done(0);
        QTRY_VERIFY(!passing);
        QCOMPARE(listener.events, beginAndEnd);
    }

    void exceptionInAHandlerIsReportedByTheHost()
    {
        HookedDialog dialog(nullptr, false);
        dialog.show();
        dialog.throwsOnKeys = true;
        QTest::keyClick(&dialog, Qt::Key_A); // there is no host to report it
        {
            RealHost running;
            QTest::keyClick(&dialog, Qt::Key_A);
            QVERIFY(!running.messages.isEmpty());
            QVERIFY(running.messages.first().contains("stuck key"));
        }
        dialog.accept();
        QVERIFY(!dialog.isVisible());
    }
};

TEST_CLASS(tst_CFxDialog);
#include "tst_cfxdialog.moc"

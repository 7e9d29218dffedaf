// SPDX-License-Identifier: MIT
#include "tests/desktop/Hand.h"
#include "tests/support/TestCase.h"
#include "tests/support/process/ProgramOnScreen.h"

#include <QTemporaryDir>

#include <unistd.h>

namespace {

constexpr int lives = 50;
//! Enough for all that is created at first use and kept.
constexpr int warmUp = 10;

// In the popup, in pixels.
constexpr QPoint firstPicture(92, 140);
constexpr QPoint pinOfSecondTile(332, 84);
constexpr int stripHeight = 32;

//! The example on the display, over three recent drawings.
class MinimalHost
{
public:
    MinimalHost()
    {
        QStringList arguments{EXAMPLES_DIR "/prefix/" MODULE_IN_PREFIX};
        for (const char *name : {"cellar.dwg", "garage.dwg", "roof.dwg"}) {
            m_paths.append(m_folder.filePath(name));
            QFile file(m_paths.constLast());
            if (!file.open(QIODevice::WriteOnly))
                qFatal("no drawing can be written");
        }
        m_process.start(EXAMPLES_DIR "/program/minimal-host/minimal-host", arguments + m_paths);
    }
    ~MinimalHost()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

    //! The recent drawings, latest first.
    QStringList recent() const { return m_paths; }
    //! The next line that the program prints, or nothing.
    QString line()
    {
        const bool isRead = waitUntil([&] { return m_process.canReadLine(); });
        return isRead ? QString::fromUtf8(m_process.readLine()).trimmed() : QString();
    }
    //! The same when it should be that a drawing was opened, which then is the latest.
    QString openedLine(const QString &path)
    {
        m_paths.removeAll(path);
        m_paths.prepend(path);
        return line();
    }
    bool quit()
    {
        choose("q");
        return m_process.waitForFinished(patience) && m_process.exitStatus() == QProcess::NormalExit &&
               m_process.exitCode() == 0;
    }

    //! Waits until the main window has the keyboard.
    bool isActive() const
    {
        return waitUntil([] {
            const QString title = ProgramOnScreen::activeTitle();
            return title == "New" || title.endsWith(".dwg");
        });
    }
    //! Chooses the File menu's entry with this mnemonic.
    bool choose(const QString &mnemonic) const
    {
        const bool hasKeyboard = isActive();
        Hand::keys({"alt+f", mnemonic});
        return hasKeyboard;
    }
    bool openPopup() const
    {
        const bool hasKeyboard = isActive();
        Hand::key("F4");
        return hasKeyboard && ProgramOnScreen::popupOpens();
    }

    //! The visible windows: the main window, the popup, a drag's picture.
    int windowCount() const
    {
        const QString pid = QString::number(m_process.processId());
        return Hand::ask({"search", "--onlyvisible", "--pid", pid}).split('\n').size();
    }
    qint64 residentPages() const
    {
        QFile file(QString("/proc/%1/statm").arg(m_process.processId()));
        return file.open(QIODevice::ReadOnly) ? file.readAll().split(' ').value(1).toLongLong() : 0;
    }

private:
    QTemporaryDir m_folder;
    QStringList m_paths;
    QProcess m_process;
};

QRect popupPlace()
{
    return Hand::realGeometry(ProgramOnScreen::popup());
}

//! Drags a tile out of the popup, below it. \return whether the popup has made room
bool dragOut(const MinimalHost &host)
{
    const QRect popup = popupPlace();
    const QPoint held = popup.topLeft() + firstPicture;
    Hand::moveTo(held);
    Hand::press();
    Hand::moveTo(held + QPoint(20, 0));
    // A pointer that is outside before the drag has begun is not seen to leave.
    const bool isDragging = waitUntil([&] { return host.windowCount() == 3; });
    int y = held.y();
    return isDragging && waitUntil([&] {
               y += y < popup.bottom() + 60 ? 12 : -1;
               Hand::moveTo(QPoint(held.x(), y));
               return popupPlace().height() <= stripHeight;
           });
}

} // namespace

//! The minimal host, driven by its user.
class tst_MinimalHost : public TestCase
{
    Q_OBJECT

private slots:
    void moduleLivesInAnotherHost()
    {
        Hand::moveTo(QPoint(0, 0));
        MinimalHost host;
        QCOMPARE(host.line(), QString("loaded, 2 commands"));
        qint64 early = 0;
        for (int life = 1; life <= lives; ++life) {
            QVERIFY(host.openPopup());
            Hand::click(popupPlace().topLeft() + pinOfSecondTile);
            if (life == 1)
                Hand::keepScreenshot("minimal-host-with-a-pin");
            Hand::key("Escape");
            QVERIFY(ProgramOnScreen::popupCloses());

            QVERIFY(host.openPopup());
            const QString pinned = host.recent().at(1); // comes first now
            Hand::key("Return");
            QCOMPARE(host.openedLine(pinned), "opened " + pinned);
            QVERIFY(ProgramOnScreen::popupCloses());

            QVERIFY(host.openPopup());
            const QString dragged = host.recent().at(0);
            QVERIFY(dragOut(host));
            Hand::release();
            QCOMPARE(host.openedLine(dragged), "opened " + dragged);
            QVERIFY(ProgramOnScreen::popupCloses());

            QVERIFY(host.choose("u"));
            QCOMPARE(host.line(), QString("unloaded, 0 commands"));
            QVERIFY(host.isActive());
            Hand::key("F4");
            QCOMPARE(host.line(), QString("unknown command _RECENT"));
            QVERIFY(host.choose("l"));
            QCOMPARE(host.line(), QString("loaded, 2 commands"));
            if (life == warmUp)
                early = host.residentPages();
        }
        const double growth = 100.0 * double(host.residentPages() - early) / double(early);
        qInfo("%d lives: resident memory grew by %.1f %% after the first %d", lives, growth, warmUp);
        QVERIFY2(early > 0 && growth < 10, qPrintable(QString::number(growth)));
        QVERIFY(host.quit());
    }
};

TEST_CLASS(tst_MinimalHost);
#include "tst_minimalhost.moc"

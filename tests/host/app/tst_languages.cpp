// SPDX-License-Identifier: MIT
#include "host/app/ElidedLabel.h"
#include "host/app/HelpWindow.h"
#include "host/app/Translators.h"
#include "host/runtime/modules/ModuleManager.h"
#include "tests/host/app/ShownProgram.h"
#include "tests/support/process/ProgramHome.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QLabel>
#include <QMenuBar>
#include <QRegularExpression>
#include <QTextBrowser>

using namespace fxhost;

namespace {

//! The program with a drawing, the browser and all windows.
struct AllWindows
{
    ShownProgram program;

    AllWindows()
    {
        QCoreApplication::setApplicationName("fxhost");
        program.host.modules().load(BROWSER_MODULE);
        program.host.setMainWindow(&program.window);
        program.host.documents().open(program.drawing("1.dwg"));
        for (const char *command : {"_HELP", "_ABOUT", "_RECENTMANAGE", "_RECENT"})
            program.enter(command);
    }
};

//! The texts of all windows, and where each is.
QMap<QString, QString> shownTexts()
{
    QMap<QString, QString> texts;
    const auto add = [&texts](const QObject *object, const QString &text) {
        if (!text.isEmpty())
            texts.insert(text, QString("%1 %2").arg(object->metaObject()->className(), object->objectName()));
    };
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (const QWidget *window : windows) {
        QObjectList objects = window->findChildren<QObject *>();
        objects.append(const_cast<QWidget *>(window));
        for (const QObject *object : qAsConst(objects)) {
            for (const char *property : {"text", "title", "windowTitle", "toolTip", "statusTip",
                                         "accessibleName", "accessibleDescription", "placeholderText"})
                add(object, object->property(property).toString());
            if (const auto *page = qobject_cast<const QTextBrowser *>(object))
                add(page, page->toPlainText());
            const auto *view = qobject_cast<const QAbstractItemView *>(object);
            for (int column = 0; view && view->model() && column < view->model()->columnCount(); ++column)
                add(view, view->model()->headerData(column, Qt::Horizontal).toString());
        }
    }
    return texts;
}

//! A made-up language with longer words than any other.
class LongWords : public QTranslator
{
public:
    explicit LongWords(Qt::LayoutDirection direction) : m_direction(direction) {}

    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *text, const char *, int) const override
    {
        if (qstrcmp(context, "QGuiApplication") == 0 && qstrcmp(text, "QT_LAYOUT_DIRECTION") == 0)
            return m_direction == Qt::RightToLeft ? "RTL" : "LTR";
        const QString source = QString::fromUtf8(text);
        return source + ' ' + QString((source.size() + 1) / 2, 'w');
    }

private:
    Qt::LayoutDirection m_direction;
};

} // namespace

class tst_Languages : public TestCase
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        QLocale::setDefault(QLocale::c());
        QApplication::setLayoutDirection(Qt::LeftToRight);
        TestCase::cleanup();
    }

    void noEnglishIsLeft_data()
    {
        QTest::addColumn<QLocale>("locale");
        QTest::newRow("German") << QLocale(QLocale::German, QLocale::Switzerland);
        QTest::newRow("French") << QLocale(QLocale::French, QLocale::Canada);
    }

    void noEnglishIsLeft()
    {
        QMap<QString, QString> english;
        {
            const AllWindows windows;
            english = shownTexts();
        }
        QVERIFY(english.contains("&File"));
        QFETCH(QLocale, locale);
        QLocale::setDefault(locale);
        const Translators translators;
        const AllWindows windows;
        const QMap<QString, QString> texts = shownTexts();
        for (auto text = texts.begin(); text != texts.end(); ++text) {
            // Names, paths and commands are the same in each language.
            static const QRegularExpression noWords("^([^a-z]|fxhost|\\S*/\\S*|\\S+\\.dwg)*$",
                                                    QRegularExpression::CaseInsensitiveOption);
            QVERIFY2(!english.contains(text.key()) || noWords.match(text.key()).hasMatch(),
                     qPrintable(text.value() + ": " + text.key()));
        }
    }

    void theProgramUsesTheUsersLanguages()
    {
        const ProgramHome home;
        const QString script = home.write("script", "_NOSUCH\n_PROBE translate RecentDocMainWindow\n_QUIT\n");
        const QStringList withBrowser{"--module",  BROWSER_MODULE, "--module", PROBE_MODULE,
                                      "--profile", home.profile(), "--script", script};
        const struct
        {
            const char *languages = nullptr;
            QStringList arguments;
            const char *text = nullptr;
        } starts[] = {
            {"xx:de:fr", {"--help"}, "Zeichnungen"},
            {"xx:de:fr", {"--no-module", "--profile", home.profile(), "--script", script}, "gibt es nicht"},
            {"xx:de:fr", withBrowser, "\nZuletzt verwendete Dokumente\n"},
            {"en:de", withBrowser, "\nRecentDocMainWindow\n"}, // as in the sources
            {"ar", {"--help"}, "Options:"}};                   // not partly in a language that only Qt has
        for (const auto &start : starts) {
            QProcess program;
            program.setProcessChannelMode(QProcess::MergedChannels);
            home.startBare(program, start.arguments, {"env", QString("LANGUAGE=") + start.languages});
            QVERIFY(program.waitForFinished(patience));
            const QByteArray output = program.readAll();
            QVERIFY2(output.contains(start.text), output.constData());
        }
    }

    void longTextsFit_data()
    {
        QTest::addColumn<Qt::LayoutDirection>("direction");
        QTest::newRow("left to right") << Qt::LeftToRight;
        QTest::newRow("right to left") << Qt::RightToLeft;
    }

    void longTextsFit()
    {
        QFETCH(Qt::LayoutDirection, direction);
        LongWords words(direction);
        QCoreApplication::installTranslator(&words);
        AllWindows windows;
        drainEvents();
        QCOMPARE(QApplication::layoutDirection(), direction);
        const QList<QWidget *> widgets = windows.program.window.findChildren<QWidget *>();
        for (const QWidget *widget : widgets) {
            // The sizes in the browser's popup do not depend on the language, and some labels elide their
            // text.
            const bool isOurs =
                !widget->window()->inherits("CFxDialog") && !qobject_cast<const ElidedLabel *>(widget);
            const auto *label = qobject_cast<const QLabel *>(widget);
            if (!isOurs || !widget->isVisible() || !(label || qobject_cast<const QAbstractButton *>(widget)))
                continue;
            const QSize needed = label && label->wordWrap() ? QSize(0, label->heightForWidth(label->width()))
                                                            : widget->minimumSizeHint();
            QVERIFY2(widget->size().expandedTo(needed) == widget->size(),
                     qPrintable(widget->property("text").toString()));
        }
        const QWidgetList shown = QApplication::topLevelWidgets();
        for (const QWidget *window : shown)
            QVERIFY2(window->minimumSizeHint().boundedTo({1366, 768}) == window->minimumSizeHint(),
                     window->metaObject()->className());
    }
};

TEST_CLASS(tst_Languages);
#include "tst_languages.moc"

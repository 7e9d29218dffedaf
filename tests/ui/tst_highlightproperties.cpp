// SPDX-License-Identifier: MIT
#include "module/RecentDocumentBrowser.h"
#include "tests/support/Browser.h"
#include "tests/support/Property.h"
#include "tests/support/TestCase.h"
#include "tests/ui/HighlightModel.h"
#include "tests/ui/HighlightSteps.h"
#include "ui/RecentDocDialog.h"
#include "ui/RecentDocMainWindow.h"

#include <QApplication>
#include <QGraphicsEffect>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPointer>

#include <sstream>

namespace {

const QColor highlightColor(0, 0, 150, 100);
const QColor restingColor(248, 248, 248, 255);

//! What a user sees of the highlight; tiles by their number from 0.
struct Sight
{
    std::vector<int> highlighted;
    QString pathLine;

    bool operator==(const Sight &other) const
    {
        return highlighted == other.highlighted && pathLine == other.pathLine;
    }
};

std::ostream &operator<<(std::ostream &out, const Sight &sight)
{
    out << "tiles";
    for (const int tile : sight.highlighted)
        out << ' ' << tile + 1;
    return out << " and path line \"" << sight.pathLine.toStdString() << '"';
}

//! A real popup on a case's documents. Its tiles get what is sent to them and nothing else: the path line
//! would follow the pointer and the focus too, and those are not part of a case.
class RealPopup : public QObject
{
public:
    explicit RealPopup(const HighlightCase &tried)
    {
        QStringList documents;
        for (int i = 1; i <= tried.documents; ++i)
            documents.append(QStringLiteral("/d/%1.dwg").arg(i)); // short, so that the path line never cuts
        m_browser.host.setRecent(documents);
        m_browser.host.mainWindow().setGeometry(0, 0, HighlightCase::frames[tried.frame].width, 800);
        m_browser.createDocument();

        // A cache that is empty would be filled anew: an entry that no document has keeps it from that.
        auto &cache = RecentDocumentBrowser::recentFileImageMap;
        cache = {{QStringLiteral("/d/of no document.dwg"), QImage()}};
        const std::vector<bool> hasTile = tried.hasTile();
        for (int i = 0; i < documents.size(); ++i) {
            if (!hasTile.at(static_cast<std::size_t>(i)))
                continue;
            cache.insert(documents.at(i), QImage());
            m_paths.append(documents.at(i));
        }

        // Not a pixel of it is looked at, and a window for each case would take most of the time and tell of
        // each what the platform cannot do.
        m_popup = new RecentDocMainWindow(&m_browser.host.mainWindow());
        m_popup->setAttribute(Qt::WA_DontShowOnScreen);
        m_popup->show();
        m_popup->setFocus(); // as the command does that opens it
        QApplication::setActiveWindow(m_popup);
        m_tiles = m_browser.tiles();
        for (RecentDocDialog *tile : qAsConst(m_tiles))
            tile->installEventFilter(this);
    }

    //! Back to a popup that has just opened, without the time that making one takes.
    void reset()
    {
        m_popup->forwardSelectionActive = false;
        m_popup->backwardSelectionActive = false;
        m_popup->dragDialog = nullptr;
        m_popup->main_label_path->clear();
        for (RecentDocDialog *tile : qAsConst(m_tiles))
            tile->setHighlightEffect(nullptr);
        if (m_tiles.isEmpty())
            return;
        m_tiles.first()->highlight();
        m_tiles.first()->setMainWindowDocPathLabel(m_paths.first());
    }

    //! The documents with a tile, in the order the tiles should have.
    QStringList paths() const { return m_paths; }
    QStringList tilePaths() const
    {
        QStringList paths;
        for (const RecentDocDialog *tile : m_tiles)
            paths.append(tile->path());
        return paths;
    }
    int columns() const { return m_popup->tileColumns; }
    bool hasFocus() const { return QApplication::focusWidget() == m_popup; }

    void key(const HighlightStep &step)
    {
        QWidget *receiver = m_popup;
        if (step.kind == HighlightStep::KeyOnTile)
            receiver = m_tiles.at(step.tile % m_tiles.size());
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            if (!m_popup || !m_popup->isVisible())
                return;
            QKeyEvent event(type, step.key, step.modifiers);
            QCoreApplication::sendEvent(receiver, &event);
        }
    }

    void mouse(QEvent::Type type, const HighlightStep &step)
    {
        QWidget *tile = m_tiles.at(step.tile % m_tiles.size());
        const QPoint middle = tile->rect().center();
        const Qt::MouseButtons held =
            type == QEvent::MouseButtonPress ? Qt::MouseButtons(step.button) : Qt::NoButton;
        QMouseEvent event(type, middle, tile->mapToGlobal(middle), step.button, held, step.modifiers);
        QCoreApplication::sendEvent(tile, &event);
    }

    Sight seen() const
    {
        Sight sight{{}, m_popup->main_label_path->text()};
        for (int i = 0; i < m_tiles.size(); ++i) {
            const QGraphicsEffect *effect = m_tiles.at(i)->graphicsEffect();
            const auto color = effect ? effect->property("color").value<QColor>() : restingColor;
            if (color == highlightColor)
                sight.highlighted.push_back(i);
            else if (color != restingColor)
                RC_FAIL("tile " + std::to_string(i + 1) + " is neither highlighted nor at rest");
        }
        return sight;
    }

    bool isOpen() const { return m_popup && m_popup->isVisible(); }
    bool isGone() const
    {
        drainEvents();
        return !m_popup;
    }
    QStringList opened() const { return m_browser.host.openedPaths(); }
    //! Pointer and focus events that tiles were given by others.
    int strayEvents() const { return m_strayEvents; }

protected:
    bool eventFilter(QObject * /*tile*/, QEvent *event) override
    {
        switch (event->type()) {
        case QEvent::Enter:
        case QEvent::Leave:
        case QEvent::FocusIn:
        case QEvent::FocusOut:
            ++m_strayEvents;
            break;
        default:
            break;
        }
        return false;
    }

private:
    Browser m_browser;
    QPointer<RecentDocMainWindow> m_popup;
    QList<RecentDocDialog *> m_tiles;
    QStringList m_paths;
    int m_strayEvents = 0;
};

//! Popup and model side by side.
class Comparison
{
public:
    explicit Comparison(const HighlightCase &tried)
        : m_tileCount(tried.tileCount()), m_columns(tried.columns()), m_real(tried),
          m_model(m_tileCount, m_columns)
    {
        RC_ASSERT(m_real.hasFocus());
        RC_ASSERT(m_real.columns() == m_columns);
        RC_ASSERT(m_real.tilePaths() == m_real.paths());
        compare("opening");
    }

    void run(const std::vector<std::vector<HighlightStep>> &sequences)
    {
        for (std::size_t i = 0; i < sequences.size(); ++i) {
            if (i > 0) {
                m_real.reset();
                m_model = HighlightModel(m_tileCount, m_columns);
                compare("opening");
            }
            run(sequences.at(i));
        }
        RC_ASSERT(m_real.isGone() == m_model.isClosed());
        RC_ASSERT(m_real.strayEvents() == 0);
    }

    const HighlightModel &model() const { return m_model; }

private:
    void run(const std::vector<HighlightStep> &steps)
    {
        int number = 0;
        for (const HighlightStep &step : steps) {
            ++number;
            if (m_tileCount > 0 ||
                step.kind == HighlightStep::KeyOnPopup) // else there is no tile to do it to
                take(step, std::to_string(number) + ". " + step.inWords(m_tileCount));
        }
    }

    void take(const HighlightStep &step, const std::string &words)
    {
        if (step.isKey()) {
            m_real.key(step);
            m_model.key(step.key, step.modifiers);
            compare(words);
            return;
        }
        const int tile = step.tile % m_tileCount;
        if (step.kind != HighlightStep::Release) {
            m_real.mouse(QEvent::MouseButtonPress, step);
            m_model.press(tile, step.button, step.modifiers);
            compare(words + (step.kind == HighlightStep::Click ? " (its press)" : ""));
        }
        if (step.kind != HighlightStep::Press) {
            m_real.mouse(QEvent::MouseButtonRelease, step);
            m_model.release(tile, step.modifiers);
            compare(words);
        }
    }

    void compare(const std::string &after) const
    {
        std::ostringstream difference;
        difference << "after " << after << ": ";
        if (m_real.isOpen() == m_model.isClosed()) {
            RC_FAIL(difference.str() + (m_model.isClosed() ? "still open" : "closed"));
        }
        const QStringList due = pathsOf(m_model.opened());
        if (m_real.opened() != due) {
            difference << "opened \"" << m_real.opened().join(' ').toStdString() << "\" instead of \""
                       << due.join(' ').toStdString() << '"';
            RC_FAIL(difference.str());
        }
        if (m_model.isClosed())
            return;
        const Sight seen = m_real.seen();
        const Sight expected{m_model.highlighted(), m_model.pathLine() == HighlightModel::none
                                                        ? QString()
                                                        : m_real.paths().at(m_model.pathLine())};
        if (!(seen == expected)) {
            difference << seen << " instead of " << expected;
            RC_FAIL(difference.str());
        }
    }

    QStringList pathsOf(const std::vector<int> &tiles) const
    {
        QStringList paths;
        for (const int tile : tiles)
            paths.append(m_real.paths().at(tile));
        return paths;
    }

    int m_tileCount;
    int m_columns;
    RealPopup m_real;
    HighlightModel m_model;
};

} // namespace

class TestHighlightProperties : public TestCase
{
    Q_OBJECT

private slots:
    void keysAndMouseDoWhatTheRulesSay();
};

void TestHighlightProperties::keysAndMouseDoWhatTheRulesSay()
{
    const auto property = [](const HighlightCase &tried) {
        Comparison comparison(tried);
        comparison.run(tried.sequences);
        const std::size_t opened = comparison.model().opened().size();
        RC_CLASSIFY(opened == 1, "opens one");
        RC_CLASSIFY(opened > 1, "opens several");
        RC_CLASSIFY(comparison.model().isClosed() && opened == 0, "escapes");
        RC_CLASSIFY(!comparison.model().isClosed(), "stays open");
        RC_CLASSIFY(tried.tileCount() < tried.documents, "has documents without tile");
    };
    constexpr int cases = 1800 / HighlightCase::sequenceCount;
    QVERIFY(holds("keys and mouse do to the highlight what the rules say", property, cases));
}

QTEST_MAIN(TestHighlightProperties)
#include "tst_highlightproperties.moc"

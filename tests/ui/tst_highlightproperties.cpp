// SPDX-License-Identifier: MIT
#include "tests/support/OpenGrid.h"
#include "tests/support/Property.h"
#include "tests/ui/HighlightModel.h"
#include "tests/ui/HighlightSteps.h"

#include <QApplication>
#include <QMouseEvent>

#include <algorithm>
#include <iterator>

namespace {

//! What a user sees of the highlight, in words; tiles by their number from 0.
std::string inWords(const QList<int> &highlighted, const QString &pathLine)
{
    std::string words = "tiles";
    for (const int tile : highlighted)
        words += ' ' + std::to_string(tile);
    return words + " and path line \"" + pathLine.toStdString() + '"';
}

//! A real popup on a case's documents. Its tiles get what is sent to them and nothing else: the path line
//! would follow the pointer and the focus too, and those are not part of a case.
class RealPopup : public QObject
{
public:
    explicit RealPopup(const HighlightCase &tried)
    {
        // A cache that is empty would be filled anew: an entry that no document has keeps it from that.
        QMap<QString, QImage> cache = {{QStringLiteral("/d/of no document.dwg"), QImage()}};
        const QVector<bool> hasTile = tried.hasTile();
        QStringList documents;
        for (int i = 0; i < tried.documents; ++i) {
            documents.append(QStringLiteral("/d/%1.dwg").arg(i)); // short, so that the path line never cuts
            if (hasTile.at(i)) {
                cache.insert(documents.last(), QImage());
                m_paths.append(documents.last());
            }
        }
        m_browser.host.setRecent(documents);
        m_browser.host.mainWindow().setGeometry(0, 0, tried.frameWidth(), 800);
        m_browser.createDocument();
        RecentDocumentBrowser::recentFileImageMap = cache;

        // Not a pixel of it is looked at, and a window for each case would take most of the time and tell of
        // each what the platform cannot do.
        m_popup = new RecentDocMainWindow(&m_browser.host.mainWindow());
        m_popup->setAttribute(Qt::WA_DontShowOnScreen);
        m_popup->show();
        m_popup->setFocus(); // as the command does that opens it
        QApplication::setActiveWindow(m_popup);
        m_tiles = m_browser.tiles();
        QStringList tilePaths;
        for (RecentDocDialog *tile : qAsConst(m_tiles)) {
            tile->installEventFilter(this);
            tilePaths.append(tile->path());
        }
        RC_ASSERT(tilePaths == m_paths);
        RC_ASSERT(m_popup->tileColumns == tried.columns);
        RC_ASSERT(QApplication::focusWidget() == m_popup);
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

    //! The documents with a tile, in the order of the tiles.
    QStringList paths() const { return m_paths; }

    void key(const HighlightStep &step)
    {
        QWidget *receiver = m_popup;
        if (step.kind == HighlightStep::KeyOnTile)
            receiver = m_tiles.at(step.tile % m_tiles.size());
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            if (!isOpen())
                return;
            QKeyEvent event(type, step.key, step.modifiers);
            QCoreApplication::sendEvent(receiver, &event);
        }
    }

    void mouse(QEvent::Type type, int index, const HighlightStep &step)
    {
        QWidget *tile = m_tiles.at(index);
        const QPoint middle = tile->rect().center();
        const Qt::MouseButtons held =
            type == QEvent::MouseButtonPress ? Qt::MouseButtons(step.button) : Qt::NoButton;
        QMouseEvent event(type, middle, tile->mapToGlobal(middle), step.button, held, step.modifiers);
        QCoreApplication::sendEvent(tile, &event);
    }

    void toggle(int index)
    {
        RecentDocDialog *tile = m_tiles.at(index);
        if (tile->isHighlighted())
            tile->clearHighlight();
        else
            tile->highlight();
    }

    std::string seen() const { return inWords(highlightedIn(m_tiles), m_popup->main_label_path->text()); }

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
        constexpr QEvent::Type stray[] = {QEvent::Enter, QEvent::Leave, QEvent::FocusIn, QEvent::FocusOut};
        if (std::find(std::begin(stray), std::end(stray), event->type()) != std::end(stray))
            ++m_strayEvents;
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
        : m_tileCount(tried.tileCount()), m_columns(tried.columns), m_real(tried),
          m_model(m_tileCount, m_columns)
    {
        compare("opening");
        for (std::size_t i = 0; i < tried.sequences.size(); ++i) {
            if (i > 0) {
                m_real.reset();
                m_model = HighlightModel(m_tileCount, m_columns);
                compare("opening");
            }
            for (const HighlightStep &step : tried.sequences.at(i)) {
                if (m_tileCount > 0 || step.kind == HighlightStep::KeyOnPopup) // else there is no such tile
                    take(step);
            }
        }
        RC_ASSERT(m_real.isGone() == m_model.isClosed());
        RC_ASSERT(m_real.strayEvents() == 0);
    }

    const HighlightModel &model() const { return m_model; }

private:
    void take(const HighlightStep &step)
    {
        const std::string words = step.inWords(m_tileCount);
        if (step.isKey()) {
            m_real.key(step);
            m_model.key(step.key, step.modifiers);
            compare(words);
            return;
        }
        const int tile = step.tile % m_tileCount;
        if (step.kind == HighlightStep::Toggle) {
            m_real.toggle(tile);
            m_model.toggle(tile);
            compare(words);
            return;
        }
        if (step.kind != HighlightStep::Release) {
            m_real.mouse(QEvent::MouseButtonPress, tile, step);
            m_model.press(tile, step.button, step.modifiers);
            compare("the press of " + words);
        }
        if (step.kind != HighlightStep::Press) {
            m_real.mouse(QEvent::MouseButtonRelease, tile, step);
            m_model.release(tile, step.modifiers);
            compare(words);
        }
    }

    void compare(const std::string &after) const
    {
        QStringList due;
        for (const int tile : m_model.opened())
            due.append(m_real.paths().at(tile));
        if (m_real.isOpen() == m_model.isClosed() || m_real.opened() != due) {
            RC_FAIL("after " + after + (m_real.isOpen() ? ": open, " : ": closed, ") +
                    m_real.opened().join(' ').toStdString() + " instead of " + due.join(' ').toStdString());
        }
        if (m_model.isClosed())
            return;
        const bool showsPath = m_model.pathLine() != HighlightModel::none;
        const std::string expected =
            inWords(m_model.highlighted(), showsPath ? m_real.paths().at(m_model.pathLine()) : QString());
        if (m_real.seen() != expected)
            RC_FAIL("after " + after + ": " + m_real.seen() + " instead of " + expected);
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
        const Comparison comparison(tried);
        const int opened = comparison.model().opened().size();
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

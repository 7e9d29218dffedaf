// SPDX-License-Identifier: MIT
#include "tests/support/Property.h"
#include "tests/ui/HighlightModel.h"
#include "tests/ui/OpenGrid.h"

#include <QApplication>
#include <QMouseEvent>

#include <algorithm>
#include <ostream>

namespace {

//! What a user does to an open popup, to be tried at random. Numbers count modulo what the popup has, so that
//! any part of a sequence is a sequence too, which the search for the smallest failing one needs.
struct HighlightStep
{
    enum Kind {
        KeyOnPopup,
        KeyOnTile, //!< which passes it on
        Press,
        Release,
        Click,
        Toggle, //!< of a tile's highlight, by other code
    };

    Kind kind = KeyOnPopup;
    int key = 0;
    Qt::MouseButton button = Qt::NoButton;
    Qt::KeyboardModifiers modifiers;
    int tile = 0;

    bool isKey() const { return kind == KeyOnPopup || kind == KeyOnTile; }
    std::string inWords(int tileCount) const
    {
        const char *const kinds[] = {"key", "key", "press", "release", "click", "toggle"};
        QString words;
        QDebug text(&words);
        text << kinds[kind];
        if (kind != Toggle)
            text << modifiers;
        if (isKey())
            text << Qt::Key(key);
        else if (kind != Toggle)
            text << "button" << int(button);
        if (kind != KeyOnPopup)
            text << "on tile" << tile % std::max(tileCount, 1);
        return words.toStdString();
    }
};

//! A popup and what is done to it: many steps, since making a popup takes far longer than a step; and a last
//! key, which may close it.
struct HighlightCase
{
    int documents = 0;
    std::vector<int> withoutTile; //!< documents that the thumbnail cache lacks, modulo documents
    int width = 0;                //!< of the host's main window, in pixels
    std::vector<HighlightStep> steps;
    HighlightStep last;

    //! For each document whether it has a tile.
    QVector<bool> hasTile() const
    {
        QVector<bool> has(documents, true);
        for (const int document : withoutTile) {
            if (documents > 0)
                has[document % documents] = false;
        }
        return has;
    }
    int tileCount() const { return hasTile().count(true); }
};

void showValue(const HighlightCase &tried, std::ostream &out)
{
    const QVector<bool> has = tried.hasTile();
    out << "beside a window " << tried.width << " pixels wide, tiles for these of " << tried.documents
        << " documents:";
    for (int document = 0; document < has.size(); ++document) {
        if (has.at(document))
            out << ' ' << document;
    }
    for (const HighlightStep &step : tried.steps)
        out << "\n  " << step.inWords(tried.tileCount());
    out << "\n at last: " << tried.last.inWords(tried.tileCount());
}

constexpr std::size_t mostDocuments = 30;

// All entries are equally likely; failing cases are reduced towards the first.
const std::vector<int> triedKeys = {
    Qt::Key_Right,  Qt::Key_Left,   Qt::Key_Down,     Qt::Key_Up,      Qt::Key_Tab,   Qt::Key_Right,
    Qt::Key_Left,   Qt::Key_Down,   Qt::Key_Up,       Qt::Key_Right,   Qt::Key_Left,  Qt::Key_Right,
    Qt::Key_Left,   Qt::Key_Right,  Qt::Key_Left,     Qt::Key_Backtab, Qt::Key_Space, Qt::Key_Home,
    Qt::Key_End,    Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Delete,  Qt::Key_A,     Qt::Key_F4,
    Qt::Key_Select, Qt::Key_Shift,  Qt::Key_Control,
};
const std::vector<int> triedLastKeys = {Qt::Key_Shift, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Return,
                                        Qt::Key_Escape};
const std::vector<Qt::MouseButton> triedButtons = {
    Qt::LeftButton, Qt::LeftButton, Qt::LeftButton, Qt::LeftButton, Qt::RightButton, Qt::MiddleButton,
};
const std::vector<HighlightStep::Kind> triedKinds = {
    HighlightStep::KeyOnPopup, HighlightStep::KeyOnPopup, HighlightStep::KeyOnPopup,
    HighlightStep::KeyOnPopup, HighlightStep::KeyOnPopup, HighlightStep::KeyOnTile,
    HighlightStep::Click,      HighlightStep::Click,      HighlightStep::Press,
    HighlightStep::Release,    HighlightStep::Toggle,
};

// With these the popup's grid has 2, 3, 4 and 5 columns.
const std::vector<int> triedWidths = {950, 800, 500, 1920};

std::vector<Qt::KeyboardModifiers> triedModifiers()
{
    std::vector<Qt::KeyboardModifiers> all(8, Qt::NoModifier);
    all.insert(all.end(), 12, Qt::ShiftModifier);
    all.insert(all.end(), 6, Qt::ControlModifier);
    all.insert(all.end(), {Qt::NoModifier, Qt::AltModifier, Qt::MetaModifier, Qt::KeypadModifier,
                           Qt::GroupSwitchModifier, Qt::ShiftModifier | Qt::ControlModifier,
                           Qt::ShiftModifier | Qt::KeypadModifier, Qt::ControlModifier | Qt::KeypadModifier,
                           Qt::ShiftModifier | Qt::AltModifier, Qt::ControlModifier | Qt::AltModifier});
    return all;
}

//! Any number from 0 and below end, in all cases: small cases are short, but not simple.
rc::Gen<int> below(std::size_t end)
{
    return rc::gen::resize(rc::kNominalSize, rc::gen::inRange(0, static_cast<int>(end)));
}

template<class T>
rc::Gen<T> oneOf(const std::vector<T> &entries)
{
    return rc::gen::map(below(entries.size()),
                        [entries](int index) { return entries.at(static_cast<std::size_t>(index)); });
}

rc::Gen<HighlightStep> stepsOf(const std::vector<HighlightStep::Kind> &kinds, const std::vector<int> &keys)
{
    return rc::gen::build<HighlightStep>(rc::gen::set(&HighlightStep::kind, oneOf(kinds)),
                                         rc::gen::set(&HighlightStep::key, oneOf(keys)),
                                         rc::gen::set(&HighlightStep::button, oneOf(triedButtons)),
                                         rc::gen::set(&HighlightStep::modifiers, oneOf(triedModifiers())),
                                         rc::gen::set(&HighlightStep::tile, below(mostDocuments)));
}

rc::Gen<std::vector<int>> documentsWithoutTile()
{
    constexpr int most = 12;
    const auto some = rc::gen::resize(most, rc::gen::container<std::vector<int>>(below(mostDocuments)));
    return rc::gen::oneOf(rc::gen::just(std::vector<int>()), some);
}

rc::Gen<HighlightCase> anyCase()
{
    constexpr int longer = 12; // than the usual containers
    const auto steps = rc::gen::container<std::vector<HighlightStep>>(stepsOf(triedKinds, triedKeys));
    return rc::gen::build<HighlightCase>(
        rc::gen::set(&HighlightCase::documents, below(mostDocuments + 1)),
        rc::gen::set(&HighlightCase::withoutTile, documentsWithoutTile()),
        rc::gen::set(&HighlightCase::width, oneOf(triedWidths)),
        rc::gen::set(&HighlightCase::steps, rc::gen::scale(longer, steps)),
        rc::gen::set(&HighlightCase::last,
                     stepsOf({HighlightStep::KeyOnPopup, HighlightStep::KeyOnTile}, triedLastKeys)));
}

//! What a user sees of the highlight, in words; tiles by their number from 0.
std::string sightOf(const QList<int> &highlighted, const QString &pathLine)
{
    std::string words = "tiles";
    for (const int tile : highlighted)
        words += ' ' + std::to_string(tile);
    return words + " and path line \"" + pathLine.toStdString() + '"';
}

//! The popup of a case's documents. Its tiles receive only the events of the case: the path line would follow
//! the pointer and the focus too.
class RealPopup
{
public:
    explicit RealPopup(const HighlightCase &tried)
    {
        // An empty cache would be filled: an entry without a document prevents that.
        QMap<QString, QImage> cache = {{QStringLiteral("/d/of no document.dwg"), QImage()}};
        const QVector<bool> hasTile = tried.hasTile();
        QStringList documents;
        for (int i = 0; i < tried.documents; ++i) {
            documents.append(QStringLiteral("/d/%1.dwg").arg(i)); // short: the path line shows all of it
            if (hasTile.at(i)) {
                cache.insert(documents.last(), QImage());
                m_paths.append(documents.last());
            }
        }
        m_browser.host.setRecent(documents);
        m_browser.host.mainWindow().setGeometry(0, 0, tried.width, 800);
        m_browser.createDocument();
        RecentDocumentBrowser::recentFileImageMap = cache;

        // Its pixels are not compared, and a window for each case would take most of the time and print a
        // warning of the platform each time.
        m_popup = new RecentDocMainWindow(&m_browser.host.mainWindow());
        m_popup->setAttribute(Qt::WA_DontShowOnScreen);
        m_popup->show();
        m_popup->setFocus(); // as the command does that opens it
        QApplication::setActiveWindow(m_popup);
        m_tiles = m_browser.tiles();
        QStringList tilePaths;
        for (const RecentDocDialog *tile : qAsConst(m_tiles))
            tilePaths.append(tile->path());
        RC_ASSERT(tilePaths == m_paths);
        RC_ASSERT(QApplication::focusWidget() == m_popup);
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

    std::string seen() const { return sightOf(highlightedIn(m_tiles), m_popup->main_label_path->text()); }

    int columns() const { return m_popup->tileColumns; }
    bool isOpen() const { return m_popup && m_popup->isVisible(); }
    bool isDeleted() const
    {
        drainEvents();
        return !m_popup;
    }
    QStringList opened() const { return m_browser.host.openedPaths(); }

private:
    FakeBrowser m_browser;
    QPointer<RecentDocMainWindow> m_popup;
    QList<RecentDocDialog *> m_tiles;
    QStringList m_paths;
};

//! Popup and model side by side.
class Comparison
{
public:
    explicit Comparison(const HighlightCase &tried)
        : m_tileCount(tried.tileCount()), m_real(tried), m_model(m_tileCount, m_real.columns())
    {
        compare("opening");
        for (const HighlightStep &step : tried.steps)
            take(step);
        take(tried.last);
        RC_ASSERT(m_real.isDeleted() == m_model.isClosed());
    }

private:
    void take(const HighlightStep &step)
    {
        if (m_tileCount == 0 && step.kind != HighlightStep::KeyOnPopup)
            return; // there is no such tile
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
        const QList<int> opened = m_model.opened();
        for (const int tile : opened)
            due.append(m_real.paths().at(tile));
        if (m_real.isOpen() == m_model.isClosed() || m_real.opened() != due) {
            RC_FAIL("after " + after + (m_real.isOpen() ? ": open, " : ": closed, ") +
                    m_real.opened().join(' ').toStdString() + " instead of " + due.join(' ').toStdString());
        }
        if (m_model.isClosed())
            return;
        const bool showsPath = m_model.pathLine() != HighlightModel::none;
        const std::string expected =
            sightOf(m_model.highlighted(), showsPath ? m_real.paths().at(m_model.pathLine()) : QString());
        if (m_real.seen() != expected)
            RC_FAIL("after " + after + ": " + m_real.seen() + " instead of " + expected);
    }

    int m_tileCount;
    RealPopup m_real;
    HighlightModel m_model;
};

} // namespace

class tst_HighlightProperties : public TestCase
{
    Q_OBJECT

private slots:
    void keysAndMouseFollowTheModel()
    {
        QVERIFY(holds(
            "keys and mouse change the highlight as in the model", [] { Comparison{*anyCase()}; }, 150));
    }
};

TEST_CLASS(tst_HighlightProperties);
#include "tst_highlightproperties.moc"

// SPDX-License-Identifier: MIT
#include "tests/state/PinMenu.h"
#include "tests/state/PinModel.h"
#include "tests/support/Property.h"
#include "tests/support/TestCase.h"
#include "ui/RecentDocMainWindow.h"

#include <algorithm>
#include <memory>

namespace {

enum class Action { ClickMenuPin, SetMenuPin, Update, OpenPopup, ClosePopup, ClickTilePin, CreateDocument };

struct Step
{
    Action action;
    int which; //!< of the pins or tiles, counted around
};

//! What the user and the host do in turn.
struct Sequence
{
    bool inHostsMenu;           //!< else, and after CreateDocument, in the module's hidden one
    std::vector<QString> paths; //!< of the recent documents
    std::vector<Step> steps;
};

void showValue(const Sequence &sequence, std::ostream &out)
{
    static const char *const names[] = {"click menu pin", "set menu pin",   "update",         "open popup",
                                        "close popup",    "click tile pin", "create document"};
    out << (sequence.inHostsMenu ? "a host's menu" : "the hidden menu") << " with";
    for (const QString &path : sequence.paths)
        out << " \"" << path.toStdString() << '"';
    for (const Step &step : sequence.steps)
        out << "\n  " << names[int(step.action)] << ' ' << step.which;
}

//! Some are equal, some differ only in case or blanks, some look like the numbers before them.
rc::Gen<std::string> anyPath()
{
    using namespace rc;
    return gen::weightedOneOf<std::string>(
        {{2, gen::element<std::string>("a", "A", "a b", " a", "a ", "&10 a", "&1", "10", "/d/a.dwg")},
         {3, gen::nonEmpty(gen::container<std::string>(gen::elementOf(std::string("ab B&10/."))))}});
}

//! Up to 30 of them, mostly few.
rc::Gen<std::vector<std::string>> anyPaths()
{
    using namespace rc;
    const auto list = gen::container<std::vector<std::string>>(gen::resize(8, anyPath()));
    return gen::weightedOneOf<std::vector<std::string>>(
        {{8, gen::resize(4, list)}, {3, gen::resize(11, list)}, {1, gen::resize(30, list)}});
}

//! \param distinct no document twice, as in hosts' lists; else some are
rc::Gen<Sequence> anySequence(const std::vector<Action> &actions, bool distinct)
{
    using namespace rc;
    const auto step = gen::construct<Step>(gen::elementOf(actions), gen::inRange(0, 30));
    return gen::map(gen::tuple(gen::arbitrary<bool>(), anyPaths(),
                               gen::resize(16, gen::container<std::vector<Step>>(step))),
                    [distinct](const std::tuple<bool, std::vector<std::string>, std::vector<Step>> &parts) {
                        Sequence sequence{std::get<0>(parts), {}, std::get<2>(parts)};
                        for (const std::string &text : std::get<1>(parts)) {
                            const QString path = QString::fromStdString(text);
                            if (!distinct || std::find(sequence.paths.begin(), sequence.paths.end(), path) ==
                                                 sequence.paths.end())
                                sequence.paths.push_back(path);
                        }
                        return sequence;
                    });
}

//! The module and the model in the same sequence of actions.
class SideBySide
{
public:
    //! \param withTiles whether the pictures of documents are known, so that popups have tiles
    SideBySide(const Sequence &sequence, bool withTiles) : m_paths(sequence.paths), m_withTiles(withTiles)
    {
        QStringList paths;
        for (const QString &path : m_paths)
            paths.append(path);
        m_inHost.host.setRecent(paths);
        if (sequence.inHostsMenu) {
            m_create = m_hostsMenu.addAction(QStringLiteral("New"));
            m_quit = m_hostsMenu.addAction(QStringLiteral("Quit"));
        }
        RecentDocumentBrowser::AddRecentFiles(&m_hostsMenu, m_quit);
        m_model.build(m_paths, sequence.inHostsMenu);
        noteObjects();
    }
    ~SideBySide() { m_popup.reset(); }
    Q_DISABLE_COPY(SideBySide)

    void take(const Step &step)
    {
        const auto which = std::size_t(step.which);
        switch (step.action) {
        case Action::ClickMenuPin:
        case Action::SetMenuPin:
            if (!m_model.order.empty())
                switchMenuPin(int(which % m_model.order.size()), step.action == Action::ClickMenuPin);
            break;
        case Action::Update:
            updatePins();
            m_model.update();
            break;
        case Action::OpenPopup:
            openPopup();
            break;
        case Action::ClosePopup:
            m_popup.reset();
            break;
        case Action::ClickTilePin:
            // Documents listed twice multiply with each click; a few are enough.
            if (m_popup && !m_model.tiles.empty() && m_model.tiles.size() * m_model.order.size() < 1000) {
                const std::size_t tile = which % m_model.tiles.size();
                RecentDocumentBrowser::docPinButtonList.at(int(tile))->click();
                m_model.clickTile(tile);
            }
            break;
        case Action::CreateDocument:
            m_inHost.documentReactor().DocumentCreated(nullptr);
            if (!m_paths.empty()) {
                m_model.build(m_paths, false);
                noteObjects();
            }
            break;
        }
    }

    //! Everything that can be seen of the order, line by line.
    std::string inModule() const
    {
        std::ostringstream text;
        const QList<QAction *> actions = RecentDocumentBrowser::recentDocMenu->actions();
        for (QAction *action : actions)
            text << line(m_entries.indexOf(action), action) << '\n';
        for (QAction *action : qAsConst(RecentDocumentBrowser::recentDocActionList))
            text << "listed " << m_entries.indexOf(action) << ' ' << action->text().toStdString() << '\n';
        for (FolderPinButton *pin : qAsConst(RecentDocumentBrowser::menuPinButtonList))
            text << "pin " << m_pins.indexOf(pin) << (pin->isChecked() ? " down\n" : " up\n");
        if (m_popup) {
            for (FolderPinButton *pin : qAsConst(RecentDocumentBrowser::docPinButtonList))
                text << "tile " << pin->path().toStdString() << (pin->isChecked() ? " down\n" : " up\n");
        }
        return text.str();
    }
    std::string inModel() const
    {
        std::ostringstream text;
        for (const int item : m_model.menu) {
            text << item;
            if (item >= 0)
                text << ' ' << m_model.entries[std::size_t(item)].shown.toStdString();
            text << '\n';
        }
        for (std::size_t i = 0; i < m_model.entries.size(); ++i)
            text << "listed " << i << ' ' << m_model.entries[i].ownText.toStdString() << '\n';
        for (const int pin : m_model.order)
            text << "pin " << pin << (m_model.pins[std::size_t(pin)].checked ? " down\n" : " up\n");
        if (m_popup) {
            for (const PinModel::Pin &tile : m_model.tiles)
                text << "tile " << tile.path.toStdString() << (tile.checked ? " down\n" : " up\n");
        }
        return text.str();
    }

    const PinModel &model() const { return m_model; }

private:
    std::string line(int entry, QAction *action) const
    {
        if (entry >= 0) {
            const auto *file = qobject_cast<const RecentFileAction *>(action);
            return std::to_string(entry) + ' ' + file->textButton->text().toStdString();
        }
        return std::to_string(action->isSeparator() ? PinModel::separator
                              : action == m_create  ? PinModel::create
                              : action == m_quit    ? PinModel::quit
                                                    : PinModel::none);
    }

    void noteObjects()
    {
        m_entries = RecentDocumentBrowser::recentDocActionList;
        m_pins = RecentDocumentBrowser::menuPinButtonList;
    }

    void switchMenuPin(int place, bool byClick)
    {
        FolderPinButton *pin = RecentDocumentBrowser::menuPinButtonList.at(place);
        PinModel::Pin &modelled = m_model.pins[std::size_t(m_model.order[std::size_t(place)])];
        modelled.checked = !modelled.checked;
        if (byClick) {
            pin->click();
            m_model.update();
        } else {
            pin->setChecked(!pin->isChecked());
        }
    }

    void openPopup()
    {
        RecentDocumentBrowser::recentFileImageMap.clear();
        if (!m_withTiles) // a cache that knows none of the documents
            RecentDocumentBrowser::recentFileImageMap.insert(QStringLiteral("/no document"), QImage());
        m_popup.reset();
        m_popup = std::make_unique<RecentDocMainWindow>(nullptr);
        m_model.openPopup(m_withTiles);
    }

    FakeModule m_inHost;
    QMenu m_hostsMenu;
    QAction *m_create = nullptr;
    QAction *m_quit = nullptr;
    std::unique_ptr<RecentDocMainWindow> m_popup;
    QList<QAction *> m_entries;
    QList<FolderPinButton *> m_pins;
    std::vector<QString> m_paths;
    bool m_withTiles;
    PinModel m_model;
};

void compare(const Sequence &sequence, bool withTiles, int &separations)
{
    SideBySide both(sequence, withTiles);
    RC_ASSERT(both.inModule() == both.inModel());
    for (const Step &step : sequence.steps) {
        both.take(step);
        RC_ASSERT(both.inModule() == both.inModel());
    }
    separations += both.model().separations > 0 ? 1 : 0;
}

} // namespace

//! Pins, clicks and openings in any order: the module follows the rules.
class tst_PinProperties : public TestCase
{
    Q_OBJECT

private slots:
    void menusFollowTheRules()
    {
        const std::vector<Action> actions = {
            Action::ClickMenuPin, Action::ClickMenuPin, Action::ClickMenuPin, Action::ClickMenuPin,
            Action::SetMenuPin,   Action::SetMenuPin,   Action::SetMenuPin,   Action::Update,
            Action::Update,       Action::Update,       Action::OpenPopup,    Action::CreateDocument};
        int separations = 0;
        QVERIFY(holds("menus follow the rules of pinned documents",
                      [&] { compare(*anySequence(actions, false), false, separations); }));
        QVERIFY2(separations > 100, "the sequences hardly ever have both pinned and unpinned documents");
    }

    void tilesFollowTheRules()
    {
        const std::vector<Action> actions = {
            Action::ClickMenuPin, Action::OpenPopup,    Action::OpenPopup,    Action::ClosePopup,
            Action::ClickTilePin, Action::ClickTilePin, Action::ClickTilePin, Action::CreateDocument};
        int separations = 0;
        // With a document listed twice each click would give more tiles.
        QVERIFY(holds(
            "tiles follow the rules of pinned documents",
            [&] { compare(*anySequence(actions, true), true, separations); }, 150));
        QVERIFY2(separations > 20, "the sequences hardly ever have both pinned and unpinned documents");
    }
};

TEST_CLASS(tst_PinProperties);
#include "tst_pinproperties.moc"

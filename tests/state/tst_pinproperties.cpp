// SPDX-License-Identifier: MIT
#include "tests/state/PinMenu.h"
#include "tests/state/PinModel.h"
#include "tests/support/Property.h"
#include "tests/support/TestCase.h"
#include "ui/RecentDocMainWindow.h"

#include <algorithm>
#include <memory>

namespace {

enum class Deed { ClickMenuPin, SetMenuPin, Update, OpenPopup, ClosePopup, ClickTilePin, CreateDocument };

struct Step
{
    Deed deed;
    int which; //!< of the pins or tiles, counted around
};

//! What a person and the host do, one after the other.
struct Story
{
    bool inHostsMenu;           //!< else, and after CreateDocument, in the module's hidden one
    std::vector<QString> paths; //!< of the recent documents
    std::vector<Step> steps;
};

void showValue(const Story &story, std::ostream &out)
{
    static const char *const names[] = {"click menu pin", "set menu pin",   "update",         "open popup",
                                        "close popup",    "click tile pin", "create document"};
    out << (story.inHostsMenu ? "a host's menu" : "the hidden menu") << " with";
    for (const QString &path : story.paths)
        out << " \"" << path.toStdString() << '"';
    for (const Step &step : story.steps)
        out << "\n  " << names[int(step.deed)] << ' ' << step.which;
}

//! Some alike, some differing in case or blanks alone, some like the numbers in front of them.
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

//! \param distinct no document twice, as hosts list them; else some are
rc::Gen<Story> anyStory(const std::vector<Deed> &deeds, bool distinct)
{
    using namespace rc;
    const auto step = gen::construct<Step>(gen::elementOf(deeds), gen::inRange(0, 30));
    return gen::map(gen::tuple(gen::arbitrary<bool>(), anyPaths(),
                               gen::resize(16, gen::container<std::vector<Step>>(step))),
                    [distinct](const std::tuple<bool, std::vector<std::string>, std::vector<Step>> &parts) {
                        Story story{std::get<0>(parts), {}, std::get<2>(parts)};
                        for (const std::string &text : std::get<1>(parts)) {
                            const QString path = QString::fromStdString(text);
                            if (!distinct ||
                                std::find(story.paths.begin(), story.paths.end(), path) == story.paths.end())
                                story.paths.push_back(path);
                        }
                        return story;
                    });
}

//! The module and the model, told the same story.
class SideBySide
{
public:
    //! \param withTiles whether the pictures of documents are known, so that popups have tiles
    SideBySide(const Story &story, bool withTiles) : m_paths(story.paths), m_withTiles(withTiles)
    {
        QStringList paths;
        for (const QString &path : m_paths)
            paths.append(path);
        m_inHost.host.setRecent(paths);
        if (story.inHostsMenu) {
            m_create = m_hostsMenu.addAction(QStringLiteral("New"));
            m_quit = m_hostsMenu.addAction(QStringLiteral("Quit"));
        }
        RecentDocumentBrowser::AddRecentFiles(&m_hostsMenu, m_quit);
        m_model.build(m_paths, story.inHostsMenu);
        noteObjects();
    }
    ~SideBySide() { m_popup.reset(); }
    Q_DISABLE_COPY(SideBySide)

    void take(const Step &step)
    {
        const auto which = std::size_t(step.which);
        switch (step.deed) {
        case Deed::ClickMenuPin:
        case Deed::SetMenuPin:
            if (!m_model.order.empty())
                switchMenuPin(int(which % m_model.order.size()), step.deed == Deed::ClickMenuPin);
            break;
        case Deed::Update:
            updatePins();
            m_model.update();
            break;
        case Deed::OpenPopup:
            openPopup();
            break;
        case Deed::ClosePopup:
            m_popup.reset();
            break;
        case Deed::ClickTilePin:
            // Documents listed twice multiply with each click; a few are enough.
            if (m_popup && !m_model.tiles.empty() && m_model.tiles.size() * m_model.order.size() < 1000) {
                const std::size_t tile = which % m_model.tiles.size();
                RecentDocumentBrowser::docPinButtonList.at(int(tile))->click();
                m_model.clickTile(tile);
            }
            break;
        case Deed::CreateDocument:
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
        std::ostringstream told;
        const QList<QAction *> actions = RecentDocumentBrowser::recentDocMenu->actions();
        for (QAction *action : actions)
            told << line(m_entries.indexOf(action), action) << '\n';
        for (QAction *action : qAsConst(RecentDocumentBrowser::recentDocActionList))
            told << "listed " << m_entries.indexOf(action) << ' ' << action->text().toStdString() << '\n';
        for (FolderPinButton *pin : qAsConst(RecentDocumentBrowser::menuPinButtonList))
            told << "pin " << m_pins.indexOf(pin) << (pin->isChecked() ? " down\n" : " up\n");
        if (m_popup) {
            for (FolderPinButton *pin : qAsConst(RecentDocumentBrowser::docPinButtonList))
                told << "tile " << pin->path().toStdString() << (pin->isChecked() ? " down\n" : " up\n");
        }
        return told.str();
    }
    std::string inModel() const
    {
        std::ostringstream told;
        for (const int item : m_model.menu) {
            told << item;
            if (item >= 0)
                told << ' ' << m_model.entries[std::size_t(item)].shown.toStdString();
            told << '\n';
        }
        for (std::size_t i = 0; i < m_model.entries.size(); ++i)
            told << "listed " << i << ' ' << m_model.entries[i].ownText.toStdString() << '\n';
        for (const int pin : m_model.order)
            told << "pin " << pin << (m_model.pins[std::size_t(pin)].checked ? " down\n" : " up\n");
        if (m_popup) {
            for (const PinModel::Pin &tile : m_model.tiles)
                told << "tile " << tile.path.toStdString() << (tile.checked ? " down\n" : " up\n");
        }
        return told.str();
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

void tell(const Story &story, bool withTiles, int &separations)
{
    SideBySide both(story, withTiles);
    RC_ASSERT(both.inModule() == both.inModel());
    for (const Step &step : story.steps) {
        both.take(step);
        RC_ASSERT(both.inModule() == both.inModel());
    }
    separations += both.model().separations > 0 ? 1 : 0;
}

} // namespace

//! Whatever is pinned, clicked and opened in whatever order: the module does as the rules say.
class tst_PinProperties : public TestCase
{
    Q_OBJECT

private slots:
    void menusFollowTheRules()
    {
        const std::vector<Deed> deeds = {Deed::ClickMenuPin, Deed::ClickMenuPin, Deed::ClickMenuPin,
                                         Deed::ClickMenuPin, Deed::SetMenuPin,   Deed::SetMenuPin,
                                         Deed::SetMenuPin,   Deed::Update,       Deed::Update,
                                         Deed::Update,       Deed::OpenPopup,    Deed::CreateDocument};
        int separations = 0;
        QVERIFY(holds("menus follow the rules of pinned documents",
                      [&] { tell(*anyStory(deeds, false), false, separations); }));
        QVERIFY2(separations > 100, "the stories hardly ever have both pinned and unpinned documents");
    }

    void tilesFollowTheRules()
    {
        const std::vector<Deed> deeds = {Deed::ClickMenuPin, Deed::OpenPopup,     Deed::OpenPopup,
                                         Deed::ClosePopup,   Deed::ClickTilePin,  Deed::ClickTilePin,
                                         Deed::ClickTilePin, Deed::CreateDocument};
        int separations = 0;
        // With a document listed twice each click would give more tiles.
        QVERIFY(holds(
            "tiles follow the rules of pinned documents",
            [&] { tell(*anyStory(deeds, true), true, separations); }, 150));
        QVERIFY2(separations > 20, "the stories hardly ever have both pinned and unpinned documents");
    }
};

TEST_CLASS(tst_PinProperties);
#include "tst_pinproperties.moc"

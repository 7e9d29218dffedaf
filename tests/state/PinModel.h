// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <algorithm>
#include <vector>

//! A model of the rules by which pinned documents come first, in plain values and without the module's code,
//! to compare the module with.
class PinModel
{
public:
    struct Entry
    {
        QString ownText; //!< as the menu was built
        QString shown;
    };
    struct Pin
    {
        QString path;
        bool checked = false;
    };

    // What the menu contains: the number of an entry, or one of these.
    static constexpr int separator = -1;
    static constexpr int create = -2; //!< the host's own entry before the documents
    static constexpr int quit = -3;   //!< the host's own entry after the documents
    static constexpr int none = -4;

    //! A menu for these documents is built. \param inHostsMenu before the host's last entry, else in a menu
    //! of their own
    void build(const std::vector<QString> &paths, bool inHostsMenu)
    {
        entries.clear();
        pins.clear();
        order.clear();
        menu = inHostsMenu ? std::vector<int>{create, quit} : std::vector<int>{};
        m_before = inHostsMenu ? quit : none;
        insert(separator, m_before);
        for (const QString &path : paths) {
            const int number = int(entries.size());
            const QString text = QStringLiteral("&%1 ").arg(number + 1) + path;
            entries.push_back({text, text});
            pins.push_back({path});
            order.push_back(number);
            insert(number, m_before);
        }
        insert(separator, m_before);
    }

    //! Both groups in their order, everywhere.
    void update()
    {
        std::vector<int> pinnedPins;
        std::vector<int> otherPins;
        std::vector<int> pinned;
        std::vector<int> others;
        int number = 1;
        for (const int pin : order) {
            if (!pins[std::size_t(pin)].checked) {
                otherPins.push_back(pin);
                continue;
            }
            pinnedPins.push_back(pin);
            for (int entry = 0; entry < int(entries.size()); ++entry) {
                if (pathOf(entry) == pins[std::size_t(pin)].path) {
                    renumber(entry, number++);
                    pinned.push_back(entry);
                }
            }
        }
        order = pinnedPins;
        order.insert(order.end(), otherPins.begin(), otherPins.end());
        for (int entry = 0; entry < int(entries.size()); ++entry) {
            if (std::find(pinned.begin(), pinned.end(), entry) == pinned.end()) {
                renumber(entry, number++);
                others.push_back(entry);
            }
        }
        for (const int entry : pinned)
            insert(entry, others.empty() ? m_before : others.front());
        if (!pinned.empty() && !others.empty()) {
            insert(separator, others.front());
            ++separations;
        }
        for (const int entry : others)
            insert(entry, m_before);
    }

    //! The newest browser opens. \param withTiles whether its documents' pictures are known
    void openPopup(bool withTiles)
    {
        update();
        tiles.clear();
        for (const int pin : order) {
            if (withTiles)
                tiles.push_back(pins[std::size_t(pin)]);
        }
    }

    void clickTile(std::size_t which)
    {
        tiles[which].checked = !tiles[which].checked;
        const std::vector<int> former = order;
        order.clear();
        for (const int pin : former) {
            for (const Pin &tile : tiles) {
                if (tile.path == pins[std::size_t(pin)].path) {
                    pins[std::size_t(pin)].checked = tile.checked;
                    order.push_back(pin);
                }
            }
        }
    }

    std::vector<Entry> entries; //!< in the host's order
    std::vector<Pin> pins;      //!< of the entries
    std::vector<int> menu;
    std::vector<int> order; //!< of the pins: which come first in the browser
    std::vector<Pin> tiles; //!< of the newest browser
    int separations = 0;    //!< how often there were pinned and unpinned entries

private:
    QString pathOf(int entry) const
    {
        const QString &text = entries[std::size_t(entry)].ownText;
        const int blank = text.indexOf(QLatin1Char(' '));
        return blank < 0 ? text : text.mid(blank + 1);
    }

    void renumber(int entry, int number)
    {
        QString &text = entries[std::size_t(entry)].shown;
        const int replaced = text.left(3) == QLatin1String("&10") ? 2 : 1;
        text = text.at(0) + QString::number(number) + text.mid(1 + replaced);
    }

    //! Before reference, or at the end if that is not in the menu; what is in the menu already is moved.
    void insert(int item, int reference)
    {
        if (item != separator)
            menu.erase(std::remove(menu.begin(), menu.end(), item), menu.end());
        menu.insert(std::find(menu.begin(), menu.end(), reference), item);
    }

    int m_before = none;
};

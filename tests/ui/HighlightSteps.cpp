// SPDX-License-Identifier: MIT
#include "tests/ui/HighlightSteps.h"

#include <QMetaEnum>

#include <algorithm>
#include <ostream>
#include <tuple>

namespace {

// One entry is as likely as another; what comes first is what a failing case is reduced to.
const std::vector<int> keys = {
    Qt::Key_Right,  Qt::Key_Left,   Qt::Key_Down,     Qt::Key_Up,      Qt::Key_Tab,   Qt::Key_Right,
    Qt::Key_Left,   Qt::Key_Down,   Qt::Key_Up,       Qt::Key_Right,   Qt::Key_Left,  Qt::Key_Right,
    Qt::Key_Left,   Qt::Key_Right,  Qt::Key_Left,     Qt::Key_Backtab, Qt::Key_Space, Qt::Key_Home,
    Qt::Key_End,    Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Delete,  Qt::Key_A,     Qt::Key_F4,
    Qt::Key_Select, Qt::Key_Shift,  Qt::Key_Control,
};
constexpr int noKey = 0;
const std::vector<int> lastKeys = {noKey, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Return, Qt::Key_Escape};
const std::vector<Qt::MouseButton> buttons = {
    Qt::LeftButton, Qt::LeftButton, Qt::LeftButton, Qt::LeftButton, Qt::RightButton, Qt::MiddleButton,
};
const std::vector<HighlightStep::Kind> kinds = {
    HighlightStep::KeyOnPopup, HighlightStep::KeyOnPopup, HighlightStep::KeyOnPopup,
    HighlightStep::KeyOnPopup, HighlightStep::KeyOnPopup, HighlightStep::KeyOnTile,
    HighlightStep::Click,      HighlightStep::Click,      HighlightStep::Press,
    HighlightStep::Release,
};

std::vector<Qt::KeyboardModifiers> keyModifiers()
{
    std::vector<Qt::KeyboardModifiers> all(8, Qt::NoModifier);
    all.insert(all.end(), 12, Qt::ShiftModifier);
    all.insert(all.end(), 6, Qt::ControlModifier);
    for (int bits = 3; bits < 16; ++bits) { // the two above, together and with the others
        Qt::KeyboardModifiers modifiers;
        modifiers.setFlag(Qt::ShiftModifier, bits & 1);
        modifiers.setFlag(Qt::ControlModifier, bits & 2);
        modifiers.setFlag(Qt::AltModifier, bits & 4);
        modifiers.setFlag(Qt::KeypadModifier, bits & 8);
        all.push_back(modifiers);
    }
    return all;
}

const std::vector<Qt::KeyboardModifiers> mouseModifiers = {
    Qt::NoModifier,  Qt::ShiftModifier, Qt::ControlModifier, Qt::ShiftModifier | Qt::ControlModifier,
    Qt::AltModifier, Qt::ShiftModifier, Qt::ControlModifier, Qt::ControlModifier,
};

//! Any number from 0 up to and without end, from the first case on: small cases are short, not tame.
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

constexpr std::size_t mostDocuments = 30;

rc::Gen<HighlightStep> anyStep()
{
    using Parts = std::tuple<HighlightStep::Kind, int, Qt::MouseButton, Qt::KeyboardModifiers,
                             Qt::KeyboardModifiers, int>;
    return rc::gen::map(rc::gen::tuple(oneOf(kinds), oneOf(keys), oneOf(buttons), oneOf(keyModifiers()),
                                       oneOf(mouseModifiers), below(mostDocuments)),
                        [](const Parts &parts) {
                            HighlightStep step{std::get<0>(parts), std::get<1>(parts), std::get<2>(parts),
                                               std::get<3>(parts), std::get<5>(parts)};
                            if (!step.isKey())
                                step.modifiers = std::get<4>(parts);
                            return step;
                        });
}

rc::Gen<std::vector<int>> documentsWithoutTile()
{
    constexpr int most = 12;
    const auto some = rc::gen::resize(most, rc::gen::container<std::vector<int>>(below(mostDocuments)));
    return rc::gen::oneOf(rc::gen::just(std::vector<int>()), some);
}

std::string nameOf(int key)
{
    const char *name = QMetaEnum::fromType<Qt::Key>().valueToKey(key);
    return name ? std::string(name).substr(std::string("Key_").size()) : "key " + std::to_string(key);
}

std::string nameOf(Qt::KeyboardModifiers modifiers)
{
    std::string name;
    const std::pair<Qt::KeyboardModifier, const char *> parts[] = {{Qt::ShiftModifier, "Shift+"},
                                                                   {Qt::ControlModifier, "Control+"},
                                                                   {Qt::AltModifier, "Alt+"},
                                                                   {Qt::KeypadModifier, "Keypad+"}};
    for (const auto &part : parts)
        name += modifiers.testFlag(part.first) ? part.second : "";
    return name;
}

std::string nameOf(Qt::MouseButton button)
{
    if (button == Qt::RightButton)
        return "right ";
    return button == Qt::MiddleButton ? "middle " : "";
}

} // namespace

const HighlightCase::Frame HighlightCase::frames[] = {{950, 2}, {800, 3}, {500, 4}, {1920, 5}};

std::string HighlightStep::inWords(int tileCount) const
{
    const std::string where = " on tile " + (tileCount > 0 ? std::to_string(tile % tileCount + 1)
                                                           : std::string("that is not there"));
    const std::string before = nameOf(modifiers);
    switch (kind) {
    case KeyOnPopup:
        return before + nameOf(key);
    case KeyOnTile:
        return before + nameOf(key) + where;
    case Press:
        return before + nameOf(button) + "press" + where;
    case Release:
        return before + nameOf(button) + "release" + where;
    case Click:
        return before + nameOf(button) + "click" + where;
    }
    return {};
}

std::vector<bool> HighlightCase::hasTile() const
{
    std::vector<bool> has(static_cast<std::size_t>(documents), true);
    for (const int document : withoutTile) {
        if (documents > 0)
            has.at(static_cast<std::size_t>(document % documents)) = false;
    }
    return has;
}

int HighlightCase::tileCount() const
{
    const std::vector<bool> has = hasTile();
    return static_cast<int>(std::count(has.begin(), has.end(), true));
}

void showValue(const HighlightCase &tried, std::ostream &out)
{
    const int tiles = tried.tileCount();
    out << tried.documents << " documents, " << tiles << " tiles in " << tried.columns() << " columns";
    const char *separator = "; no tile for document ";
    const std::vector<bool> has = tried.hasTile();
    for (std::size_t i = 0; i < has.size(); ++i) {
        if (!has.at(i)) {
            out << separator << i + 1;
            separator = ", ";
        }
    }
    for (const auto &steps : tried.sequences) {
        if (!steps.empty())
            out << "\n an open popup:";
        int number = 0;
        for (const HighlightStep &step : steps)
            out << "\n  " << ++number << ". " << step.inWords(tiles);
    }
}

rc::Gen<HighlightCase> rc::Arbitrary<HighlightCase>::arbitrary()
{
    using Sequences = std::vector<std::vector<HighlightStep>>;
    using Parts = std::tuple<int, std::vector<int>, int, Sequences, int, Qt::KeyboardModifiers>;
    const auto sequence = gen::container<std::vector<HighlightStep>>(anyStep());
    return gen::map(gen::tuple(below(mostDocuments + 1), documentsWithoutTile(),
                               below(HighlightCase::frameCount),
                               gen::container<Sequences>(HighlightCase::sequenceCount, sequence),
                               oneOf(lastKeys), oneOf(keyModifiers())),
                    [](const Parts &parts) {
                        HighlightCase tried{std::get<0>(parts), std::get<1>(parts), std::get<2>(parts),
                                            std::get<3>(parts)};
                        const int last = std::get<4>(parts);
                        if (last != noKey)
                            tried.sequences.back().push_back(
                                {HighlightStep::KeyOnPopup, last, Qt::NoButton, std::get<5>(parts), 0});
                        return tried;
                    });
}

// SPDX-License-Identifier: MIT
#include "tests/ui/HighlightSteps.h"

#include "tests/support/Keys.h"

#include <ostream>
#include <tuple>

namespace {

constexpr std::size_t mostDocuments = 30;

// One entry is as likely as another; what comes first is what a failing case is reduced to.
const std::vector<int> triedKeys = {
    Qt::Key_Right,  Qt::Key_Left,   Qt::Key_Down,     Qt::Key_Up,      Qt::Key_Tab,   Qt::Key_Right,
    Qt::Key_Left,   Qt::Key_Down,   Qt::Key_Up,       Qt::Key_Right,   Qt::Key_Left,  Qt::Key_Right,
    Qt::Key_Left,   Qt::Key_Right,  Qt::Key_Left,     Qt::Key_Backtab, Qt::Key_Space, Qt::Key_Home,
    Qt::Key_End,    Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Delete,  Qt::Key_A,     Qt::Key_F4,
    Qt::Key_Select, Qt::Key_Shift,  Qt::Key_Control,
};
constexpr int noKey = 0;
const std::vector<int> triedLastKeys = {noKey, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Return, Qt::Key_Escape};
const std::vector<Qt::MouseButton> triedButtons = {
    Qt::LeftButton, Qt::LeftButton, Qt::LeftButton, Qt::LeftButton, Qt::RightButton, Qt::MiddleButton,
};
const std::vector<HighlightStep::Kind> triedKinds = {
    HighlightStep::KeyOnPopup, HighlightStep::KeyOnPopup, HighlightStep::KeyOnPopup,
    HighlightStep::KeyOnPopup, HighlightStep::KeyOnPopup, HighlightStep::KeyOnTile,
    HighlightStep::Click,      HighlightStep::Click,      HighlightStep::Press,
    HighlightStep::Release,    HighlightStep::Toggle,
};

std::vector<Qt::KeyboardModifiers> triedWithKeys()
{
    std::vector<Qt::KeyboardModifiers> all(8, Qt::NoModifier);
    all.insert(all.end(), 12, Qt::ShiftModifier);
    all.insert(all.end(), 6, Qt::ControlModifier);
    all.insert(all.end(), others.begin(), others.end());
    return all;
}

const std::vector<Qt::KeyboardModifiers> triedWithMouse = {
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

rc::Gen<HighlightStep> anyStep()
{
    using Parts = std::tuple<HighlightStep::Kind, int, Qt::MouseButton, Qt::KeyboardModifiers,
                             Qt::KeyboardModifiers, int>;
    return rc::gen::map(rc::gen::tuple(oneOf(triedKinds), oneOf(triedKeys), oneOf(triedButtons),
                                       oneOf(triedWithKeys()), oneOf(triedWithMouse), below(mostDocuments)),
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

} // namespace

std::string HighlightStep::inWords(int tileCount) const
{
    const char *const kinds[] = {"", "", "press", "release", "click", "toggle"};
    std::string words = nameOf(isKey() ? key : noKey, modifiers).toStdString() + kinds[kind];
    if (!isKey() && kind != Toggle)
        words += " of button " + std::to_string(button);
    return kind == KeyOnPopup ? words : words + " on tile " + std::to_string(tile % std::max(tileCount, 1));
}

QVector<bool> HighlightCase::hasTile() const
{
    QVector<bool> has(documents, true);
    for (const int document : withoutTile) {
        if (documents > 0)
            has[document % documents] = false;
    }
    return has;
}

void showValue(const HighlightCase &tried, std::ostream &out)
{
    const QVector<bool> has = tried.hasTile();
    out << "tiles in " << tried.columns << " columns for these of " << tried.documents << " documents:";
    for (int document = 0; document < has.size(); ++document) {
        if (has.at(document))
            out << ' ' << document;
    }
    for (const auto &steps : tried.sequences) {
        out << (steps.empty() ? "" : "\n an open popup:");
        for (const HighlightStep &step : steps)
            out << "\n  " << step.inWords(tried.tileCount());
    }
}

rc::Gen<HighlightCase> rc::Arbitrary<HighlightCase>::arbitrary()
{
    using Sequences = std::vector<std::vector<HighlightStep>>;
    using Parts = std::tuple<int, std::vector<int>, int, Sequences, int, Qt::KeyboardModifiers>;
    const auto sequence = gen::container<std::vector<HighlightStep>>(anyStep());
    const auto columns = gen::inRange(HighlightCase::fewestColumns, HighlightCase::mostColumns + 1);
    return gen::map(gen::tuple(below(mostDocuments + 1), documentsWithoutTile(),
                               gen::resize(kNominalSize, columns),
                               gen::container<Sequences>(HighlightCase::sequenceCount, sequence),
                               oneOf(triedLastKeys), oneOf(triedWithKeys())),
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

// SPDX-License-Identifier: MIT
#include "tests/desktop/soak/SoakPlan.h"

namespace {

using Kind = SoakStep::Kind;

//! How often each kind of thing happens, out of the sum.
constexpr struct
{
    Kind kind;
    int weight;
    const char *name;
} kinds[] = {
    {Kind::Key, 40, "key"},     {Kind::Click, 16, "click"},  {Kind::ClickTwice, 3, "double-click"},
    {Kind::Hover, 14, "hover"}, {Kind::Drag, 6, "drag"},     {Kind::Command, 18, "command"},
    {Kind::File, 8, "file"},    {Kind::Module, 1, "module"}, {Kind::Screen, 1, "screen"},
};

constexpr int choices = 100000;

} // namespace

SoakStep SoakPlan::next()
{
    int sum = 0;
    for (const auto &kind : kinds)
        sum += kind.weight;
    int left = m_random.bounded(sum);
    SoakStep step{};
    for (const auto &kind : kinds) {
        step.kind = kind.kind;
        left -= kind.weight;
        if (left < 0)
            break;
    }
    step.choice = m_random.bounded(choices);
    for (double *number : {&step.x, &step.y, &step.toX, &step.toY})
        *number = m_random.generateDouble();
    return step;
}

QString SoakStep::text() const
{
    for (const auto &known : kinds) {
        if (known.kind == kind) {
            return QStringLiteral("%1 %2 at %3,%4 to %5,%6")
                .arg(QLatin1String(known.name))
                .arg(choice)
                .arg(x, 0, 'f', 2)
                .arg(y, 0, 'f', 2)
                .arg(toX, 0, 'f', 2)
                .arg(toY, 0, 'f', 2);
        }
    }
    return {};
}

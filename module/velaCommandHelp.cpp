// SPDX-License-Identifier: MIT
#include "module/velaCommandHelp.h"

namespace {
constexpr const OdChar *helpCommandName = L"_RHELP";
constexpr int browserHelpTopic = 3087;
} // namespace

OdString velaCommandHelp::globalName() const
{
    return helpCommandName;
}

OdString velaCommandHelp::localName() const
{
    return helpCommandName;
}

int velaCommandHelp::Execute(CFxCommandContext * /*context*/)
{
    Help();
    return normalCompletion;
}

int velaCommandHelp::GetHelpId() const
{
    return browserHelpTopic;
}

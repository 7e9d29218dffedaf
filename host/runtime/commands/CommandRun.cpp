// SPDX-License-Identifier: MIT
#include "host/runtime/commands/CommandRun.h"

namespace fxhost {

CommandRun::CommandRun(const QString &name, const QString &argument) : m_name(name), m_argument(argument) {}

CommandRun::~CommandRun() = default;

void CommandRun::addRef()
{
    m_references.fetch_add(1);
}

void CommandRun::release()
{
    if (m_references.fetch_sub(1) == 1)
        delete this;
}

int CommandRun::numRefs() const
{
    return m_references.load();
}

} // namespace fxhost

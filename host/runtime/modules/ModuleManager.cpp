// SPDX-License-Identifier: MIT
#include "host/runtime/modules/ModuleManager.h"

#include "host/runtime/FxHost.h"
#include "host/runtime/log/HostLog.h"
#include "host/runtime/modules/Module.h"

#include <QFileInfo>

#include <algorithm>
#include <iterator>
#include <utility>

namespace fxhost {

ModuleManager::ModuleManager(FxHost &host) : m_host(host) {}

ModuleManager::~ModuleManager()
{
    unloadAll();
}

bool ModuleManager::load(const QString &path)
{
    const QString problem = start(path); // by the return the library of a failed module is unloaded
    const bool isRunning = problem.isEmpty();
    m_host.log().module(path, isRunning ? HostLog::ModuleEvent::Loaded : HostLog::ModuleEvent::Failed);
    if (!isRunning)
        m_host.showMessage(tr("The module \"%1\" was not loaded. %2").arg(path, problem));
    return isRunning;
}

//! \return why the module does not run; empty when it does
QString ModuleManager::start(const QString &path)
{
    auto module = std::make_unique<Module>(path, m_host);
    QString problem = module->load();
    if (!problem.isEmpty())
        return problem;
    const bool isLoaded = std::any_of(m_modules.begin(), m_modules.end(),
                                      [&](const auto &other) { return other->isSameAs(*module); });
    if (isLoaded)
        return tr("It is loaded already.");
    problem = module->start();
    if (!problem.isEmpty()) {
        module->end();
        return problem;
    }
    m_modules.push_back(std::move(module));
    return {};
}

bool ModuleManager::unload(const QString &path)
{
    const auto found = std::find_if(m_modules.begin(), m_modules.end(),
                                    [&](const auto &module) { return module->path() == path; });
    if (found == m_modules.end()) {
        m_host.showMessage(tr("The module \"%1\" is not loaded.").arg(path));
        return false;
    }
    if ((*found)->isAtWork()) {
        m_host.showMessage(tr("The module \"%1\" cannot be unloaded while it is at work.").arg(path));
        return false;
    }
    auto module = std::move(*found);
    m_modules.erase(found);
    end(std::move(module));
    return true;
}

void ModuleManager::unloadAll()
{
    while (!m_modules.empty()) {
        auto module = std::move(m_modules.back());
        m_modules.pop_back();
        end(std::move(module));
    }
}

void ModuleManager::end(std::unique_ptr<Module> module)
{
    const QString path = module->path();
    const QString problem = module->end();
    module.reset();
    m_host.log().module(path, HostLog::ModuleEvent::Unloaded);
    if (!problem.isEmpty())
        m_host.showMessage(tr("The module \"%1\" did not end as it should. %2").arg(path, problem));
}

QStringList ModuleManager::loaded() const
{
    QStringList paths;
    for (const auto &module : m_modules)
        paths.append(module->path());
    return paths;
}

QStringList ModuleManager::named(const QString &name) const
{
    const QStringList paths = loaded();
    if (paths.contains(name))
        return {name};
    QStringList called;
    std::copy_if(paths.begin(), paths.end(), std::back_inserter(called), [&](const QString &path) {
        const QString file = QFileInfo(path).fileName();
        return file == name || file == name + QLatin1String(".so");
    });
    return called;
}

} // namespace fxhost

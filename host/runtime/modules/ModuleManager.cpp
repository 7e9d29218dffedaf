// SPDX-License-Identifier: MIT
#include "host/runtime/modules/ModuleManager.h"

#include "host/runtime/Paths.h"
#include "host/runtime/log/HostLog.h"

#include <sdkhost/GuiThread.h>
#include <sdkhost/Module.h>

#include <QFileInfo>

#include <algorithm>
#include <iterator>
#include <utility>

namespace fxhost {

ModuleManager::ModuleManager(Host &host, HostLog &log, MessageSink report)
    : m_host(host), m_log(log), m_report(std::move(report))
{
}

ModuleManager::~ModuleManager()
{
    unloadAll();
}

bool ModuleManager::load(const QString &path)
{
    SDKHOST_ASSERT_GUI_THREAD();
    const Outcome started = start(path); // if it failed, its library is already unloaded
    m_log.module(path, started ? HostLog::ModuleEvent::Loaded : HostLog::ModuleEvent::Failed);
    if (started)
        emit moduleLoaded();
    else
        m_report(tr("The module \"%1\" was not loaded. %2").arg(path, started.reason()));
    return bool(started);
}

Outcome ModuleManager::start(const QString &path)
{
    auto module = std::make_unique<Module>(path, absolutePath(path), m_host);
    const Outcome loaded = module->load();
    if (!loaded)
        return loaded;
    const bool isLoaded = std::any_of(m_modules.begin(), m_modules.end(),
                                      [&](const auto &other) { return other->isSameAs(*module); });
    if (isLoaded)
        return Outcome::failed(tr("It is already loaded."));
    const Outcome started = module->start();
    if (started)
        m_modules.push_back(std::move(module));
    else
        module->end();
    return started;
}

bool ModuleManager::unload(const QString &path)
{
    SDKHOST_ASSERT_GUI_THREAD();
    const auto found = std::find_if(m_modules.begin(), m_modules.end(),
                                    [&](const auto &module) { return module->name() == path; });
    if (found == m_modules.end()) {
        m_report(tr("The module \"%1\" is not loaded.").arg(path));
        return false;
    }
    if ((*found)->isCodeRunning()) {
        m_report(tr("The module \"%1\" cannot be unloaded while it is running.").arg(path));
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
    const QString path = module->name();
    const Outcome ended = module->end();
    module.reset();
    m_log.module(path, HostLog::ModuleEvent::Unloaded);
    if (!ended)
        m_report(tr("The module \"%1\" failed while ending. %2").arg(path, ended.reason()));
}

QStringList ModuleManager::loaded() const
{
    QStringList paths;
    for (const auto &module : m_modules)
        paths.append(module->name());
    return paths;
}

std::vector<void *> ModuleManager::libraries() const
{
    std::vector<void *> handles;
    for (const auto &module : m_modules)
        handles.push_back(module->handle());
    return handles;
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

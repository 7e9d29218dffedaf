// SPDX-License-Identifier: MIT
#include <sdkhost/ModuleLibrary.h>

#include <QFile>

#include <algorithm>
#include <vector>

#include <dlfcn.h>
#include <execinfo.h>
#include <link.h>

namespace sdkhost {

ModuleLibrary::~ModuleLibrary()
{
    if (m_handle)
        dlclose(m_handle);
}

Outcome ModuleLibrary::load(const QString &path)
{
    m_handle = dlopen(QFile::encodeName(path).constData(), RTLD_NOW | RTLD_LOCAL);
    if (m_handle)
        return {};
    return Outcome::failed(
        QString::fromLocal8Bit(dlerror())); // NOLINT(concurrency-mt-unsafe): it is per thread
}

bool ModuleLibrary::contains(const void *address) const
{
    link_map *map = nullptr;
    Dl_info object;
    return m_handle && dlinfo(m_handle, RTLD_DI_LINKMAP, &map) == 0 && dladdr(address, &object) != 0 &&
           reinterpret_cast<ElfW(Addr)>(object.dli_fbase) == map->l_addr;
}

bool ModuleLibrary::isOnStack() const
{
    std::vector<void *> frames(128);
    int depth = 0;
    while ((depth = backtrace(frames.data(), static_cast<int>(frames.size()))) >=
           static_cast<int>(frames.size()))
        frames.resize(frames.size() * 2); // the stack may be deeper
    return std::any_of(frames.begin(), frames.begin() + depth,
                       [this](const void *address) { return contains(address); });
}

void *ModuleLibrary::symbol(const char *name) const
{
    return dlsym(m_handle, name);
}

} // namespace sdkhost

// SPDX-License-Identifier: MIT
#include "module/HostAccess.h"
#include "module/OdRxUnixModuleRecentDocumentBrowser.h"
#include "module/velaCommandHelp.h"
#include "tests/support/Assertions.h"
#include "tests/support/TestCase.h"
#include "tests/support/fake/FakeHost.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <functional>
#include <thread>
#include <type_traits>

namespace {

struct DeleteModule
{
    void operator()(OdRxModule *module) const { module->deleteModule(); }
};
using CreatedModule = std::unique_ptr<OdRxModule, DeleteModule>;

CreatedModule createModule(void *sysData = nullptr, const OdChar *name = L"browser")
{
    return CreatedModule(odrxCreateModuleObject(sysData, name));
}

//! The offset of a virtual function in its class's table, in bytes, by which a host compiled against the same
//! headers calls it. In the C++ ABI of Linux a pointer to it is that offset plus one.
template<class Function>
std::ptrdiff_t slotOf(Function function)
{
    std::ptrdiff_t slot = 0;
    std::memcpy(&slot, &function, sizeof slot);
    return slot - 1;
}

using WrapperBase = OdRxUnixModule<RecentDocumentBrowser, RecentDocumentBrowser>;

} // namespace

//! The exported entry points and the object that they return: its memory, references and deletion.
class tst_ModuleObject : public TestCase
{
    Q_OBJECT

private slots:
    void aCallOfTheHostFromAnotherThreadIsReported()
    {
#ifdef NDEBUG
        QSKIP("Only debug builds report it.");
#else
        const AssertionsAreNoted noted;
        std::thread([] {
            HostAccess::hasServices();
            HostAccess::isCommandRegistered(L"RECENT");
        }).join();
        QCOMPARE(assertions.size(), std::size_t(2));
        HostAccess::hasServices();
        QCOMPARE(assertions.size(), std::size_t(2));
#endif
    }

    void theVersionOfTheInterfaceIsReturned()
    {
        int version[4] = {0, 0, 0, -1};
        odrxGetAPIVersion(version[0], version[1], version[2], version[3]);
        QCOMPARE(QList<int>(std::begin(version), std::end(version)), QList<int>({4, 3, 2, 0}));
    }

    void oneObjectExistsUntilItIsDeleted()
    {
        const FakeHost host;
        QVERIFY(!g_pSingletonModule);
        int handle = 0;
        std::wstring name = L"a module's name";
        CreatedModule module = createModule(&handle, name.c_str());
        name.assign(L"changed");
        QCOMPARE(static_cast<OdRxModule *>(g_pSingletonModule), module.get());
        QCOMPARE(module->numRefs(), 0);
        QCOMPARE(FakeMemory::inUse, std::set<void *>{module.get()});

        int otherHandle = 0;
        QCOMPARE(odrxCreateModuleObject(&otherHandle, L"second"), module.get());
        QCOMPARE(odrxCreateModuleObject(nullptr, nullptr), module.get());
        QCOMPARE(FakeMemory::inUse.size(), std::size_t(1));
        QCOMPARE(module->sysData(), static_cast<void *>(&handle));
        QVERIFY(module->moduleName() == OdString(L"a module's name"));

        module.reset();
        QVERIFY(!g_pSingletonModule);
        QVERIFY(FakeMemory::inUse.empty());
        module = createModule(nullptr, L"second");
        QVERIFY(module->moduleName() == OdString(L"second"));
        QCOMPARE(host.calls, QStringList());
    }

    void deleteModuleObjectDoesNotDeleteTheObject()
    {
        const CreatedModule forgotten = createModule(nullptr, L"forgotten");
        deleteModuleObject();
        QVERIFY(!g_pSingletonModule);
        QCOMPARE(FakeMemory::inUse.size(), std::size_t(1));
        QVERIFY(forgotten->moduleName() == OdString(L"forgotten"));
        QVERIFY(createModule() != forgotten);
    }

    void withoutMemoryBadAllocIsThrownAndNoObjectExists()
    {
        FakeMemory::isOut = true;
        QVERIFY_EXCEPTION_THROWN(odrxCreateModuleObject(nullptr, L"browser"), std::bad_alloc);
        FakeMemory::isOut = false;
        QVERIFY(!g_pSingletonModule);
        QVERIFY(createModule());
    }

    void everyKindOfDeletionFreesTheMemory()
    {
        odrxCreateModuleObject(nullptr, L"browser")->deleteModule();
        QVERIFY(!g_pSingletonModule);
        odrxCreateModuleObject(nullptr, L"browser");
        g_pSingletonModule->WrapperBase::deleteModule();
        QVERIFY(!g_pSingletonModule);
        OdRxObject *object = createModule().release();
        delete object;
        deleteModuleObject();
        QVERIFY(FakeMemory::inUse.empty());
    }

    void referencesAreCountedAndDoNotDeleteTheObject()
    {
        const AssertionsAreNoted noted;
        const CreatedModule module = createModule();
        module->addRef();
        module->addRef();
        QCOMPARE(module->numRefs(), 2);
        module->release();
        QCOMPARE(module->numRefs(), 1);
        module->release();
        QCOMPARE(module->numRefs(), 0);
        QVERIFY(assertions.empty());
        module->release();
        QCOMPARE(module->numRefs(), -1);
        module->release(); // from -1, which the check does not detect
        QCOMPARE(module->numRefs(), -2);
        QCOMPARE(assertions.size(), std::size_t(1));
        QCOMPARE(assertions.front().expression, QByteArray("m_nLockCount"));
        QCOMPARE(assertions.front().source, QByteArray("RxDynamicModule"));
        QCOMPARE(assertions.front().line, 379);
        QVERIFY(g_pSingletonModule);
        QCOMPARE(FakeMemory::inUse.size(), std::size_t(1));
    }

    void referencesAreCountedAcrossThreads()
    {
        const CreatedModule module = createModule();
        constexpr int threadCount = 4;
        constexpr int rounds = 500000; // enough for threads to interleave on one processor
        std::atomic<int> waiting{threadCount};
        std::vector<std::thread> threads;
        threads.reserve(threadCount);
        for (int i = 0; i < threadCount; ++i) {
            threads.emplace_back([&] {
                --waiting;
                while (waiting > 0)
                    std::this_thread::yield();
                for (int round = 0; round < rounds; ++round) {
                    module->addRef();
                    module->addRef();
                    module->release();
                }
            });
        }
        for (std::thread &thread : threads)
            thread.join();
        QCOMPARE(module->numRefs(), threadCount * rounds);
    }

    void theObjectHasTheHostsBaseClasses()
    {
        static_assert(std::is_base_of_v<WrapperBase, OdRxUnixModuleRecentDocumentBrowser>);
        static_assert(std::is_base_of_v<RecentDocumentBrowser, WrapperBase>);
        static_assert(std::is_convertible_v<RecentDocumentBrowser *, vela_OdRxModule *>);
        static_assert(std::is_convertible_v<RecentDocumentBrowser *, CFxDocumentManagerReactor *>);
        static_assert(std::is_convertible_v<RecentDocumentBrowser *, CFxEditorReactor *>);
        static_assert(std::has_virtual_destructor_v<RecentDocumentBrowser>);

        // The module base is first, so that the loader's pointer is the object's own.
        const CreatedModule module = createModule();
        const auto place = [](const void *part) { return reinterpret_cast<std::uintptr_t>(part); };
        const RecentDocumentBrowser *browser = g_pSingletonModule;
        const auto moduleBase = place(static_cast<const vela_OdRxModule *>(browser));
        const auto documentBase = place(static_cast<const CFxDocumentManagerReactor *>(browser));
        const auto editorBase = place(static_cast<const CFxEditorReactor *>(browser));
        QCOMPARE(moduleBase, place(browser));
        QVERIFY(moduleBase < documentBase);
        QVERIFY(documentBase < editorBase);
    }

    void virtualFunctionsAreInOrder()
    {
        const auto ascends = [](std::initializer_list<std::ptrdiff_t> places) {
            return std::is_sorted(places.begin(), places.end(), std::less_equal<>());
        };
        QVERIFY(ascends({slotOf(&RecentDocumentBrowser::initApp), slotOf(&RecentDocumentBrowser::uninitApp),
                         slotOf(&RecentDocumentBrowser::DocumentCreated),
                         slotOf(&RecentDocumentBrowser::mainFrameCreated),
                         slotOf(&RecentDocumentBrowser::mainFrameDestroyed)}));
        QVERIFY(ascends({slotOf(&CFxRecentDocCommand::globalName), slotOf(&CFxRecentDocCommand::localName),
                         slotOf(&CFxRecentDocCommand::Execute)}));
        QVERIFY(ascends({slotOf(&velaCommandHelp::globalName), slotOf(&velaCommandHelp::localName),
                         slotOf(&velaCommandHelp::Execute), slotOf(&velaCommandHelp::GetHelpId)}));
    }
};

TEST_CLASS(tst_ModuleObject);
#include "tst_moduleobject.moc"

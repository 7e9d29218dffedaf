// SPDX-License-Identifier: MIT
#include "module/OdRxUnixModuleRecentDocumentBrowser.h"
#include "module/velaCommandHelp.h"
#include "tests/support/Assertions.h"
#include "tests/support/FakeHost.h"
#include "tests/support/TestCase.h"

#include <OdAssert.h>
#include <OdRxAlloc.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <set>
#include <thread>
#include <type_traits>

// As the loader sees them: by their plain names.
extern "C" void odrxGetAPIVersion(int &major, int &minor, int &majorBuild, int &minorBuild);
extern "C" OdRxModule *odrxCreateModuleObject(void *sysData, const OdChar *moduleName);

namespace {

bool outOfMemory = false;
std::set<void *> memoryInUse;

struct DeleteModule
{
    void operator()(OdRxModule *module) const { module->deleteModule(); }
};
using CreatedModule = std::unique_ptr<OdRxModule, DeleteModule>;

CreatedModule createModule(void *sysData = nullptr, const OdChar *name = L"browser")
{
    return CreatedModule(odrxCreateModuleObject(sysData, name));
}

//! Where a virtual function stands in its class's table, in bytes: what a host that was compiled against the
//! same headers calls. A pointer to it is that number and one, by the C++ ABI of Linux.
template<class Function>
std::ptrdiff_t slotOf(Function function)
{
    std::ptrdiff_t slot = 0;
    std::memcpy(&slot, &function, sizeof slot);
    return slot - 1;
}

using Wrapper = OdRxUnixModuleRecentDocumentBrowser;
using WrapperBase = OdRxUnixModule<RecentDocumentBrowser, RecentDocumentBrowser>;

} // namespace

// In place of the runtime library's own, in this program alone.

void *odrxAlloc(std::size_t size)
{
    if (outOfMemory)
        return nullptr;
    void *memory = std::malloc(size);
    memoryInUse.insert(memory);
    return memory;
}

void odrxFree(void *memory)
{
    memoryInUse.erase(memory);
    std::free(memory);
}

//! The exported entry points and the object that they hand out: its memory, its references, its end.
class tst_ModuleObject : public TestCase
{
    Q_OBJECT

private slots:
    void theVersionIsThatOfTheInterface();
    void theFirstCallCreatesTheModuleObject();
    void theNameIsACopy();
    void aSecondCallGivesTheSameObjectWhateverItsArguments();
    void afterDeletionANewObjectIsCreated();
    void forgettingTheObjectDoesNotDeleteIt();
    void theMemoryIsTheHosts();
    void theMemoryGoesBackThroughTheHostsBaseToo();
    void withoutMemoryTheLoaderGetsBadAllocAndThereIsNoObject();
    void bothKindsOfDeletionForgetTheObject();
    void referencesAreCountedAndNoneDeletesTheObject();
    void releasingWhatNobodyHoldsIsAsserted();
    void anyOtherReleaseIsNotAsserted();
    void threadsCountTogether();
    void theObjectIsEachOfWhatTheHostTalksTo();
    void virtualFunctionsStandInTheirOrder();
    void comingAndGoingDoesNotTouchTheHost();
};

void tst_ModuleObject::theVersionIsThatOfTheInterface()
{
    int major = 0;
    int minor = 0;
    int majorBuild = 0;
    int minorBuild = -1;
    odrxGetAPIVersion(major, minor, majorBuild, minorBuild);
    QCOMPARE(major, 4);
    QCOMPARE(minor, 3);
    QCOMPARE(majorBuild, 2);
    QCOMPARE(minorBuild, 0);
}

void tst_ModuleObject::theFirstCallCreatesTheModuleObject()
{
    QVERIFY(!g_pSingletonModule);
    int handle = 0;
    const CreatedModule module = createModule(&handle, L"a module's name");
    QVERIFY(module);
    QCOMPARE(static_cast<OdRxModule *>(g_pSingletonModule), module.get());
    QCOMPARE(module->numRefs(), 0);
    QCOMPARE(module->sysData(), static_cast<void *>(&handle));
    QVERIFY(module->moduleName() == OdString(L"a module's name"));
}

void tst_ModuleObject::theNameIsACopy()
{
    std::wstring name = L"first";
    const CreatedModule module = createModule(nullptr, name.c_str());
    name.assign(L"other");
    QVERIFY(module->moduleName() == OdString(L"first"));
}

void tst_ModuleObject::aSecondCallGivesTheSameObjectWhateverItsArguments()
{
    int handle = 0;
    const CreatedModule module = createModule(&handle, L"first");
    int otherHandle = 0;
    QCOMPARE(odrxCreateModuleObject(&otherHandle, L"second"), module.get());
    QCOMPARE(odrxCreateModuleObject(nullptr, nullptr), module.get());
    QCOMPARE(module->sysData(), static_cast<void *>(&handle));
    QVERIFY(module->moduleName() == OdString(L"first"));
    QCOMPARE(memoryInUse.size(), std::size_t(1));
}

void tst_ModuleObject::afterDeletionANewObjectIsCreated()
{
    createModule(nullptr, L"first").reset();
    QVERIFY(!g_pSingletonModule);
    QVERIFY(memoryInUse.empty());

    const CreatedModule module = createModule(nullptr, L"second");
    QVERIFY(module->moduleName() == OdString(L"second"));
    QCOMPARE(memoryInUse.size(), std::size_t(1));
}

void tst_ModuleObject::forgettingTheObjectDoesNotDeleteIt()
{
    const CreatedModule forgotten = createModule(nullptr, L"forgotten");
    deleteModuleObject();
    QVERIFY(!g_pSingletonModule);
    QCOMPARE(memoryInUse.size(), std::size_t(1));
    QVERIFY(forgotten->moduleName() == OdString(L"forgotten"));

    const CreatedModule module = createModule();
    QVERIFY(module != forgotten);
}

void tst_ModuleObject::theMemoryIsTheHosts()
{
    CreatedModule module = createModule();
    QVERIFY(memoryInUse.count(module.get()) == 1);
    module.reset();
    QVERIFY(memoryInUse.empty());
}

void tst_ModuleObject::theMemoryGoesBackThroughTheHostsBaseToo()
{
    OdRxObject *object = createModule().release();
    delete object;
    deleteModuleObject();
    QVERIFY(memoryInUse.empty());
}

void tst_ModuleObject::withoutMemoryTheLoaderGetsBadAllocAndThereIsNoObject()
{
    outOfMemory = true;
    QVERIFY_EXCEPTION_THROWN(odrxCreateModuleObject(nullptr, L"browser"), std::bad_alloc);
    outOfMemory = false;
    QVERIFY(!g_pSingletonModule);
    QVERIFY(memoryInUse.empty());

    QVERIFY(createModule());
}

void tst_ModuleObject::bothKindsOfDeletionForgetTheObject()
{
    odrxCreateModuleObject(nullptr, L"browser")->deleteModule();
    QVERIFY(!g_pSingletonModule);
    QVERIFY(memoryInUse.empty());

    odrxCreateModuleObject(nullptr, L"browser");
    g_pSingletonModule->WrapperBase::deleteModule();
    QVERIFY(!g_pSingletonModule);
    QVERIFY(memoryInUse.empty());
}

void tst_ModuleObject::referencesAreCountedAndNoneDeletesTheObject()
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
    QCOMPARE(memoryInUse.size(), std::size_t(1));
    QVERIFY(g_pSingletonModule);
    QVERIFY(assertions.empty());
}

void tst_ModuleObject::releasingWhatNobodyHoldsIsAsserted()
{
    const AssertionsAreNoted noted;
    const CreatedModule module = createModule();
    module->release();
    QCOMPARE(assertions.size(), std::size_t(1));
    QCOMPARE(assertions.front().expression, QByteArray("m_nLockCount"));
    QCOMPARE(assertions.front().source, QByteArray("RxDynamicModule"));
    QCOMPARE(assertions.front().line, 379);
    QCOMPARE(module->numRefs(), -1);
}

void tst_ModuleObject::anyOtherReleaseIsNotAsserted()
{
    const CreatedModule module = createModule();
    module->addRef();
    const AssertionsAreNoted noted;
    module->release();
    QVERIFY(assertions.empty());
    module->release(); // from 0, which is
    module->release(); // from -1, which the count does not tell from a reference
    QCOMPARE(assertions.size(), std::size_t(1));
    QCOMPARE(module->numRefs(), -2);
}

void tst_ModuleObject::threadsCountTogether()
{
    const CreatedModule module = createModule();
    constexpr int threadCount = 4;
    constexpr int rounds = 500000; // long enough for threads to meet where they share a processor
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

void tst_ModuleObject::theObjectIsEachOfWhatTheHostTalksTo()
{
    static_assert(std::is_base_of_v<WrapperBase, Wrapper>);
    static_assert(std::is_base_of_v<RecentDocumentBrowser, WrapperBase>);
    static_assert(std::is_convertible_v<RecentDocumentBrowser *, vela_OdRxModule *>);
    static_assert(std::is_convertible_v<RecentDocumentBrowser *, CFxDocumentManagerReactor *>);
    static_assert(std::is_convertible_v<RecentDocumentBrowser *, CFxEditorReactor *>);
    static_assert(std::has_virtual_destructor_v<RecentDocumentBrowser>);

    // The module base comes first, so that the loader's pointer is the object's own.
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

void tst_ModuleObject::virtualFunctionsStandInTheirOrder()
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

void tst_ModuleObject::comingAndGoingDoesNotTouchTheHost()
{
    const FakeHost host;
    createModule().reset();
    QCOMPARE(host.calls, QStringList());
}

QTEST_MAIN(tst_ModuleObject)
#include "tst_moduleobject.moc"

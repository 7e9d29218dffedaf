// SPDX-License-Identifier: MIT
#include "tests/support/Assertions.h"
#include "tests/support/TestCase.h"

#include <CFxCommand.h>
#include <CFxDocumentManagerReactor.h>
#include <CFxEditorReactor.h>
#include <CFxString.h>
#include <OdAssert.h>
#include <OdRxAlloc.h>
#include <OdRxUnixModule.h>
#include <OdStaticRxObject.h>
#include <OdString.h>
#include <vela_OdRxModule.h>

#include <cstdint>
#include <cstring>
#include <cwchar>
#include <limits>
#include <thread>
#include <vector>

namespace {

int deletedModuleObjects = 0;

class PlainModule : public vela_OdRxModule
{
public:
    void initApp() override {}
    void uninitApp() override {}
};

class ModuleObject : public OdRxUnixModule<ModuleObject, PlainModule>
{
public:
    ModuleObject(bool &isDeleted, void *sysData, const OdChar *name)
        : OdRxUnixModule(sysData, name), m_isDeleted(isDeleted)
    {
    }
    ~ModuleObject() override { m_isDeleted = true; }

private:
    bool &m_isDeleted;
};

class SilentCommand : public CFxCommand
{
public:
    OdString globalName() const override { return L"_SILENT"; }
    OdString localName() const override { return L"SILENT"; }
    int Execute(CFxCommandContext *) override { return ++executions; }

    int executions = 0;
};

} // namespace

void deleteModuleObject()
{
    ++deletedModuleObjects;
}

class tst_Sdk : public TestCase
{
    Q_OBJECT

private slots:
    // The module object.

    void moduleObjectIsDeletedByItsHostOnly()
    {
        bool isDeleted = false;
        int handle = 0;
        std::wstring name = L"browser";
        auto *const module = new ModuleObject(isDeleted, &handle, name.c_str());
        name.assign(name.size(), L'x'); // the object has its own copy
        QCOMPARE(module->numRefs(), 0);
        QCOMPARE(module->sysData(), static_cast<void *>(&handle));
        QCOMPARE(module->moduleName(), OdString(L"browser"));
        module->addRef();
        module->addRef();
        QCOMPARE(module->numRefs(), 2);
        module->release();
        module->release();
        QCOMPARE(module->numRefs(), 0);
        QVERIFY(!isDeleted);
        const int before = deletedModuleObjects;
        module->deleteModule(); // the library forgets it
        QCOMPARE(deletedModuleObjects, before + 1);
        QVERIFY(isDeleted);
    }

    void severalThreadsMayCount()
    {
        bool isDeleted = false;
        auto *const module = new ModuleObject(isDeleted, nullptr, L"browser");
        constexpr int each = 10000;
        constexpr int threadCount = 4;
        std::vector<std::thread> threads;
        threads.reserve(threadCount);
        for (int i = 0; i < threadCount; ++i) {
            threads.emplace_back([module] {
                for (int n = 0; n < each; ++n) {
                    module->addRef();
                    module->addRef();
                    module->release();
                }
            });
        }
        for (std::thread &thread : threads)
            thread.join();
        QCOMPARE(module->numRefs(), threadCount * each);
        module->deleteModule();
    }

    void oneReleaseTooManyIsAssertedAndCounted()
    {
        bool isDeleted = false;
        auto *const module = new ModuleObject(isDeleted, nullptr, L"browser");
        {
            const AssertionsAreNoted noted;
            module->release();
        }
        QCOMPARE(assertions.size(), std::size_t(1));
        QCOMPARE(assertions[0].expression, QByteArray("m_nLockCount"));
        QCOMPARE(assertions[0].source, QByteArray("RxDynamicModule"));
        QCOMPARE(assertions[0].line, 379);
        QCOMPARE(module->numRefs(), -1);
        module->deleteModule();
    }

    void aModuleObjectMayBeDeletedThroughItsBase()
    {
        // Under the address sanitizer this fails unless memory of odrxAlloc() is freed by odrxFree().
        bool isDeleted = false;
        const OdRxObject *const object = new ModuleObject(isDeleted, nullptr, nullptr);
        delete object;
        QVERIFY(isDeleted);
    }

    void withoutMemoryThereIsNoModuleObject()
    {
#ifdef __SANITIZE_ADDRESS__
        QSKIP("the address sanitizer ends the process instead of giving null");
#endif
        volatile std::size_t tooMuch = std::numeric_limits<std::size_t>::max() / 4;
        QVERIFY_EXCEPTION_THROWN(ModuleObject::operator new(tooMuch), std::bad_alloc);
    }

    // Memory and assertions.

    void memoryIsAligned()
    {
        for (const std::size_t size : {std::size_t(0), std::size_t(1), std::size_t(100)}) {
            void *const memory = odrxAlloc(size);
            QVERIFY(memory);
            QCOMPARE(reinterpret_cast<std::uintptr_t>(memory) % alignof(std::max_align_t), std::uintptr_t(0));
            std::memset(memory, 0x5a, size);
            odrxFree(memory);
        }
        odrxFree(nullptr);
    }

    void theDefaultHandlerIsNull()
    {
        QVERIFY(!odaSetAssertHandler(noteAssertion));
        QVERIFY(odaSetAssertHandler(nullptr) == &noteAssertion);
        assertions.clear();
        odaAssertFailed("to the standard error stream", "tst_sdk", 1);
        QVERIFY(assertions.empty());
    }

    // Static objects.

    void aStaticObjectIsNotCounted()
    {
        OdStaticRxObject<SilentCommand> command;
        QCOMPARE(command.numRefs(), 1);
        command.addRef();
        QCOMPARE(command.numRefs(), 1);
        command.release();
        command.release();
        QCOMPARE(command.numRefs(), 1);
    }

    void commandsHaveDefaults()
    {
        OdStaticRxObject<SilentCommand> command;
        QCOMPARE(command.groupName(), OdString(L"FX_COMMANDS"));
        QCOMPARE(command.flags(), 0u);
        command.AddFlags(0x40000000u);
        command.AddFlags(1u);
        QCOMPARE(command.flags(), 0x40000001u);
        QCOMPARE(command.GetHelpId(), 0);
        command.Help(); // without a host nothing happens
        command.execute(nullptr);
        QCOMPARE(command.executions, 1);
    }

    void reactorsDoNothingByDefault()
    {
        CFxEditorReactor editorReactor;
        editorReactor.mainFrameCreated(nullptr);
        editorReactor.commandEnded(L"_X", 1);
        QVERIFY(dynamic_cast<OdEditorReactor *>(&editorReactor));
        CFxDocumentManagerReactor documentReactor;
        documentReactor.DocumentCreated(nullptr);
        documentReactor.DocumentDestroyed(CFxString());
    }

    // Strings.

    void engineStringContainsItsText()
    {
        QVERIFY(OdString().isEmpty());
        QVERIFY(OdString(static_cast<const OdChar *>(nullptr)).isEmpty());
        QCOMPARE(OdString().c_str()[0], L'\0');
        const OdString text(L"abc");
        QVERIFY(!text.isEmpty());
        QVERIFY(text == OdString(std::wstring(L"abc")));
        QVERIFY(text != OdString(L"ABC"));
    }

    void aFrameworkStringConvertsBothWays()
    {
        for (const char *bytes :
             {"", "/home/me/plan.dwg", "/pl\u00e4ne/\u00df.dwg", "/\U0001F4D0\U0010FFFD.dwg"}) {
            const QString text(bytes);
            const CFxString string(text);
            QCOMPARE(QString(string), text);
            QCOMPARE(string.isEmpty(), text.isEmpty());
            QCOMPARE(std::wcslen(string.c_str()), std::size_t(text.toUcs4().size()));
        }
        QVERIFY(CFxString(static_cast<const wchar_t *>(nullptr)).isEmpty());
        QCOMPARE(CFxString().c_str()[0], L'\0');
    }

    void stringsCompareByCodePointWithOrWithoutCase()
    {
        const CFxString a(L"a");
        QCOMPARE(a.compare(CFxString(L"a")), 0);
        QVERIFY(a.compare(CFxString(L"b")) < 0);
        QVERIFY(a.compare(CFxString(L"A")) > 0);
        // In UTF-16 the surrogates of the second would sort first.
        QVERIFY(CFxString(L"\uffff").compare(CFxString(L"\U0001F4D0")) < 0);
        QVERIFY(a == CFxString(L"a"));
        QVERIFY(a != CFxString(L"A"));
        QCOMPARE(CFxString(L"PMI_\u00dcbersicht").compareNoCase(CFxString(L"pmi_\u00fcbersicht")), 0);
        QVERIFY(a.compareNoCase(CFxString(L"B")) < 0);
        QVERIFY(CFxString(L"B").compareNoCase(a) > 0);
    }

    void aMenuPrefixIsFormatted()
    {
        QCOMPARE(QString(CFxString::format("&%i ", 3)), QString("&3 "));
        QCOMPARE(QString(CFxString::format("&%i ", 1000)), QString("&1000 "));
        QCOMPARE(QString(CFxString::format("%s-%02d%%", "x", 7)), QString("x-07%"));
    }
};

CORE_TEST_CLASS(tst_Sdk);
#include "tst_sdk.moc"

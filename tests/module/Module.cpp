// Load and unload with the default support library.
#include <new>
#include <regex>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "Encoding/EncodingModule.h"
#include "LoadedLibrary.h"
#include "Toolkit/LibModuleManager.h"
#include "Toolkit/TString.h"
#include "support/Allocations.h"
#include "support/Command.h"
#include "support/Layout.h"
#include "support/Octets.h"

namespace {

using tests::LoadedLibrary;
using Toolkit::LibModule;
using Toolkit::LibModuleManager;

bool IsRegistered(const LibModule* pModule) {
    return (*LibModuleManager::s_pInstance)->IsRegistered(pModule);
}

int ManagerCount() {
    return tests::CountOf(*LibModuleManager::s_pInstance);
}

TEST(MappedFiles, AreKnownByTheirNamesWhereverTheyLie) {
    const auto isListed = [](const char* line) {
        std::istringstream maps(std::string("00400000-00401000 r-xp 00000000 08:01 5 /usr/bin/host\n") +
                                line);
        return tests::IsListed(maps, "libQX_Encoding.so");
    };
    EXPECT_TRUE(isListed("7f00-7f10 r-xp 00000000 08:01 7 /usr/lib/libQX_Encoding.so"));
    EXPECT_TRUE(isListed("7f00-7f10 r-xp 00000000 08:01 7 /home/a b/libQX_Encoding/libQX_Encoding.so.1\n"));
    EXPECT_FALSE(isListed("7f00-7f10 r-xp 00000000 08:01 7 /home/libQX_Encoding.so/module_tests\n"));
    EXPECT_FALSE(isListed("7f00-7f10 r-xp 00000000 08:01 7 /home/libQX_Encoding/libQX_Toolkit.so.1\n"));
    EXPECT_FALSE(isListed("7f00-7f10 r-xp 00000000 08:01 7 /usr/lib/notlibQX_Encoding.so\n"));
    EXPECT_FALSE(isListed("7ffd-7ffe rw-p 00000000 00:00 0\n"));
}

TEST(Module, IsMadeAndRegisteredWhenTheLibraryIsLoaded) {
    if (!tests::AreMappedFilesListed())
        GTEST_SKIP() << tests::c_noMappedFiles;
    ASSERT_FALSE(tests::IsLibraryMapped());
    const LoadedLibrary library;
    ASSERT_NE(library.Module(), nullptr);
    EXPECT_TRUE(IsRegistered(library.Module()));
}

TEST(Module, IsUnregisteredWhenTheLibraryIsUnloaded) {
    LoadedLibrary library;
    const LibModule* const pModule = library.Module();
    library.Close();
    EXPECT_FALSE(IsRegistered(pModule));
}

TEST(Module, LibraryIsReallyUnmapped) {
    if (!tests::AreMappedFilesListed())
        GTEST_SKIP() << tests::c_noMappedFiles;
    LoadedLibrary library;
    EXPECT_TRUE(tests::IsLibraryMapped());
    library.Close();
    EXPECT_FALSE(tests::IsLibraryMapped());
    EXPECT_EQ(dlopen(ENCODING_LIBRARY, RTLD_NOW | RTLD_NOLOAD), nullptr);
}

TEST(Module, LibraryIsUnmappedAlsoAfterItsEmptyStringWasMade) {
    if (!tests::AreMappedFilesListed())
        GTEST_SKIP() << tests::c_noMappedFiles;
    LoadedLibrary library;
    const auto empty = library.Symbol<const TString<wchar_t>&()>("_ZN7TStringIwE5EmptyEv");
    ASSERT_NE(empty, nullptr);
    EXPECT_EQ(empty().length(), 0U);
    library.Close();
    EXPECT_FALSE(tests::IsLibraryMapped());
}

TEST(Module, LibraryCanBeLoadedAgain) {
    for (int round = 0; round < 3; ++round) {
        SCOPED_TRACE(round);
        LoadedLibrary library;
        const LibModule* const pModule = library.Module();
        EXPECT_TRUE(IsRegistered(pModule));
        library.Close();
        EXPECT_FALSE(IsRegistered(pModule));
    }
}

TEST(Module, SecondHandleOfOneLoadSharesTheModule) {
    const LoadedLibrary first;
    const LibModule* const pModule = first.Module();
    {
        const LoadedLibrary second;
        EXPECT_EQ(second.Module(), pModule);
        EXPECT_EQ(&second.Module(), &first.Module());
    }
    EXPECT_TRUE(IsRegistered(pModule));
}

TEST(Module, EntryPointsAndGlobalHavePlainNames) {
    const LoadedLibrary library;
    EXPECT_NE(library.Symbol<void>("DllencodingModuleLoad"), nullptr);
    EXPECT_NE(library.Symbol<void>("DllencodingModuleUnload"), nullptr);
    EXPECT_NE(library.Symbol<void>("encodingModule"), nullptr);
}

TEST(Module, ManagersReferenceCountStaysAsItWas) {
    const int count = ManagerCount();
    LoadedLibrary library;
    EXPECT_EQ(ManagerCount(), count);
    library.Unload();
    EXPECT_EQ(ManagerCount(), count);
    library.Load();
    EXPECT_EQ(ManagerCount(), count);
    library.Close();
    EXPECT_EQ(ManagerCount(), count);
}

TEST(Module, UnloadByNameLeavesTheAddressOfTheFreedObject) {
    const LoadedLibrary library;
    const LibModule* const pModule = library.Module();
    library.Unload();
    EXPECT_FALSE(IsRegistered(pModule));
    EXPECT_EQ(library.Module(), pModule);
    library.Load();
    EXPECT_TRUE(IsRegistered(library.Module()));
}

TEST(Module, UnloadFreesTheObject) {
    const LoadedLibrary library;
    const unsigned long deallocations = tests::Deallocations();
    library.Unload();
    EXPECT_EQ(tests::Deallocations() - deallocations, 1U);
    library.Load();
}

TEST(Module, SecondLoadMakesASecondModuleAndLosesTheFirst) {
    const LoadedLibrary library;
    LibModule* const pFirst = library.Module();
    library.Load();
    LibModule* const pSecond = library.Module();
    EXPECT_NE(pFirst, pSecond);
    EXPECT_TRUE(IsRegistered(pFirst));
    EXPECT_TRUE(IsRegistered(pSecond));
    library.Unload();
    EXPECT_TRUE(IsRegistered(pFirst));
    EXPECT_FALSE(IsRegistered(pSecond));
    library.Load();

    (*LibModuleManager::s_pInstance)->Unregister(pFirst);
    delete pFirst;
}

TEST(Module, FailedAllocationLeavesLoadAndTheGlobalAsItWas) {
    const LoadedLibrary library;
    const LibModule* const pModule = library.Module();
    const int count = ManagerCount();
    {
        const tests::FailAllocation failure(1);
        EXPECT_THROW(library.Load(), std::bad_alloc);
    }
    EXPECT_EQ(library.Module(), pModule);
    EXPECT_TRUE(IsRegistered(pModule));
    EXPECT_EQ(ManagerCount(), count);
}

TEST(Module, MemoryThatRunsOutWhileTheLibrariesAreLoadedEndsTheProcess) {
    const auto outcome = tests::RunCommand(tests::Quoted(tests::WordsOf(MEMORY_HOST)));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(std::regex_match(outcome.output, std::regex("(ended by std::terminate\n){3,}loaded\n")))
        << outcome.output;
}

TEST(Module, InitializeAndReleaseHaveNoEffect) {
    const LoadedLibrary library;
    LibModule* const pModule = library.Module();
    const unsigned long allocations = tests::Allocations();
    pModule->Initialize();
    pModule->Release();
    pModule->Release();
    EXPECT_EQ(tests::Allocations(), allocations);
    EXPECT_EQ(library.Module(), pModule);
    EXPECT_TRUE(IsRegistered(pModule));
}

TEST(Module, IsOnlyADispatchPointerWithSlotsInTheBindingOrder) {
    static_assert(sizeof(Encoding::EncodingModule) == sizeof(void*));
    const LoadedLibrary library;
    const void* const* const slots = *reinterpret_cast<const void* const* const*>(library.Module());
    EXPECT_EQ(slots[0], library.Symbol<void>("_ZN8Encoding14EncodingModuleD1Ev"));
    EXPECT_EQ(slots[1], library.Symbol<void>("_ZN8Encoding14EncodingModuleD0Ev"));
    EXPECT_EQ(slots[2], library.Symbol<void>("_ZN8Encoding14EncodingModule10InitializeEv"));
    EXPECT_EQ(slots[3], library.Symbol<void>("_ZN8Encoding14EncodingModule7ReleaseEv"));
    for (int slot = 0; slot < 4; ++slot)
        EXPECT_NE(slots[slot], nullptr);
}

} // namespace

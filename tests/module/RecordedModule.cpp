// Load and unload as a support library of the host's own sees them.
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "LoadedLibrary.h"
#include "Recording.h"
#include "Toolkit/LibModuleManager.h"
#include "support/Octets.h"

namespace {

using tests::LoadedLibrary;
using tests::Recording;
using tests::TheRecording;

using Events = std::vector<std::string>;
using Modules = std::vector<Toolkit::LibModule*>;

const Events c_load{"LibModule", "Lock(FFFFFFFF)", "Unlock", "Register", "Lock(FFFFFFFF)", "Unlock"};
const Events c_unload{"Lock(FFFFFFFF)", "Unlock", "Unregister", "Lock(FFFFFFFF)", "Unlock", "~LibModule"};

int ManagerCount() {
    return tests::CountOf(*Toolkit::LibModuleManager::s_pInstance);
}

class RecordedModule : public testing::Test {
protected:
    RecordedModule() { TheRecording() = Recording(); }
    Recording& m_Recording = TheRecording();
};

TEST_F(RecordedModule, StaticConstructionIsOneCallOfLoadAndNothingElse) {
    const LoadedLibrary library;
    EXPECT_EQ(m_Recording.m_Events, c_load);
    EXPECT_EQ(m_Recording.m_Registered, Modules{library.Module()});
}

TEST_F(RecordedModule, StaticDestructionIsOneCallOfUnloadAndNothingElse) {
    if (!tests::AreMappedFilesListed())
        GTEST_SKIP() << tests::c_noMappedFiles;
    LoadedLibrary library;
    Toolkit::LibModule* const pModule = library.Module();
    m_Recording.m_Events.clear();
    library.Close();
    EXPECT_EQ(m_Recording.m_Events, c_unload);
    EXPECT_EQ(m_Recording.m_Unregistered, Modules{pModule});
    EXPECT_FALSE(tests::IsLibraryMapped());
}

TEST_F(RecordedModule, LoadByNameDoesTheSame) {
    const LoadedLibrary library;
    library.Unload();
    TheRecording() = Recording();
    library.Load();
    EXPECT_EQ(m_Recording.m_Events, c_load);
    EXPECT_EQ(m_Recording.m_Registered, Modules{library.Module()});
}

TEST_F(RecordedModule, UnloadByNameDoesTheSame) {
    const LoadedLibrary library;
    Toolkit::LibModule* const pModule = library.Module();
    m_Recording.m_Events.clear();
    library.Unload();
    EXPECT_EQ(m_Recording.m_Events, c_unload);
    EXPECT_EQ(m_Recording.m_Unregistered, Modules{pModule});
    EXPECT_EQ(library.Module(), pModule);
    library.Load();
}

TEST_F(RecordedModule, ShareOfTheManagerIsHeldWhileItIsCalledAndGivenBack) {
    const int count = ManagerCount();
    LoadedLibrary library;
    EXPECT_EQ(ManagerCount(), count);
    library.Close();
    EXPECT_EQ(ManagerCount(), count);
    EXPECT_EQ(m_Recording.m_ManagerShares, (std::vector<int>{count + 1, count + 1}));
}

TEST_F(RecordedModule, SecondLoadOverwritesTheGlobalWithoutALook) {
    const LoadedLibrary library;
    Toolkit::LibModule* const pFirst = library.Module();
    m_Recording.m_Events.clear();
    library.Load();
    EXPECT_EQ(m_Recording.m_Events, c_load);
    EXPECT_EQ(m_Recording.m_Registered, (Modules{pFirst, library.Module()}));
    delete pFirst;
}

TEST_F(RecordedModule, UnregisterIsCalledEvenWithNullAndNothingIsDestroyedThen) {
    const LoadedLibrary library;
    delete library.Module();
    library.Module() = nullptr;
    m_Recording.m_Events.clear();
    library.Unload();
    EXPECT_EQ(m_Recording.m_Unregistered, Modules{nullptr});
    EXPECT_EQ(m_Recording.m_Events,
              (Events{"Lock(FFFFFFFF)", "Unlock", "Unregister", "Lock(FFFFFFFF)", "Unlock"}));
    EXPECT_EQ(library.Module(), nullptr);
}

TEST_F(RecordedModule, ShareIsReleasedWhenRegisterThrowsAndTheExceptionPassesOn) {
    const LoadedLibrary library;
    library.Unload();
    const int count = ManagerCount();
    TheRecording() = Recording();
    m_Recording.m_RegisterThrows = true;
    EXPECT_THROW(library.Load(), std::runtime_error);
    EXPECT_EQ(m_Recording.m_Events, c_load);
    EXPECT_EQ(ManagerCount(), count);
    EXPECT_EQ(m_Recording.m_ManagerShares, std::vector<int>{count + 1});
    EXPECT_EQ(m_Recording.m_Registered, Modules{library.Module()}) << "the global holds the new object";
}

TEST_F(RecordedModule, ResultsOfTheManagerAreIgnored) {
    // This manager answers false to everything.
    LoadedLibrary library;
    EXPECT_NE(library.Module(), nullptr);
    library.Close();
    EXPECT_EQ(m_Recording.m_Events.back(), "~LibModule");
}

TEST_F(RecordedModule, ModulesInitializeAndReleaseDoNotReachTheBase) {
    const LoadedLibrary library;
    m_Recording.m_Events.clear();
    Toolkit::LibModule* const pModule = library.Module();
    pModule->Initialize();
    pModule->Release();
    EXPECT_EQ(m_Recording.m_Events, Events{});
}

} // namespace

#include "Toolkit/LibModuleManager.h"

#include <stdexcept>

#include <gtest/gtest.h>

#include "Encoding/EncodingModule.h"
#include "support/Allocations.h"
#include "support/Layout.h"
#include "support/Octets.h"

namespace {

using Toolkit::LibModule;
using Toolkit::LibModuleManager;

struct CountingModule : LibModule {
    void Initialize() override { ++m_Initialized; }
    void Release() override { ++m_Released; }
    int m_Initialized = 0;
    int m_Released = 0;
};

TEST(LibModuleManager, ProcessWideManagerIsThereAndShared) {
    ASSERT_NE(LibModuleManager::s_pInstance, nullptr);
    ASSERT_NE(LibModuleManager::s_pInstance->get(), nullptr);
    const int count = tests::CountOf(*LibModuleManager::s_pInstance);
    {
        const Toolkit::smart_ptr<LibModuleManager> share(*LibModuleManager::s_pInstance);
        EXPECT_EQ(tests::CountOf(*LibModuleManager::s_pInstance), count + 1);
    }
    EXPECT_EQ(tests::CountOf(*LibModuleManager::s_pInstance), count);
}

TEST(LibModuleManager, KnowsTheModuleOfEveryLoadedLibrary) {
    EXPECT_TRUE((*LibModuleManager::s_pInstance)->IsRegistered(encodingModule));
}

TEST(LibModuleManager, RegisterAddsTheModuleAndInitializesIt) {
    LibModuleManager manager;
    CountingModule module;
    EXPECT_FALSE(manager.IsRegistered(&module));
    EXPECT_TRUE(manager.Register(&module));
    EXPECT_TRUE(manager.IsRegistered(&module));
    EXPECT_EQ(module.m_Initialized, 1);
    EXPECT_EQ(module.m_Released, 0);
}

TEST(LibModuleManager, UnregisterRemovesTheModuleAndReleasesIt) {
    LibModuleManager manager;
    CountingModule module;
    manager.Register(&module);
    EXPECT_TRUE(manager.Unregister(&module));
    EXPECT_FALSE(manager.IsRegistered(&module));
    EXPECT_EQ(module.m_Initialized, 1);
    EXPECT_EQ(module.m_Released, 1);
}

TEST(LibModuleManager, RepeatedModuleIsRefused) {
    LibModuleManager manager;
    CountingModule module;
    manager.Register(&module);
    EXPECT_FALSE(manager.Register(&module));
    EXPECT_EQ(module.m_Initialized, 1);
    EXPECT_TRUE(manager.Unregister(&module));
    EXPECT_FALSE(manager.IsRegistered(&module));
    EXPECT_FALSE(manager.Unregister(&module));
    EXPECT_EQ(module.m_Released, 1);
}

TEST(LibModuleManager, NullIsRefused) {
    LibModuleManager manager;
    EXPECT_FALSE(manager.Register(nullptr));
    EXPECT_FALSE(manager.IsRegistered(nullptr));
    EXPECT_FALSE(manager.Unregister(nullptr));
}

TEST(LibModuleManager, UnknownModuleIsNotTouched) {
    LibModuleManager manager;
    // No object stands at this address, so that touching it would be noticed.
    auto* const pNowhere = reinterpret_cast<LibModule*>(16); // NOLINT(performance-no-int-to-ptr)
    EXPECT_FALSE(manager.Unregister(pNowhere));
    EXPECT_FALSE(manager.IsRegistered(pNowhere));
}

TEST(LibModuleManager, OtherModulesStayRegistered) {
    LibModuleManager manager;
    CountingModule modules[3];
    for (CountingModule& module : modules)
        EXPECT_TRUE(manager.Register(&module));
    EXPECT_TRUE(manager.Unregister(&modules[1]));
    EXPECT_TRUE(manager.IsRegistered(&modules[0]));
    EXPECT_FALSE(manager.IsRegistered(&modules[1]));
    EXPECT_TRUE(manager.IsRegistered(&modules[2]));
    EXPECT_EQ(modules[0].m_Released + modules[2].m_Released, 0);
    EXPECT_TRUE(manager.Register(&modules[1]));
    EXPECT_EQ(modules[1].m_Initialized, 2);
}

TEST(LibModuleManager, OwnsNoModule) {
    CountingModule module;
    {
        LibModuleManager manager;
        manager.Register(&module);
    }
    EXPECT_EQ(module.m_Released, 0);
}

TEST(LibModuleManager, ExceptionFromInitializeLeavesTheModuleUnregistered) {
    struct Failing : LibModule {
        void Initialize() override {
            if (++m_Attempts == 1)
                throw std::runtime_error("not yet");
        }
        int m_Attempts = 0;
    };
    LibModuleManager manager;
    CountingModule other;
    Failing module;
    manager.Register(&other);
    EXPECT_THROW(manager.Register(&module), std::runtime_error);
    EXPECT_FALSE(manager.IsRegistered(&module));
    EXPECT_TRUE(manager.IsRegistered(&other));
    EXPECT_TRUE(manager.Register(&module));
}

TEST(LibModuleManager, ModuleMayUseTheManagerWhileItIsCalled) {
    struct Using : LibModule {
        explicit Using(LibModuleManager& manager) : m_Manager(manager) {}
        void Initialize() override { m_WasRegistered = m_Manager.IsRegistered(this); }
        void Release() override { m_IsRegistered = m_Manager.IsRegistered(this); }
        LibModuleManager& m_Manager;
        bool m_WasRegistered = false;
        bool m_IsRegistered = true;
    };
    LibModuleManager manager;
    Using module(manager);
    manager.Register(&module);
    manager.Unregister(&module);
    EXPECT_TRUE(module.m_WasRegistered);
    EXPECT_FALSE(module.m_IsRegistered);
}

TEST(LibModule, VirtualSlotsAreDestructorsInitializeRelease) {
    static_assert(sizeof(LibModule) == sizeof(void*));
    struct Noting : CountingModule {
        explicit Noting(int& destroyed) : m_Destroyed(destroyed) {}
        ~Noting() override { ++m_Destroyed; }
        int& m_Destroyed;
    };
    int destroyed = 0;
    auto* const pModule = new Noting(destroyed);
    const unsigned long deallocations = tests::Deallocations();
    tests::CallSlot(pModule, 2);
    EXPECT_EQ(pModule->m_Initialized, 1);
    EXPECT_EQ(pModule->m_Released, 0);
    tests::CallSlot(pModule, 3);
    EXPECT_EQ(pModule->m_Initialized, 1);
    EXPECT_EQ(pModule->m_Released, 1);
    EXPECT_EQ(destroyed, 0);
    tests::CallSlot(pModule, 1);
    EXPECT_EQ(destroyed, 1);
    EXPECT_EQ(tests::Deallocations() - deallocations, 1U);

    alignas(Noting) unsigned char memory[sizeof(Noting)];
    tests::CallSlot(new (memory) Noting(destroyed), 0);
    EXPECT_EQ(destroyed, 2);
    EXPECT_EQ(tests::Deallocations() - deallocations, 1U);
}

TEST(LibModule, BaseDoesNothing) {
    LibModule module;
    module.Initialize();
    module.Release();
    LibModuleManager manager;
    EXPECT_TRUE(manager.Register(&module));
    EXPECT_TRUE(manager.Unregister(&module));
}

} // namespace

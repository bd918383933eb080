// What several threads may use at once: shares of one object, the empty string, the module manager.
#include <atomic>
#include <stdexcept>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "Toolkit/LibModuleManager.h"
#include "Toolkit/SystemInfo.h"
#include "Toolkit/TString.h"
#include "support/Octets.h"
#include "threads/Together.h"

namespace {

using tests::CountOf;
using tests::Together;
using Toolkit::LibModule;
using Toolkit::LibModuleManager;
using Toolkit::smart_ptr;

TEST(Threads, FirstCallsOfEmptyGiveTheSameObject) {
    std::vector<const TString<wchar_t>*> seen(8);
    Together(seen.size(), [&seen](std::size_t thread) { seen[thread] = &TString<wchar_t>::Empty(); });
    for (const auto* text : seen) {
        EXPECT_EQ(text, seen[0]);
        EXPECT_TRUE(text->empty());
    }
}

TEST(Threads, CopiesOfOneSmartPtrAreMadeAndReleasedAtOnce) {
    static std::atomic<int> s_destroyed;
    struct Noted {
        ~Noted() { ++s_destroyed; }
        int m_Value = 7;
    };
    s_destroyed = 0;
    {
        const smart_ptr<Noted> shared(new Noted);
        Together(4, [&shared](std::size_t) {
            smart_ptr<Noted> kept;
            for (int round = 0; round < 2000; ++round) {
                const smart_ptr<Noted> copy(shared);
                kept = copy;
                EXPECT_EQ(kept->m_Value, 7);
            }
        });
        EXPECT_EQ(CountOf(shared), 1);
        EXPECT_EQ(s_destroyed, 0);
    }
    EXPECT_EQ(s_destroyed, 1);
}

TEST(Threads, LastShareIsReleasedOnWhicheverThreadIsLast) {
    static std::atomic<int> s_destroyed;
    struct Noted {
        ~Noted() { ++s_destroyed; }
        int m_Writes[4] = {};
    };
    for (int round = 1; round <= 200; ++round) {
        s_destroyed = 0;
        std::vector<smart_ptr<Noted>> shares(4);
        {
            const smart_ptr<Noted> shared(new Noted);
            for (auto& share : shares)
                share = shared;
        }
        Together(shares.size(), [&shares](std::size_t thread) {
            ++shares[thread]->m_Writes[thread]; // seen by the thread that destroys
            shares[thread] = static_cast<Noted*>(nullptr);
        });
        ASSERT_EQ(s_destroyed, 1);
    }
}

TEST(Threads, SharesOfTheProcessWideObjectsComeAndGo) {
    const int manager = CountOf(*LibModuleManager::s_pInstance);
    const int system = CountOf(*Toolkit::SystemInfo::s_pInstance);
    Together(4, [](std::size_t) {
        for (int round = 0; round < 1000; ++round) {
            const smart_ptr<LibModuleManager> managerShare(*LibModuleManager::s_pInstance);
            const smart_ptr<Toolkit::SystemInfo> systemShare(*Toolkit::SystemInfo::s_pInstance);
        }
    });
    EXPECT_EQ(CountOf(*LibModuleManager::s_pInstance), manager);
    EXPECT_EQ(CountOf(*Toolkit::SystemInfo::s_pInstance), system);
}

TEST(Threads, ModulesOfSeveralThreadsAreRegisteredAndUnregistered) {
    LibModuleManager manager;
    LibModule kept;
    manager.Register(&kept);
    Together(4, [&](std::size_t) {
        for (int round = 0; round < 500; ++round) {
            LibModule module;
            EXPECT_TRUE(manager.Register(&module));
            EXPECT_TRUE(manager.IsRegistered(&module));
            EXPECT_TRUE(manager.IsRegistered(&kept));
            EXPECT_TRUE(manager.Unregister(&module));
            EXPECT_FALSE(manager.IsRegistered(&module));
        }
    });
    EXPECT_TRUE(manager.IsRegistered(&kept));
}

TEST(Threads, ModulesThatCannotBeInitializedAreTakenOutAgain) {
    struct Failing : LibModule {
        void Initialize() override {
            std::this_thread::yield(); // to a thread that registers another one
            throw std::runtime_error("never");
        }
    };
    LibModuleManager manager;
    Together(4, [&](std::size_t) {
        for (int round = 0; round < 100; ++round) {
            Failing module;
            EXPECT_THROW(manager.Register(&module), std::runtime_error);
            EXPECT_FALSE(manager.IsRegistered(&module));
        }
    });
}

TEST(Threads, OneOfSeveralRegistrationsOfOneModuleWins) {
    struct Counting : LibModule {
        void Initialize() override { ++m_Initialized; }
        void Release() override { ++m_Released; }
        std::atomic<int> m_Initialized{0};
        std::atomic<int> m_Released{0};
    };
    for (int round = 0; round < 200; ++round) {
        LibModuleManager manager;
        Counting module;
        std::atomic<int> registered{0};
        std::atomic<int> unregistered{0};
        Together(4, [&](std::size_t) { registered += manager.Register(&module) ? 1 : 0; });
        Together(4, [&](std::size_t) { unregistered += manager.Unregister(&module) ? 1 : 0; });
        EXPECT_EQ(registered, 1);
        EXPECT_EQ(unregistered, 1);
        EXPECT_EQ(module.m_Initialized, 1);
        EXPECT_EQ(module.m_Released, 1);
    }
}

} // namespace

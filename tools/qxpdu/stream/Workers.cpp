#include "stream/Workers.h"

#include <condition_variable>
#include <cstdint>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

namespace qxpdu {

namespace {

/// What the workers share. A batch is numbered when it is taken and is delivered in its turn.
class Workers {
public:
    explicit Workers(const BatchSource& take) : m_Take(take) {}

    void Run(unsigned int threads, const FewerThreads& whenFewer) {
        std::vector<std::jthread> others;
        others.reserve(threads);
        try {
            while (others.size() + 1 < threads)
                others.emplace_back([this] { Work(); });
        } catch (const std::system_error&) {
            const std::lock_guard lock(m_Delivering);
            whenFewer(static_cast<unsigned int>(others.size()) + 1);
        }
        Work();
        others.clear(); // waits for them
        if (m_Failure)
            std::rethrow_exception(m_Failure);
    }

private:
    struct Batch {
        std::uint64_t number;
        BatchWork convert;
    };

    void Work() {
        try {
            for (Batch batch = Take(); batch.convert; batch = Take()) {
                const Delivery deliver = batch.convert();
                if (!DeliverInTurn(batch.number, deliver))
                    return;
            }
        } catch (...) {
            End(std::current_exception());
        }
    }

    Batch Take() {
        const std::lock_guard lock(m_Taking);
        if (HasEnded())
            return {0, nullptr};
        BatchWork convert = m_Take();
        return {m_Taken++, std::move(convert)};
    }

    bool HasEnded() {
        const std::lock_guard lock(m_Delivering);
        return m_Ended;
    }

    /// False when the work has ended.
    bool DeliverInTurn(std::uint64_t number, const Delivery& deliver) {
        std::unique_lock lock(m_Delivering);
        m_TurnChanged.wait(lock, [this, number] { return m_Ended || m_Turn == number; });
        if (m_Ended)
            return false;
        m_Ended = !deliver();
        ++m_Turn;
        m_TurnChanged.notify_all();
        return !m_Ended;
    }

    void End(std::exception_ptr failure) {
        const std::lock_guard lock(m_Delivering);
        m_Ended = true;
        m_Failure = std::move(failure);
        m_TurnChanged.notify_all();
    }

    const BatchSource& m_Take;
    std::mutex m_Taking; ///< guards m_Take and m_Taken
    std::uint64_t m_Taken = 0;

    std::mutex m_Delivering; ///< guards what follows, and the deliveries
    std::condition_variable m_TurnChanged;
    std::uint64_t m_Turn = 0; ///< the number of the batch that is delivered next
    bool m_Ended = false;
    std::exception_ptr m_Failure;
};

} // namespace

void WorkInOrder(const BatchSource& take, unsigned int threads, const FewerThreads& whenFewer) {
    Workers(take).Run(threads, whenFewer);
}

} // namespace qxpdu

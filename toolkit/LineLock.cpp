#include "LineLock.h"

#include <chrono>

namespace Toolkit {

void LineLock::Begin() {
    const auto lock = BetweenLines();
    m_Owner = std::this_thread::get_id();
    ++m_Line;
}

void LineLock::End() {
    const auto lock = Hold();
    if (m_Owner != std::this_thread::get_id())
        return;
    m_Owner = {};
    m_Ended.notify_all(); // who only waits between lines would keep a single wake-up to itself
}

unsigned long LineLock::Line() const {
    const auto lock = Hold();
    return IsOthersLine() ? c_othersLine : m_Line;
}

std::unique_lock<std::mutex> LineLock::Hold() const {
    return std::unique_lock(m_Mutex);
}

std::unique_lock<std::mutex> LineLock::BetweenLines() {
    auto lock = Hold();
    m_Ended.wait_for(lock, std::chrono::seconds(1), [this] { return !IsOthersLine(); });
    return lock;
}

bool LineLock::IsOthersLine() const {
    return m_Owner != std::thread::id() && m_Owner != std::this_thread::get_id();
}

} // namespace Toolkit

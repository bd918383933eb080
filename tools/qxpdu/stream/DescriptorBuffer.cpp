#include "stream/DescriptorBuffer.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <iterator>
#include <system_error>

#include <poll.h>
#include <unistd.h>

namespace qxpdu {

namespace {

constexpr std::size_t c_capacity = 1U << 16;
constexpr int c_forEver = -1; ///< milliseconds, as poll() counts

} // namespace

DescriptorBuffer::DescriptorBuffer(int descriptor, int stop)
    : m_Descriptor(descriptor), m_Stop(stop), m_Bytes(c_capacity), m_End(m_Bytes.data()) {}

/// False where no whole line has come.
bool DescriptorBuffer::GiveLines() {
    char* const begin = m_Bytes.data();
    const bool mustGiveAll = m_HasEnded || m_End == begin + m_Bytes.size();
    const auto feed = std::find(std::reverse_iterator(m_End), std::reverse_iterator(begin), '\n');
    setg(begin, begin, mustGiveAll && feed.base() == begin ? m_End : feed.base());
    return gptr() != egptr();
}

/// What was given has been used up; the piece of a line after it comes to the front.
void DescriptorBuffer::TakeBack() {
    char* const begin = m_Bytes.data();
    m_End = std::copy(egptr() == nullptr ? begin : egptr(), m_End, begin);
    setg(begin, begin, begin);
}

/// Whether reading would not wait.
bool DescriptorBuffer::IsReady(int milliseconds) {
    std::array<pollfd, 2> watched = {{{m_Stop, POLLIN, 0}, {m_Descriptor, POLLIN, 0}}};
    if (poll(watched.data(), watched.size(), milliseconds) < 0)
        return errno != EINTR;
    m_HasEnded = m_HasEnded || watched[0].revents != 0;
    return m_HasEnded || watched[1].revents != 0;
}

void DescriptorBuffer::Read() {
    const char* const capacityEnd = m_Bytes.data() + m_Bytes.size();
    const ssize_t read = ::read(m_Descriptor, m_End, static_cast<std::size_t>(capacityEnd - m_End));
    if (read > 0) {
        m_End += read;
    } else if (read == 0) {
        m_HasEnded = true;
    } else if (errno != EINTR && errno != EAGAIN) {
        m_HasEnded = true;
        m_Error = errno;
    }
}

DescriptorBuffer::int_type DescriptorBuffer::underflow() {
    if (gptr() == egptr()) {
        TakeBack();
        while (!GiveLines() && !m_HasEnded) {
            if (IsReady(c_forEver) && !m_HasEnded)
                Read();
        }
    }
    if (gptr() != egptr())
        return traits_type::to_int_type(*gptr());
    if (m_Error != 0)
        throw std::system_error(m_Error, std::generic_category());
    return traits_type::eof();
}

std::streamsize DescriptorBuffer::showmanyc() {
    constexpr std::streamsize c_ended = -1;
    TakeBack();
    while (!GiveLines() && !m_HasEnded) {
        if (!IsReady(0))
            return 0;
        if (!m_HasEnded)
            Read();
    }
    return gptr() == egptr() ? c_ended : egptr() - gptr();
}

} // namespace qxpdu

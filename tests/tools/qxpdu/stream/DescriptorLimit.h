// A machine that gives hardly any descriptors.
#ifndef TESTS_TOOLS_QXPDU_STREAM_DESCRIPTORLIMIT_H
#define TESTS_TOOLS_QXPDU_STREAM_DESCRIPTORLIMIT_H

#include <stdexcept>

#include <sys/resource.h>

namespace tests {

/// The process can open descriptors below this number alone while it lives, and poll() refuses more of them.
class DescriptorLimit {
public:
    explicit DescriptorLimit(rlim_t most) {
        if (getrlimit(RLIMIT_NOFILE, &m_Before) != 0)
            throw std::runtime_error("no limit of descriptors");
        rlimit limit = m_Before;
        limit.rlim_cur = most;
        setrlimit(RLIMIT_NOFILE, &limit);
    }
    ~DescriptorLimit() { setrlimit(RLIMIT_NOFILE, &m_Before); }
    DescriptorLimit(const DescriptorLimit&) = delete;
    DescriptorLimit& operator=(const DescriptorLimit&) = delete;

private:
    rlimit m_Before{};
};

} // namespace tests

#endif

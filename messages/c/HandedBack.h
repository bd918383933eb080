// What a joiner has handed back and the caller has not been told of yet: none of it is lost where memory runs
// out on the way.
#ifndef C_HANDEDBACK_H
#define C_HANDEDBACK_H

#include <vector>

namespace Messages {

/// What single calls of a joiner gave.
template <class Batch>
class HandedBack {
public:
    /// Takes what `give()` gives. What the caller was told of before goes.
    template <class Give>
    void Take(Give give) {
        if (m_IsTold)
            m_Batches.clear();
        m_IsTold = false;
        m_Batches.emplace_back(); // there is room before anything is given
        try {
            m_Batches.back() = give();
        } catch (...) {
            m_Batches.pop_back();
            throw;
        }
    }

    const std::vector<Batch>& Batches() const noexcept { return m_Batches; }

    /// The caller has been told of all of it.
    void Tell() noexcept { m_IsTold = true; }

private:
    std::vector<Batch> m_Batches;
    bool m_IsTold = true;
};

} // namespace Messages

#endif

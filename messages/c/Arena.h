// Memory for what a handle hands out: taken piece by piece, given back all at once.
#ifndef C_ARENA_H
#define C_ARENA_H

#include <algorithm>
#include <cstddef>
#include <memory>
#include <new>
#include <type_traits>
#include <vector>

namespace Messages {

class Arena {
public:
    /// Ends the life of all pieces. The last block, the largest, is kept for the next ones.
    void Clear() noexcept {
        if (!m_Blocks.empty())
            m_Blocks.erase(m_Blocks.begin(), m_Blocks.end() - 1);
        m_Used = 0;
    }

    /// So many values, all 0. None is no address.
    template <class Value>
    Value* Make(std::size_t count = 1) {
        static_assert(std::is_trivially_destructible_v<Value> && alignof(Value) <= c_alignment);
        if (count == 0)
            return nullptr;
        // NOLINTNEXTLINE(bugprone-sizeof-expression): lists are of pointers
        void* const piece = Take(count * sizeof(Value));
        auto* const values = static_cast<Value*>(piece);
        std::uninitialized_value_construct_n(values, count);
        return values;
    }

private:
    struct Block {
        std::unique_ptr<std::byte[]> memory;
        std::size_t size;
    };
    static constexpr std::size_t c_alignment = alignof(std::max_align_t);
    static constexpr std::size_t c_firstBlock = 4096; // most messages fit

    void* Take(std::size_t size) {
        size = (size + c_alignment - 1) / c_alignment * c_alignment;
        if (m_Blocks.empty() || m_Blocks.back().size - m_Used < size)
            AddBlock(size);
        void* const piece = m_Blocks.back().memory.get() + m_Used;
        m_Used += size;
        return piece;
    }

    void AddBlock(std::size_t least) {
        const std::size_t size = std::max(least, m_Blocks.empty() ? c_firstBlock : 2 * m_Blocks.back().size);
        m_Blocks.push_back({std::unique_ptr<std::byte[]>(new std::byte[size]), size});
        m_Used = 0;
    }

    std::vector<Block> m_Blocks;
    std::size_t m_Used = 0; ///< of the last block
};

} // namespace Messages

#endif

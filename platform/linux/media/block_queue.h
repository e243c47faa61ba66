#pragma once

#include "platform/linux/media/sound_format.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>

namespace platform::media {

/// A stretch of decoded sound on its way to the server.
struct Block {
    std::uint32_t request = 0; ///< which of the track's play requests it belongs to
    bool last = false;         ///< nothing follows for that request
    std::size_t bytes = 0;
    std::unique_ptr<std::byte[]> data;
};

/// Blocks from one thread to another without a lock. Their memory is laid out once.
class BlockQueue {
  public:
    /// More than the server asks for at a time, which is two seconds.
    static constexpr std::size_t capacity = 10;

    explicit BlockQueue(std::size_t bytesPerBlock) {
        for (Block& block : blocks_)
            block.data = std::make_unique<std::byte[]>(bytesPerBlock);
    }

    /// Writing side: the block to fill next, or null if all are taken.
    Block* back() {
        const bool full =
            written_.load(std::memory_order_relaxed) - read_.load(std::memory_order_acquire) ==
            capacity;
        return full ? nullptr : &blocks_[written_.load(std::memory_order_relaxed) % capacity];
    }

    /// Writing side: hands over the block that `back` gave.
    void push() { written_.fetch_add(1, std::memory_order_seq_cst); }

    /// Reading side: the oldest block, or null if there is none.
    Block* front() {
        const bool empty =
            read_.load(std::memory_order_relaxed) == written_.load(std::memory_order_seq_cst);
        return empty ? nullptr : &blocks_[read_.load(std::memory_order_relaxed) % capacity];
    }

    /// Reading side: gives the block that `front` gave back to the writer.
    void pop() { read_.fetch_add(1, std::memory_order_release); }

    /// Any side: blocks that wait to be read; at least for the reader, at most for the writer.
    std::size_t waiting() const {
        return written_.load(std::memory_order_acquire) - read_.load(std::memory_order_acquire);
    }

  private:
    std::array<Block, capacity> blocks_;
    std::atomic<std::size_t> written_ = 0;
    std::atomic<std::size_t> read_ = 0;
};

} // namespace platform::media

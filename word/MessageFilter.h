#pragma once

namespace Word {
/// Whether the host has given this thread a message filter. Only COM itself knows: the answer is found by
/// taking the filter away and putting it back, between which the thread does nothing else. In a multithreaded
/// apartment there is none.
[[nodiscard]] bool hasMessageFilter() noexcept;
} // namespace Word

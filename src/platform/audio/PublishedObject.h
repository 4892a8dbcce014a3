#pragma once

#include <algorithm>
#include <atomic>
#include <memory>
#include <utility>
#include <vector>

namespace lyrabox {

/// Hands immutable objects of any size from the control side to the callback thread. The callback
/// thread takes no lock and never frees memory: an object that it may still use stays alive until a
/// later publish(), or until this is destroyed. One thread at a time on each side.
template <typename T>
class PublishedObject {
public:
    PublishedObject() { m_alive.reserve(4); } // the newest, one in use, and one to come
    PublishedObject(const PublishedObject &) = delete;
    PublishedObject &operator=(const PublishedObject &) = delete;

    /// Control side. Null is allowed.
    void publish(std::shared_ptr<const T> object)
    {
        m_alive.push_back(std::move(object));
        const T *const newest = m_alive.back().get();
        m_newest.store(newest);
        // Either this sees that the callback thread has taken an object, or the callback thread
        // sees that there is a newer one. So all four accesses are sequentially consistent.
        const T *const used = m_used.load();
        std::erase_if(m_alive, [newest, used](const std::shared_ptr<const T> &kept) {
            return kept.get() != newest && kept.get() != used;
        });
    }

    /// Control side. The object that was published last.
    std::shared_ptr<const T> newest() const { return m_alive.empty() ? nullptr : m_alive.back(); }

    /// Control side. How many objects are kept alive, for tests.
    std::size_t alive() const { return m_alive.size(); }

    /// Callback thread. The newest object, or null. It stays valid until the next call.
    const T *take() noexcept
    {
        const T *object = m_newest.load();
        for (;;) {
            m_used.store(object);
            const T *const newest = m_newest.load();
            if (newest == object)
                return object;
            object = newest; // published in between
        }
    }

private:
    static_assert(std::atomic<const T *>::is_always_lock_free);

    std::vector<std::shared_ptr<const T>> m_alive; ///< the newest is the last
    std::atomic<const T *> m_newest{nullptr};
    std::atomic<const T *> m_used{nullptr};
};

} // namespace lyrabox

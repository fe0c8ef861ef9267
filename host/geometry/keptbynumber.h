/// \file
/// Values that are found once per entity and then kept.

#pragma once

#include <mutex>
#include <unordered_map>
#include <utility>

namespace vrn::orlo::host::geometry {

/// A value per entity number, found at the first question.
///
/// Ownership  References stay valid as long as the object.
/// Threads    Any. Two threads may find the same value at once; the first one to end is kept.
template <typename Value>
class KeptByNumber {
public:
    /// `find` is called without the lock: it may take long, and may ask for other values.
    template <typename Find>
    [[nodiscard]] Value const& at(unsigned number, Find const& find)
    {
        {
            std::lock_guard const lock(m_mutex);
            if (auto const known = m_values.find(number); known != m_values.end()) {
                return known->second;
            }
        }
        Value value = find();
        std::lock_guard const lock(m_mutex);
        return m_values.try_emplace(number, std::move(value)).first->second;
    }

private:
    std::mutex m_mutex;
    std::unordered_map<unsigned, Value> m_values;  // nodes do not move when it grows
};

}  // namespace vrn::orlo::host::geometry

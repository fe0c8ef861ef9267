/// \file
/// Which types may be moved by their bytes.

#pragma once

#include <type_traits>

/// True for types whose objects may be moved to another address by copying their bytes. A sequence
/// of them grows by reallocation. To be specialised, beside the class, for one that holds no
/// pointer to itself and is not known elsewhere by its address.
template <class T>
inline constexpr bool kKfrMovesByBytes = std::is_trivially_copyable_v<T>;

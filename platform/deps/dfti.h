/// \file
/// The transform calls that the library makes, under the names of the DFTI interface: MKL's own
/// where the build found it (ORLO_HAVE_MKL), otherwise a small layer of the same meaning
/// (dfti_fftw.cpp). A caller does not see the difference.

#pragma once

#ifdef ORLO_HAVE_MKL

#include <mkl_dfti.h>

#else

using MKL_LONG = long;

/// Settings, and what they can be set to.
enum DFTI_CONFIG_PARAM {
    DFTI_FORWARD_SCALE = 4,
    DFTI_BACKWARD_SCALE = 5,
    DFTI_CONJUGATE_EVEN_STORAGE = 10,
    DFTI_PLACEMENT = 11,
    DFTI_PACKED_FORMAT = 21,
};

enum DFTI_CONFIG_VALUE {
    DFTI_COMPLEX = 32,
    DFTI_REAL = 33,
    DFTI_SINGLE = 35,
    DFTI_DOUBLE = 36,
    DFTI_COMPLEX_COMPLEX = 39,
    DFTI_COMPLEX_REAL = 40,
    DFTI_INPLACE = 43,
    DFTI_NOT_INPLACE = 44,
    DFTI_CCS_FORMAT = 54,
    DFTI_PACK_FORMAT = 55,
    DFTI_PERM_FORMAT = 56,
    DFTI_CCE_FORMAT = 57,
};

// Statuses.
inline constexpr MKL_LONG DFTI_NO_ERROR = 0;
inline constexpr MKL_LONG DFTI_MEMORY_ERROR = 1;
/// A value that no descriptor can have, such as a length of 0.
inline constexpr MKL_LONG DFTI_INVALID_CONFIGURATION = 2;
/// Values that are right alone but not together, or a setting that cannot take the value.
inline constexpr MKL_LONG DFTI_INCONSISTENT_CONFIGURATION = 3;
/// No descriptor, or one that is not committed.
inline constexpr MKL_LONG DFTI_BAD_DESCRIPTOR = 5;
/// Right by the interface, but nothing that this layer does.
inline constexpr MKL_LONG DFTI_UNIMPLEMENTED = 6;
inline constexpr MKL_LONG DFTI_MKL_INTERNAL_ERROR = 7;

struct DFTI_DESCRIPTOR;
using DFTI_DESCRIPTOR_HANDLE = DFTI_DESCRIPTOR*;

// The transforms of the layer: real, double, one dimension, not in place, with n / 2 + 1 complex
// numbers (real and imaginary part in turn) on the frequency side. The forward direction has the
// exponent -2 pi i k m / n.
//
// Shape      Any length from 1, odd and prime ones too.
// Failure    A status other than DFTI_NO_ERROR; nothing is thrown.
// Ownership  DftiCreateDescriptor makes what DftiFreeDescriptor frees; the arrays are the caller's.
// Threads    Any; one committed descriptor may compute on several threads at once. Create, set,
//            commit and free are one thread's at a time.
// Cost       O(n log n). The first transform of a length and direction plans it (0.1 s for a
//            prime of five digits); the plans of the last eight are kept.

/// On failure the handle is null.
MKL_LONG DftiCreateDescriptor(DFTI_DESCRIPTOR_HANDLE* handle, DFTI_CONFIG_VALUE precision,
                              DFTI_CONFIG_VALUE domain, MKL_LONG dimension,
                              MKL_LONG length) noexcept;

/// Takes a commit back.
MKL_LONG DftiSetValue(DFTI_DESCRIPTOR_HANDLE handle, DFTI_CONFIG_PARAM param,
                      DFTI_CONFIG_VALUE value) noexcept;
MKL_LONG DftiSetValue(DFTI_DESCRIPTOR_HANDLE handle, DFTI_CONFIG_PARAM param,
                      double scale) noexcept;

/// Refuses a descriptor that is not set to DFTI_NOT_INPLACE and DFTI_COMPLEX_COMPLEX.
MKL_LONG DftiCommitDescriptor(DFTI_DESCRIPTOR_HANDLE handle) noexcept;

/// n doubles to n / 2 + 1 complex numbers. The input is only read.
MKL_LONG DftiComputeForward(DFTI_DESCRIPTOR_HANDLE handle, void* input, void* output) noexcept;

/// n / 2 + 1 complex numbers to n doubles. The input is only read; the imaginary parts of the bin 0
/// and, for even n, of the last bin count as 0.
MKL_LONG DftiComputeBackward(DFTI_DESCRIPTOR_HANDLE handle, void* input, void* output) noexcept;

/// Sets the handle to null. DFTI_BAD_DESCRIPTOR for one that is null already.
MKL_LONG DftiFreeDescriptor(DFTI_DESCRIPTOR_HANDLE* handle) noexcept;

#endif

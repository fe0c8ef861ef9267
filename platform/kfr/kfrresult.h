/// \file
/// Outcome of an operation at the platform's border.

#pragma once

#include "platform/kfr/kfrapi.h"

#include <unicode/unistr.h>

#include <string>

class KFRAny;
template <class T>
class KFRSequence;

namespace KFR {

/// Code of an operation that was not done: what a local result starts with, and what a service that
/// is missing leaves in place. A more telling code is to be preferred where there is one.
inline constexpr int notDone = 0x7FFFFFFF;

/// Code of success.
inline constexpr int ok = 0;

}  // namespace KFR

/// Outcome of an operation: a code, and where there is something to say a counted block with a
/// message domain, a message id and the message's parameters.
///
/// Failure    The code 0 is success, every other value a failure. A default-made result is
///            KFR::notDone.
/// Ownership  Copies refer to one block: a parameter that is added through one is seen through all.
///            A result without a block gets one of its own with its first parameter.
/// Threads    The block's count is safe on any thread; its parameters are one thread's.
class KFR_API KFRResult {
public:
    KFRResult() noexcept;
    KFRResult(int code) noexcept;  // NOLINT: a code is a result
    KFRResult(int code, int domain, int messageId);
    KFRResult(KFRResult const& other) noexcept;
    KFRResult(KFRResult&& other) noexcept;
    KFRResult& operator=(KFRResult const& other) noexcept;
    KFRResult& operator=(KFRResult&& other) noexcept;
    ~KFRResult();

    [[nodiscard]] bool isOk() const noexcept { return m_code == KFR::ok; }
    [[nodiscard]] int getCode() const noexcept { return m_code; }

    /// Message domain; -1 without one.
    [[nodiscard]] int getDomain() const noexcept;
    /// Message id inside the domain; 0 without one.
    [[nodiscard]] int getMessageId() const noexcept;
    /// The message's parameters in the order in which they were added.
    [[nodiscard]] KFRSequence<KFRAny> getParams() const;

    KFRResult& addParam(int value);
    KFRResult& addParam(long value);
    KFRResult& addParam(long long value);
    KFRResult& addParam(double value);
    KFRResult& addParam(char const* value);
    KFRResult& addParam(std::string const& value);
    KFRResult& addParam(icu::UnicodeString const& value);

private:
    struct Block;
    KFRResult& add(KFRAny value);

    int m_code = KFR::notDone;
    Block* m_block = nullptr;
};

#include "platform/kfr/kfrresult.h"

#include "platform/kfr/kfrany.h"
#include "platform/kfr/kfrreferencecount.h"
#include "platform/kfr/kfrsequence.h"

#include <utility>

struct KFRResult::Block {
    KFRReferenceCount m_holders;
    int m_domain = -1;
    int m_messageId = 0;
    KFRSequence<KFRAny> m_params;
};

KFRResult::KFRResult() noexcept = default;

KFRResult::KFRResult(int code) noexcept : m_code(code)
{
}

KFRResult::KFRResult(int code, int domain, int messageId) : m_code(code), m_block(new Block)
{
    m_block->m_domain = domain;
    m_block->m_messageId = messageId;
}

KFRResult::KFRResult(KFRResult const& other) noexcept : m_code(other.m_code), m_block(other.m_block)
{
    if (m_block != nullptr) {
        m_block->m_holders.add();
    }
}

KFRResult::KFRResult(KFRResult&& other) noexcept
    : m_code(std::exchange(other.m_code, KFR::notDone)),
      m_block(std::exchange(other.m_block, nullptr))
{
}

KFRResult& KFRResult::operator=(KFRResult const& other) noexcept
{
    return *this = KFRResult(other);
}

KFRResult& KFRResult::operator=(KFRResult&& other) noexcept
{
    KFRResult taken(std::move(other));
    std::swap(m_code, taken.m_code);
    std::swap(m_block, taken.m_block);
    return *this;
}

KFRResult::~KFRResult()
{
    if (m_block != nullptr && m_block->m_holders.release()) {
        delete m_block;
    }
}

int KFRResult::getDomain() const noexcept
{
    return m_block != nullptr ? m_block->m_domain : -1;
}

int KFRResult::getMessageId() const noexcept
{
    return m_block != nullptr ? m_block->m_messageId : 0;
}

KFRSequence<KFRAny> KFRResult::getParams() const
{
    return m_block != nullptr ? m_block->m_params : KFRSequence<KFRAny>();
}

KFRResult& KFRResult::add(KFRAny value)
{
    if (m_block == nullptr) {
        m_block = new Block;
    }
    m_block->m_params.append(std::move(value));
    return *this;
}

KFRResult& KFRResult::addParam(int value)
{
    return add(KFRAny(value));
}

KFRResult& KFRResult::addParam(long value)
{
    return add(KFRAny(static_cast<long long>(value)));
}

KFRResult& KFRResult::addParam(long long value)
{
    return add(KFRAny(value));
}

KFRResult& KFRResult::addParam(double value)
{
    return add(KFRAny(value));
}

KFRResult& KFRResult::addParam(char const* value)
{
    return add(KFRAny(std::string(value != nullptr ? value : "")));
}

KFRResult& KFRResult::addParam(std::string const& value)
{
    return add(KFRAny(value));
}

KFRResult& KFRResult::addParam(icu::UnicodeString const& value)
{
    return add(KFRAny(value));
}

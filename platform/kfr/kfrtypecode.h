/// \file
/// Type codes: the run-time name of an interface.

#pragma once

#include "platform/kfr/kfruuid.h"

#include <atomic>

/// What is known of one interface: its name, its identifier, and a slot for the type that the
/// framework resolves for it. Made once per interface, never destroyed.
struct KFRTypeCodeRecord {
    char const* m_name = "";
    KFRUUID m_id;
    mutable std::atomic<void const*> m_resolved{nullptr};

    constexpr KFRTypeCodeRecord(char const* name, KFRUUID id) noexcept : m_name(name), m_id(id) {}
};

/// Handle of a type code record; pointer-sized, copied freely.
///
/// Order      None. Equality goes by identifier, since each library keeps records of its own.
class KFRTypeCode {
public:
    constexpr KFRTypeCode() noexcept = default;
    constexpr explicit KFRTypeCode(KFRTypeCodeRecord const& record) noexcept : m_record(&record) {}

    /// True without a record, and for a record that names no type (both identifier words 0).
    [[nodiscard]] constexpr bool isNull() const noexcept
    {
        return m_record == nullptr || m_record->m_id == KFRUUID{};
    }
    [[nodiscard]] constexpr char const* name() const noexcept
    {
        return m_record != nullptr ? m_record->m_name : "";
    }
    [[nodiscard]] constexpr KFRUUID id() const noexcept
    {
        return m_record != nullptr ? m_record->m_id : KFRUUID{};
    }
    [[nodiscard]] constexpr KFRTypeCodeRecord const* record() const noexcept { return m_record; }

    friend constexpr bool operator==(KFRTypeCode left, KFRTypeCode right) noexcept
    {
        return left.m_record == right.m_record || left.id() == right.id();
    }

private:
    KFRTypeCodeRecord const* m_record = nullptr;
};

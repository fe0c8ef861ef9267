/// \file
/// The framework's event record.

#pragma once

#include "platform/kfr/kfrany.h"

/// An event: which domain, which event of it, and what it carries.
struct KFREvent {
    long long domain = 0;
    int eventId = 0;
    KFRAny payload;
};

/// An event of domain 0, id 0, with an empty payload.
[[nodiscard]] inline KFREvent initKFREvent()
{
    return {};
}

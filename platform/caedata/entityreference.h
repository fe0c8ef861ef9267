/// \file
/// The value record that names an entity.

#pragma once

#include "platform/caedata/guiddata.h"
#include "platform/kfr/kfrsequence.h"
#include "platform/kfr/kfrsmartpointer.h"

namespace KFR::PersistenceFW::CAEData {

/// Names an entity: the service object that owns it, its type, and its number within the owner. The
/// empty reference has a null service and three zero words.
///
/// Ownership  Copied freely; keeps the owner alive.
/// Threads    A value.
struct EntityReference {
    KFRIService service;      ///< The object through which the entity can be reached.
    unsigned int typeId = 0;  ///< A run-time value of the type registry; never written to a file.
    unsigned int id = 0;      ///< Number within the owner.
    unsigned int subId = 0;   ///< The platform's; carried along.

    friend bool operator==(EntityReference const&, EntityReference const&) = default;
};

using EntityReferenceSequence = KFRSequence<EntityReference>;

}  // namespace KFR::PersistenceFW::CAEData

template <>
inline constexpr bool kKfrMovesByBytes<CAE::EntityReference> = true;

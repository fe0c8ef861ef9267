/// \file
/// The order in which maps keep persistent objects.

#pragma once

#include "platform/kfr/kfrsmartpointer.h"

namespace KFR::PersistenceFW::CAEData {

/// Orders handles of persistent objects of one interface.
///
/// Order      By the objects' instance numbers; null comes first. Total, and the same for the length
///            of a run.
struct POCompare {
    template <class I>
    bool operator()(KFRSmartPointer<I> const& left, KFRSmartPointer<I> const& right) const
    {
        return numberOf(left) < numberOf(right);
    }

private:
    template <class I>
    static long long numberOf(KFRSmartPointer<I> const& object)
    {
        return object != KFR::NULLSP ? object->getInstanceID() : 0;
    }
};

}  // namespace KFR::PersistenceFW::CAEData

using KFR::PersistenceFW::CAEData::POCompare;

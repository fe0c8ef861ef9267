/// \file
/// The cheap comparator of references, for large maps.

#pragma once

#include "platform/baseplugin/baseentity.h"
#include "platform/caedata/entityreference.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

namespace vrn::orlo::plugin::modeling {

using appfw::IEntityInterface;
using baseplugin::IBaseEntityInterface;

/// References by number, then by type. Neither the owner nor the number within it plays a part: the
/// same number and type under two owners is the same here.
///
/// Order      Unsigned. A null entity stands before and after nothing and equals nothing, so keep
///            the entity form away from containers that may hold null.
/// Cost       Two comparisons of integers; for entities two calls more.
class MODELING_API ModelingEntityCompare {
public:
    bool operator()(CAE::EntityReference const& left, CAE::EntityReference const& right) const
    {
        return left.id != right.id ? left.id < right.id : left.typeId < right.typeId;
    }
    bool operator()(KFRSmartPointer<IBaseEntityInterface> const& left,
                    KFRSmartPointer<IBaseEntityInterface> const& right) const;

    [[nodiscard]] bool equals(CAE::EntityReference const& left,
                              CAE::EntityReference const& right) const
    {
        return left.id == right.id && left.typeId == right.typeId;
    }
    [[nodiscard]] bool equals(KFRSmartPointer<IEntityInterface> const& left,
                              KFRSmartPointer<IEntityInterface> const& right) const;
};

/// Whether something has the number and type that the predicate was made with.
class MODELING_API ModelingEntityCompareEx {
public:
    explicit ModelingEntityCompareEx(CAE::EntityReference const& reference) : m_reference(reference)
    {
    }
    /// From null: the empty reference.
    explicit ModelingEntityCompareEx(KFRSmartPointer<IEntityInterface> const& entity);

    bool operator()(CAE::EntityReference const& reference) const
    {
        return ModelingEntityCompare().equals(m_reference, reference);
    }
    /// False for null.
    bool operator()(KFRSmartPointer<IEntityInterface> const& entity) const;

private:
    CAE::EntityReference m_reference;
};

}  // namespace vrn::orlo::plugin::modeling

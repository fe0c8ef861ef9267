/// \file
/// Comparators of entities by what the application takes for the same.

#pragma once

#include "platform/appfw/entity.h"
#include "platform/caedata/entityreference.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

namespace vrn::orlo::plugin::modeling {

using appfw::IEntityInterface;

/// The application's identity of entities, order and hash with it.
///
/// Constructing one finds the services, which all share from then on; the operations do not look
/// whether they are there. A null entity stands for the empty reference.
///
/// Order      What the interface adapter manager gives: a strict weak order.
/// Failure    The constructor throws KFRSystemException for a root manager that is no interface
///            adapter manager.
/// Threads    The first one is to be constructed on one thread.
/// Cost       A virtual call per comparison.
class MODELING_API EntityCompare {
public:
    EntityCompare();

    [[nodiscard]] bool equals(CAE::EntityReference const& left,
                              CAE::EntityReference const& right) const;
    [[nodiscard]] bool equals(KFRSmartPointer<IEntityInterface> const& left,
                              KFRSmartPointer<IEntityInterface> const& right) const;
    [[nodiscard]] bool lessThan(CAE::EntityReference const& left,
                                CAE::EntityReference const& right) const;
    [[nodiscard]] bool lessThan(KFRSmartPointer<IEntityInterface> const& left,
                                KFRSmartPointer<IEntityInterface> const& right) const;
    [[nodiscard]] int hashCode(CAE::EntityReference const& reference) const;
    [[nodiscard]] int hashCode(KFRSmartPointer<IEntityInterface> const& entity) const;

    /// Null when there is none.
    [[nodiscard]] KFRSmartPointer<IEntityInterface> getByEntityReference(
        CAE::EntityReference const& reference) const;
    /// The empty reference for null.
    [[nodiscard]] CAE::EntityReference getEntityReferenceSafe(
        KFRSmartPointer<IEntityInterface> const& entity) const;

    /// Forgets the services, which the next construction finds again. For the owning plug-in's
    /// stop.
    static void release();

private:
    static KFRSmartPointer<appfw::IRootManagerInterface> m_spRootMgr;
    static KFRSmartPointer<appfw::IInterfaceAdapterManagerInterface> m_spAdpMgr;
};

/// Hash functor and order in one, for hashed containers of the application's kind.
class MODELING_API EntityHashCompare {
public:
    /// The 32-bit hash, sign-extended.
    unsigned long long operator()(CAE::EntityReference const& reference) const;
    unsigned long long operator()(KFRSmartPointer<IEntityInterface> const& entity) const;
    bool operator()(CAE::EntityReference const& left, CAE::EntityReference const& right) const;
    bool operator()(KFRSmartPointer<IEntityInterface> const& left,
                    KFRSmartPointer<IEntityInterface> const& right) const;
};

/// Whether something is the entity that the predicate was made with.
class MODELING_API EntityEquanPred : public EntityCompare {
public:
    explicit EntityEquanPred(CAE::EntityReference const& reference);
    /// From null: the empty reference.
    explicit EntityEquanPred(KFRSmartPointer<IEntityInterface> const& entity);

    bool operator()(CAE::EntityReference const& reference) const;
    bool operator()(KFRSmartPointer<IEntityInterface> const& entity) const;

private:
    KFRSmartPointer<IEntityInterface> m_entity;
    CAE::EntityReference m_reference;
};

/// Entities by the identity of their objects in the object model; those that have none by the
/// application's.
///
/// Order      By GUID as soon as one side has one, the other counting as zero: entities outside of
///            the object model are all equal beside one of GUID zero.
/// Cost       Two casts and two calls per comparison.
class MODELING_API EntityW2Compare {
public:
    [[nodiscard]] bool lessThan(KFRSmartPointer<IEntityInterface> const& left,
                                KFRSmartPointer<IEntityInterface> const& right) const;
    /// By the object's own test, not by its GUID.
    [[nodiscard]] bool equal(KFRSmartPointer<IEntityInterface> const& left,
                             KFRSmartPointer<IEntityInterface> const& right) const;
    bool operator()(KFRSmartPointer<IEntityInterface> const& left,
                    KFRSmartPointer<IEntityInterface> const& right) const
    {
        return lessThan(left, right);
    }
};

}  // namespace vrn::orlo::plugin::modeling

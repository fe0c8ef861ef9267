#include "plugins/modelingplugin/utilities/identity/groupkey.h"

#include "plugins/modelingplugin/utilities/identity/entitycompare.h"

namespace vrn::orlo::plugin::modeling {

namespace {

CAE::EntityReference referenceOf(KFRSmartPointer<IEntityInterface> const& entity)
{
    return entity != KFR::NULLSP ? entity->getEntityReference() : CAE::EntityReference();
}

/// What stands behind the kind in the order of both keys.
template <class Key>
bool isBeforeWithinKind(Key const& left, Key const& right)
{
    if (left.flag != right.flag) {
        return left.flag;
    }
    // Constructed for its services, which may not have been found yet.
    return EntityCompare().lessThan(left.parent, right.parent);
}

}  // namespace

GroupKey::GroupKey(unsigned int groupType, KFRSmartPointer<IEntityInterface> const& groupParent,
                   bool groupFlag)
    : type(groupType), parent(referenceOf(groupParent)), flag(groupFlag)
{
}

bool GroupKey::operator<(GroupKey const& other) const
{
    return type != other.type ? type < other.type : isBeforeWithinKind(*this, other);
}

GroupKey2::GroupKey2(icu::UnicodeString const& groupName,
                     KFRSmartPointer<IEntityInterface> const& groupParent, bool groupFlag)
    : name(groupName), parent(referenceOf(groupParent)), flag(groupFlag)
{
}

GroupKey2::GroupKey2(KFRSmartPointer<IBaseEntityInterface> const& group)
{
    if (group == KFR::NULLSP) {
        return;
    }
    KFRSmartPointer<IEntityInterface> groupParent;
    static_cast<void>(group->getName(name));
    static_cast<void>(group->getParent(groupParent));
    static_cast<void>(group->getFlag(flag));
    parent = referenceOf(groupParent);
}

bool GroupKey2::operator<(GroupKey2 const& other) const
{
    if (name < other.name) {
        return true;
    }
    return !(name > other.name) && isBeforeWithinKind(*this, other);
}

}  // namespace vrn::orlo::plugin::modeling

/// \file
/// Keys of display groups, and the order of pivot values.

#pragma once

#include "platform/appfw/entity.h"
#include "platform/appfw/pivot.h"
#include "platform/baseplugin/baseentity.h"
#include "platform/caedata/entityreference.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

#include <unicode/unistr.h>

namespace vrn::orlo::plugin::modeling {

using appfw::IEntityInterface;
using baseplugin::IBaseEntityInterface;

/// Names a display group by its kind, the entity under which it hangs, and a flag.
///
/// Order      By type, unsigned; then the flagged ones first; then by the application's order of
///            the parents.
struct MODELING_API GroupKey {
    GroupKey() = default;
    /// \param groupParent  null for none
    GroupKey(unsigned int groupType, KFRSmartPointer<IEntityInterface> const& groupParent,
             bool groupFlag);

    unsigned int type = 0;
    CAE::EntityReference parent;
    bool flag = false;

    bool operator<(GroupKey const& other) const;
};

/// The same with a name for the kind.
///
/// Order      Names by their code units, not by any language's order; the rest as above.
struct MODELING_API GroupKey2 {
    GroupKey2() = default;
    GroupKey2(icu::UnicodeString const& groupName,
              KFRSmartPointer<IEntityInterface> const& groupParent, bool groupFlag);
    /// Of a group that is there.
    explicit GroupKey2(KFRSmartPointer<IBaseEntityInterface> const& group);

    icu::UnicodeString name;
    CAE::EntityReference parent;
    bool flag = false;

    bool operator<(GroupKey2 const& other) const;
};

/// Order      Signed, by the first word, then by the second.
class PivotValueCompare {
public:
    bool operator()(appfw::PivotValue const& left, appfw::PivotValue const& right) const
    {
        return left.m_first != right.m_first ? left.m_first < right.m_first
                                             : left.m_second < right.m_second;
    }
    [[nodiscard]] bool equal(appfw::PivotValue const& left, appfw::PivotValue const& right) const
    {
        return left.m_first == right.m_first && left.m_second == right.m_second;
    }
};

}  // namespace vrn::orlo::plugin::modeling

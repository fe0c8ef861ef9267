/// \file
/// Comparators of objects of the object model.

#pragma once

#include "platform/caedata/guiddata.h"
#include "platform/eom/eom.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

namespace vrn::orlo::plugin::modeling {

/// Order      By GUID, null counting as zero.
/// Failure    Equality goes by the object's own test, not by the GUID; nothing equals null, null
///            itself included.
class MODELING_API EOMCompare {
public:
    using Object = KFRSmartPointer<KFR::EOM::IEOMObjectInterface>;

    EOMCompare() = default;
    /// For the unary form.
    explicit EOMCompare(Object const& object) : m_object(object) {}

    [[nodiscard]] bool lessThan(Object const& left, Object const& right) const;
    [[nodiscard]] bool equals(Object const& left, Object const& right) const;
    bool operator()(Object const& left, Object const& right) const { return lessThan(left, right); }
    /// Whether `other` is the object that this was made with.
    bool operator()(Object const& other) const { return equals(m_object, other); }

private:
    Object m_object;
};

/// Order      Unsigned, by the first word, then by the second.
class GUIDCompare {
public:
    [[nodiscard]] bool lessThan(CAE::GUIDDATA const& left, CAE::GUIDDATA const& right) const
    {
        return left < right;
    }
    [[nodiscard]] bool equal(CAE::GUIDDATA const& left, CAE::GUIDDATA const& right) const
    {
        return left == right;
    }
    bool operator()(CAE::GUIDDATA const& left, CAE::GUIDDATA const& right) const
    {
        return lessThan(left, right);
    }
};

/// Whether something has the GUID that the predicate was made with.
class GUIDEuqanPred {
public:
    explicit GUIDEuqanPred(CAE::GUIDDATA const& guid) : m_guid(guid) {}

    bool operator()(CAE::GUIDDATA const& guid) const { return guid == m_guid; }

private:
    CAE::GUIDDATA m_guid;
};

}  // namespace vrn::orlo::plugin::modeling

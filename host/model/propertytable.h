/// \file
/// The typed properties of an entity.

#pragma once

#include "host/model/propertyvalue.h"
#include "platform/kfr/kfrany.h"
#include "platform/kfr/kfrresult.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace vrn::orlo::host::model {

/// Codes of what an entity refuses; each comes with a text that names entity and property as its
/// first parameter.
enum EntityFailure : int {
    kUnknownProperty = 1,
    kOtherKind = 2,     ///< The property's values are of another kind.
    kRefusedValue = 3,  ///< Of the right kind, but the property's check does not take it.
    kUnknownNotification = 4,
    kUnknownEntity = 5,
    kReferenceTaken = 6,
    kNoParent = 7,
    kDeleted = 8,
};

/// Properties with their values. The kind of a property's start value is the kind of all its
/// values.
///
/// Order      Of declaration.
/// Threads    One thread's.
class PropertyTable {
public:
    /// Looks at a value of the property's kind. The empty text takes it; any other refuses it and
    /// says what is wanted: "a value above 0".
    using Check = std::function<std::string(KFRAny const&)>;

    /// Failure    std::invalid_argument for a name that is empty or taken, and for a start value of
    ///            a kind that no property has, or that the check refuses.
    void declare(std::string name, KFRAny start, Check check = {});

    [[nodiscard]] std::vector<std::string> names() const;

    /// Null for an unknown name. Holds until the next change of the table.
    [[nodiscard]] KFRAny const* find(std::string_view name) const noexcept;

    /// Whether the property takes the value, as EntityFailure says.
    /// \param label  what the entity is called in messages
    [[nodiscard]] KFRResult check(std::string const& label, std::string_view name,
                                  KFRAny const& value) const;

    /// The failure of an unknown name.
    [[nodiscard]] KFRResult unknown(std::string const& label, std::string_view name) const;

    /// Puts a value in that check() takes; unknown names are ignored.
    /// \return the value before
    KFRAny replace(std::string_view name, KFRAny const& value);

private:
    struct Property {
        std::string m_name;
        KFRAny m_value;
        Check m_check;
    };

    [[nodiscard]] Property const* property(std::string_view name) const noexcept;

    std::vector<Property> m_properties;
};

}  // namespace vrn::orlo::host::model

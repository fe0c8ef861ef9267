/// \file
/// Questions about the model that have no home of their own.

#pragma once

#include "platform/caedata/caedata.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

namespace vrn::orlo::plugin::modeling {

/// Ways from one object of the model to another.
///
/// Failure    What cannot be found is null.
/// Threads    Main thread.
class MODELING_API PluginHelper {
public:
    PluginHelper() = delete;

    /// The part that contains an object, however deep; a part itself. Null for an object that is
    /// in none.
    static KFRSmartPointer<CAE::IPersistentObjectInterface> getPart(
        KFRSmartPointer<CAE::IPersistentObjectInterface> const& object);
    static KFRSmartPointer<CAE::IPersistentObjectInterface> getPart(
        KFRSmartPointer<CAE::IMeshBodyInterface> const& body);
    /// The part that holds what a reference names; of an instance the part that it places.
    static KFRSmartPointer<CAE::IPersistentObjectInterface> getPart(
        CAE::EntityReference const& reference);

    /// The first place where a part stands.
    static KFRSmartPointer<CAE::IInstanceInterface> getPartInstancebyPart(
        KFRSmartPointer<CAE::IPersistentObjectInterface> const& part);
};

}  // namespace vrn::orlo::plugin::modeling

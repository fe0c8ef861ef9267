/// \file
/// Which edition of the application runs, and which part it is about.

#pragma once

#include "platform/appfw/entity.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

namespace vrn::orlo::plugin::modeling {

using appfw::IEntityInterface;

/// Failure    What cannot be found out is false. isDesignPart throws KFRSystemException for an
///            entity that is there and is no instance.
/// Threads    Main thread, no lock.
class MODELING_API ProductHelper {
public:
    static ProductHelper* instance();

    /// Whether "Orlo Modeler" runs.
    static bool isOrloProduct();
    /// Whether "Orlo Shaper" runs, the edition with the smaller scope.
    static bool isShaperProduct();

    /// Whether the entity is an instance of the current model's design part. False without a model,
    /// after a line in the validation log.
    static bool isDesignPart(KFRSmartPointer<IEntityInterface> entity);

private:
    ProductHelper() = default;
};

}  // namespace vrn::orlo::plugin::modeling

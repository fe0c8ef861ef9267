/// \file
/// The component's one service.

#pragma once

#include "plugins/modelingplugin/utilities/componentframe/utilitiesbase.h"

namespace vrn::orlo::plugin::modeling {

/// The service "vrn.orlo.plugin.modeling.Utilities". It has no modeling operation: its making is
/// what connects the library's exported classes with the framework's services.
class Utilities final : public generated::UtilitiesBase {
public:
    explicit Utilities(KFRIFactoryAccess& access);

    std::string getObjectName() override;

protected:
    ~Utilities() override;
};

}  // namespace vrn::orlo::plugin::modeling

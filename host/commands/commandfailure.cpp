#include "host/commands/commandfailure.h"

#include "host/model/entityname.h"
#include "platform/kfr/kfrsequence.h"

namespace vrn::orlo::host::commands {

std::string failureText(KFRResult const& result)
{
    KFRSequence<KFRAny> const params = result.getParams();
    auto const text = params.empty() ? std::nullopt : model::nameIn(params.front());
    return text.value_or("failure " + std::to_string(result.getCode()));
}

}  // namespace vrn::orlo::host::commands

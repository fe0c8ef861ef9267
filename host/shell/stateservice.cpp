#include "host/shell/stateservice.h"

#include <utility>

namespace vrn::orlo::host::shell {

namespace {

constexpr char kCommandStates[] = "appfw.CommandSS";
constexpr int kOpensSilence = 20;
constexpr int kClosesSilence = 21;

}  // namespace

StateService::StateService(KFRSmartPointer<KFRIEventManagerInterface> events)
    : m_events(std::move(events))
{
}

KFRResult StateService::send(std::string const& name, KFREvent const& event, int)
{
    if (name != kCommandStates) {
        return KFRResult(kUnknownStateMachine)
            .addParam("There is no state machine " + name + "; there is " + kCommandStates + ".");
    }
    KFRResult outcome = KFR::ok;
    if (event.eventId == kOpensSilence) {
        ++m_silentDepth;
    } else if (event.eventId == kClosesSilence && m_silentDepth > 0) {
        --m_silentDepth;
    } else if (event.eventId == kClosesSilence) {
        outcome = KFRResult(kNotSilent).addParam("A silent stretch ends that was never begun.");
    }
    if (m_events != KFR::NULLSP) {
        KFRResult const published = m_events->publishEvent(event, 0);
        if (outcome.isOk()) {
            outcome = published;
        }
    }
    return outcome;
}

}  // namespace vrn::orlo::host::shell

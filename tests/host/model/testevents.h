/// \file
/// An event manager that notes what is published, and matchers for failures.

#pragma once

#include "host/model/entityname.h"
#include "platform/appfw/commands.h"
#include "platform/kfr/kfreventmanager.h"
#include "platform/kfr/kfrserviceobject.h"

#include <gmock/gmock.h>

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace vrn::orlo::host::test {

/// One line per event: the domain's last word, the event's id, and of the payload the entity's
/// name, "context", "name", "code" and "properties", where they are there.
class NotingEventManager final : public KFRServiceObjectImpl<KFRIEventManagerInterface> {
public:
    std::vector<std::string> m_lines;
    std::vector<KFREvent> m_events;
    int m_lastFlag = -1;
    std::function<void(std::string const& line)> m_listener;

    /// What was noted since the last call.
    std::vector<std::string> takeLines() { return std::exchange(m_lines, {}); }

    KFRResult createDomainID(std::string const& name, long long& id) override
    {
        id = 100 + static_cast<long long>(m_domains.size());
        m_domains[id] = name.substr(name.rfind('.') + 1);
        return KFR::ok;
    }
    KFRResult publishEvent(KFREvent const& event, int flag) override
    {
        std::string line = m_domains.at(event.domain) + ' ' + std::to_string(event.eventId);
        appfw::CmdParameters payload;
        event.payload >>= payload;
        for (appfw::CmdParameter const& parameter : std::as_const(payload)) {
            line += textOf(parameter.value);
        }
        m_lines.push_back(line);
        m_events.push_back(event);
        m_lastFlag = flag;
        if (m_listener) {
            m_listener(line);
        }
        return KFR::ok;
    }

    // What no publisher calls.
    using Listener = KFRSmartPointer<KFRIEventListenerInterface>;
    using Filter = KFR::Framework::EventFilter;
    KFRResult getDomainID(std::string const&, long long&) override { return {}; }
    KFRResult getChannelID(long long&) override { return {}; }
    KFRResult addListener(long long, Listener const&, int, KFRSequence<int> const&) override
    {
        return {};
    }
    KFRResult addListener(Filter const&, Listener const&) override { return {}; }
    KFRResult addChannelListener(long long, Listener const&, int) override { return {}; }
    KFRResult removeListener(long long, Listener const&) override { return {}; }
    KFRResult fireEvent(KFREvent const&, int, Listener const&) override { return {}; }

private:
    static std::string textOf(KFRAny const& value)
    {
        std::string text;
        KFRSequence<std::string> names;
        KFRSmartPointer<appfw::IEntityInterface> entity;
        if (value >>= names) {
            for (std::string const& name : std::as_const(names)) {
                text += ' ' + name;
            }
        } else if (auto const* const code = value.get<int>()) {
            text = ' ' + std::to_string(*code);
        } else if (value >>= entity) {
            text = ' ' + model::nameOf(*entity).value_or("?");
        } else if ((value >>= text) && !text.empty()) {
            text.insert(0, " ");
        }
        return text;
    }

    std::map<long long, std::string> m_domains;
};

/// A result with this code, and a text as its first parameter that the matcher takes.
MATCHER_P2(FailsWith, code, text,
           "fails with " + std::to_string(code) + " and a text that " +
               ::testing::DescribeMatcher<std::string>(text))
{
    *result_listener << "code " << arg.getCode();
    KFRSequence<KFRAny> const params = arg.getParams();
    std::string const* const given = params.empty() ? nullptr : params.at(0).get<std::string>();
    return arg.getCode() == code && given != nullptr &&
           ::testing::ExplainMatchResult(text, *given, result_listener);
}

MATCHER(IsOk, negation ? "fails" : "is OK")
{
    *result_listener << "code " << arg.getCode();
    return arg.isOk();
}

}  // namespace vrn::orlo::host::test

// Handing an event to its clients, against a signal library and against the bare minimum.

#include "benchmarks/support/ratio.h"
#include "plugins/modelingplugin/utilities/eventswork/eventhandler.h"
#include "tests/support/platformscope.h"

#include <boost/signals2.hpp>

#include <array>
#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace {

using orlo::bench::keep;
using orlo::bench::Ratios;
using vrn::orlo::plugin::modeling::EventHandler;
using vrn::orlo::plugin::modeling::IKFREventHandler;
using vrn::orlo::plugin::modeling::test::PlatformScope;

constexpr long long kDomain = 4711;

/// What the smallest real client does: looks at the event and takes its payload.
class Client final : public IKFREventHandler {
public:
    bool handle(long long domain, KFREvent const& event) override
    {
        long long id = 0;
        if (domain == kDomain && event.eventId == 2 && (event.payload >>= id)) {
            m_sum += id;
        }
        return true;
    }
    [[nodiscard]] long long sum() const { return m_sum; }

private:
    long long m_sum = 0;
};

}  // namespace

int main()
{
    PlatformScope platform;
    Ratios ratios;
    for (std::size_t const count : {1U, 10U, 100U}) {
        std::vector<Client> clients(count);
        boost::signals2::signal<void(long long, KFREvent const&)> signal;
        std::map<long long, std::vector<std::function<void(long long, KFREvent const&)>>> bare;
        for (Client& client : clients) {
            EventHandler::instance()->addDomainEventHandler(kDomain, &client);
            // By the interface, as the hub has to: only the handing out differs.
            auto const call = [handler = static_cast<IKFREventHandler*>(&client)](
                                  long long domain, KFREvent const& event) {
                handler->handle(domain, event);
            };
            signal.connect(call);
            bare[kDomain].push_back(call);
        }
        std::size_t const repeats = 200000 / count;
        auto const each = [repeats](auto const& publish) {
            KFREvent event;
            event.domain = kDomain;
            event.eventId = 2;
            for (std::size_t repeat = 0; repeat < repeats; ++repeat) {
                event.payload <<= static_cast<long long>(repeat % 64);
                publish(event);
            }
        };
        auto const hub = [&each] {
            each([](KFREvent const& event) { EventHandler::instance()->handleEvent(event); });
        };
        std::string const clientCount =
            std::to_string(count) + (count == 1 ? " client" : " clients");
        ratios.compare(("event to " + clientCount + "; Boost.Signals2").c_str(), 0.35, hub, [&] {
            each([&signal](KFREvent const& event) { signal(event.domain, event); });
        });
        ratios.compare(("event to " + clientCount + "; unlocked functions").c_str(), 1.5, hub, [&] {
            each([&bare](KFREvent const& event) {
                for (auto const& function : bare.find(event.domain)->second) {
                    function(event.domain, event);
                }
            });
        });
        for (Client& client : clients) {
            keep(client.sum());
            EventHandler::instance()->removeDomainEventHandler(kDomain, &client);
        }
    }
    return ratios.exitStatus();
}

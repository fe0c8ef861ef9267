#include "host/kernel/testservices.h"

#include "platform/kfr/kfrfactory.h"

#include <stdexcept>
#include <vector>

namespace vrn::orlo::host::kernel {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class ServiceRegistryTest : public RegistryTest {
protected:
    /// Registers a service that notes its end.
    void add(std::string const& name)
    {
        auto const end = [this, name] {
            m_ended.push_back(name);
        };
        m_registry->addService(name, [end] { return makeTestService(end); });
    }
    /// Code and text of a look-up that throws.
    std::pair<int, std::string> failureOf(std::string const& name)
    {
        try {
            static_cast<void>(m_registry->getService(name, ""));
        } catch (KFRSystemException const& thrown) {
            return {thrown.getCode(), thrown.getText()};
        }
        return {KFR::ok, "nothing thrown"};
    }

    std::vector<std::string> m_ended;
};

TEST_F(ServiceRegistryTest, SingleServiceIsMadeOnceAndOthersPerRequest)
{
    add("one");
    auto const make = [] {
        return makeTestService();
    };
    m_registry->addService("many", make, false);
    EXPECT_THAT(m_registry->liveInstances(), IsEmpty());
    EXPECT_EQ(get("one").m_service, get("one").m_service);
    LookUp const first = get("many");
    EXPECT_NE(first.m_service, get("many").m_service);
    EXPECT_THAT(m_registry->liveInstances(), ElementsAre("one"));
}

TEST_F(ServiceRegistryTest, ParametersDecideOnlyWhetherTheLookUpIsValid)
{
    add("one");
    m_registry->addServiceTable("T");
    EXPECT_THAT(get("one", "#=T"), Found());
    EXPECT_THAT(get("one", "a=1,serviceTable=T"), Found());
    EXPECT_THAT(get("one", "#=U,serviceTable=T"), FailsWith(kUnknownServiceTable));
    EXPECT_THAT(get("one", "nonsense"), FailsWith(kMalformedParameters));
    EXPECT_THAT(get("two", "#=T"), FailsWith(KFR::notDone));
    EXPECT_THAT(failureOf("two"),
                ::testing::Pair(KFR::notDone, "The service two is not available."));
}

TEST_F(ServiceRegistryTest, SwitchedOffServiceIsUnknownAndComesBackAsTheSame)
{
    add("b");
    add("a");
    EXPECT_THAT(m_registry->names(), ElementsAre("a", "b"));
    KFRIService const before = get("a").m_service;
    m_registry->setEnabled("a", false);
    EXPECT_THAT(get("a"), FailsWith(KFR::notDone));
    EXPECT_THAT(m_registry->names(), ElementsAre("b"));
    m_registry->setEnabled("a", true);
    EXPECT_EQ(get("a").m_service, before);
}

TEST_F(ServiceRegistryTest, MakerThatGivesNothingOrThrowsIsTriedAgain)
{
    int calls = 0;
    m_registry->addService("late", [&calls] {
        if (++calls == 2) {
            throw std::runtime_error("no paper");
        }
        return calls == 1 ? KFRIService() : makeTestService();
    });
    EXPECT_THAT(get("late"), FailsWith(kNotMade));
    EXPECT_THAT(failureOf("late"), ::testing::Pair(kNotMade, HasSubstr("no paper")));
    EXPECT_THAT(get("late"), Found());
}

TEST_F(ServiceRegistryTest, ServiceThatIsNeededForItsOwnMakingFailsWithTheChain)
{
    for (bool const single : {true, false}) {
        std::string const suffix = single ? "1" : "2";
        std::pair<int, std::string> inside;
        auto const makeA = [&] {
            return m_registry->getService("B" + suffix, "");
        };
        auto const makeB = [&] {
            inside = failureOf("A" + suffix);
            return KFRIService();
        };
        m_registry->addService("A" + suffix, makeA, single);
        m_registry->addService("B" + suffix, makeB, single);
        EXPECT_THAT(get("A" + suffix), FailsWith(kNotMade));
        auto const chain = "A" + suffix + " -> B" + suffix + " -> A" + suffix;
        EXPECT_THAT(inside, ::testing::Pair(kCyclicRequest, HasSubstr(chain)));
    }
}

TEST_F(ServiceRegistryTest, StopReleasesTheLastMadeFirst)
{
    add("low");
    add("last");
    m_registry->addService("high", [this] {
        return makeTestService([this, low = get("low").m_service] { m_ended.push_back("high"); });
    });
    get("high");
    get("last");
    EXPECT_THAT(m_registry->liveInstances(), ElementsAre("low", "high", "last"));
    m_registry->stop();
    EXPECT_THAT(m_ended, ElementsAre("last", "high", "low"));
    EXPECT_THAT(get("low"), FailsWith(KFR::notDone));
}

TEST_F(ServiceRegistryTest, ServiceThatEndsStillFindsWhatWasMadeBeforeItButGetsNothingNew)
{
    add("low");
    add("unmade");
    std::vector<int> codes;
    auto const end = [&] {
        codes = {get("low").m_code, get("unmade").m_code};
    };
    m_registry->addService("high", [end] { return makeTestService(end); });
    get("low");
    get("high");
    m_registry->stop();
    EXPECT_THAT(codes, ElementsAre(KFR::ok, kStopped));
}

TEST_F(ServiceRegistryTest, FurtherProviderIsAskedForWhatIsUnknownHere)
{
    auto const other = KFR::make<ServiceRegistry>();
    other->addService("far", [] { return makeTestService(); });
    EXPECT_FALSE(m_registry->addNewProvider(m_registry).isOk());
    EXPECT_TRUE(m_registry->addNewProvider(other).isOk());
    EXPECT_TRUE(other->addNewProvider(m_registry).isOk());
    EXPECT_THAT(get("far"), Found());
    EXPECT_THAT(get("nowhere"), FailsWith(KFR::notDone));  // the two do not ask each other forever
    other->stop();
}

class TestFactory final : public KFR::Framework::KFRFactory {
public:
    TestFactory(KFRSmartPointer<ServiceRegistry> const& publisher, int& alive)
        : KFRFactory(publisher, "made", true, "", "", ""), m_alive(++alive)
    {
    }
    std::string getProperty(std::string const&) override { return {}; }

protected:
    ~TestFactory() override { --m_alive; }
    KFRIServiceInterface* create(KFRIFactoryAccess& access) override
    {
        KFRIService const handle = access.getServiceHandle();
        EXPECT_TRUE(KFR::loose_cast<KFR::Framework::KFRIServiceAccess>(handle));
        return new TestService([] {});
    }

private:
    int& m_alive;
};

TEST_F(ServiceRegistryTest, SecondFactoryOfANameIsNotUsedButGoesAtTheStopAsWell)
{
    int alive = 0;
    new TestFactory(m_registry, alive);
    KFRIService const first = get("made").m_service;
    EXPECT_NE(first, KFR::NULLSP);
    new TestFactory(m_registry, alive);
    EXPECT_EQ(alive, 2);
    EXPECT_EQ(get("made").m_service, first);
    EXPECT_EQ(m_registry->addService("made", [] { return KFRIService(); }).getCode(), kNameTaken);
    m_registry->stop();
    EXPECT_EQ(alive, 0);
}

TEST_F(ServiceRegistryTest, FactoryThatComesAfterTheStopGoesWithTheRegistry)
{
    int alive = 0;
    m_registry->stop();
    new TestFactory(m_registry, alive);
    EXPECT_EQ(alive, 1);
    EXPECT_THAT(get("made"), FailsWith(KFR::notDone));
    m_registry = KFR::make<ServiceRegistry>();
    EXPECT_EQ(alive, 0);
}

}  // namespace
}  // namespace vrn::orlo::host::kernel

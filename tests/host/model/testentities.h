/// \file
/// Entities for tests.

#pragma once

#include "host/model/testevents.h"

#include "host/model/entityobject.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace vrn::orlo::host::test {

using model::EntityService;
using Beam = KFRSmartPointer<model::EntityObject>;

/// Name, length above 0, count and loads.
inline Beam makeBeam(std::shared_ptr<EntityService> const& service, std::string const& name,
                     unsigned int number = 1)
{
    Beam beam = KFR::make<model::EntityObject>(KFRIService(), 7U, number, service);
    beam->declareProperty("name", KFRAny(name));
    beam->declareProperty("length", KFRAny(1.0), [](KFRAny const& value) {
        return *value.get<double>() > 0.0 ? std::string() : std::string("a value above 0");
    });
    beam->declareProperty("count", KFRAny(3));
    beam->declareProperty("loads", KFRAny(KFRSequence<double>{1.0, 2.0}));
    return beam;
}

/// A property's value; an empty one, and a failure, where it has none of the type.
template <class T>
T valueOf(Beam const& beam, std::string const& property)
{
    KFRAny any;
    T value{};
    EXPECT_THAT(beam->getProperty(property, any), IsOk());
    EXPECT_TRUE(any >>= value) << property;
    return value;
}

/// An entity service whose events are noted.
class EntityTest : public ::testing::Test {
protected:
    ~EntityTest() override { m_events->m_events.clear(); }  // they hold entities, which lead back

    KFRSmartPointer<NotingEventManager> m_events = KFR::make<NotingEventManager>();
    std::shared_ptr<EntityService> m_service = std::make_shared<EntityService>(m_events);
};

}  // namespace vrn::orlo::host::test

// The edition, and the design part.

#include "plugins/modelingplugin/utilities/componentframe/producthelper.h"

#include "platform/eom/eom.h"
#include "tests/support/appframefakes.h"
#include "tests/support/platformscope.h"

#include <gtest/gtest.h>

#include <string>

namespace vrn::orlo::plugin::modeling {
namespace {

using test::PlatformScope;

/// An instance that is its own part, in every form that it is asked for.
class FakePart final
    : public KFRServiceObjectImpl<IEntityInterface, test::silent::EOMInstanceView,
                                  test::silent::EOMPartView, test::silent::PartView,
                                  test::silent::PersistentView> {
public:
    CAE::GUIDDATA m_identifier;
    int m_steps;  ///< How many of the steps to the identifier lead on.

    explicit FakePart(CAE::GUIDDATA const& identifier, int steps = 2)
        : m_identifier(identifier), m_steps(steps)
    {
    }
    KFRResult getPart(KFRIService& out) override { return giveItself(m_steps > 0, out); }
    KFRResult getPersistentObject(KFRSmartPointer<CAE::IPersistentObjectInterface>& out) override
    {
        return giveItself(m_steps > 1, out);
    }
    KFRResult getIdentifier(CAE::GUIDDATA& identifier) override
    {
        identifier = m_identifier;
        return KFR::ok;
    }
    CAE::EntityReference getEntityReference() override { return {}; }
    KFRResult setProperty(std::string const&, KFRAny const&) override { return KFR::notDone; }
    KFRResult getProperty(std::string const&, KFRAny&) override { return KFR::notDone; }

private:
    template <class Handle>
    KFRResult giveItself(bool given, Handle& out)
    {
        if (given) {
            out = KFRSmartPointer<FakePart>(this);
        }
        return KFR::notDone;
    }
};

TEST(ProductHelper, KnowsTheEditionByItsExactName)
{
    PlatformScope platform;
    EXPECT_FALSE(ProductHelper::isOrloProduct() || ProductHelper::isShaperProduct());
    auto const framework = KFR::make<test::FakeFrameworkAccess>();
    ServiceCacheModelingPlugin::frameworkAccess_ = framework;
    EXPECT_FALSE(ProductHelper::isOrloProduct() || ProductHelper::isShaperProduct());
    auto const product = KFR::make<test::FakeProduct>();
    framework->product = product;
    struct Row {
        char16_t const* name;
        bool isOrlo, isShaper;
    };
    constexpr Row kRows[] = {{u"Orlo Modeler", true, false},
                             {u"Orlo Shaper", false, true},
                             {u"orlo modeler", false, false},
                             {u"Orlo Modeler 2", false, false},
                             {u"", false, false}};
    for (auto const& [name, isOrlo, isShaper] : kRows) {
        product->name = name;
        EXPECT_EQ(ProductHelper::isOrloProduct(), isOrlo);
        EXPECT_EQ(ProductHelper::isShaperProduct(), isShaper);
    }
}

TEST(ProductHelper, TellsTheDesignPartByBothWordsOfItsIdentifierWhenEveryStepToItIsThere)
{
    struct Row {
        bool hasModel, hasDesignPart;
        int steps;
        CAE::GUIDDATA identifier;
        bool isDesignPart;
    };
    constexpr Row kRows[] = {{true, true, 2, {1, 2}, true},  {true, true, 2, {1, 3}, false},
                             {true, true, 2, {0, 2}, false}, {true, true, 0, {1, 2}, false},
                             {true, true, 1, {1, 2}, false}, {false, true, 2, {1, 2}, false},
                             {true, false, 2, {0, 0}, false}};
    for (auto const& [hasModel, hasDesignPart, steps, identifier, isDesignPart] : kRows) {
        PlatformScope platform;
        auto const session = KFR::make<test::FakeSession>();
        auto const persistence = KFR::make<test::FakePFW>();
        auto const model = KFR::make<test::FakeModel>();
        persistence->session = session;
        appfw::ServiceCacheAppFrame::PFW_ = persistence;
        if (hasModel) {
            session->currentModel = model;
        }
        if (hasDesignPart) {
            model->designPart = KFR::make<FakePart>(CAE::GUIDDATA{1, 2});
        }
        auto const instance = KFR::make<FakePart>(identifier, steps);
        EXPECT_EQ(ProductHelper::isDesignPart(instance), isDesignPart);
        EXPECT_FALSE(ProductHelper::isDesignPart({}));
    }
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling

#include "host/geometry/plausibility.h"
#include "host/geometry/testfiles.h"

#include <gmock/gmock.h>

namespace vrn::orlo::host::geometry {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

TEST(Plausibility, KnowsFastenersByWholeWords)
{
    for (char const* const name : {"bolt", "NUT::3", "hexBolt_M8", "M6x20 Screws", "pin-2"}) {
        EXPECT_TRUE(namesFastener(name)) << name;
    }
    for (char const* const name : {"pinion", "nutrition", "spinner", "hauptbolzen", ""}) {
        EXPECT_FALSE(namesFastener(name)) << name;
    }
}

class OddSizes : public WithFolder {};

TEST_F(OddSizes, NamesTheUnitAndWhatWouldMakeSense)
{
    GeometryModel const model = importGeometry(writeStep("big.step", cube(100'000.0), "M"));
    EXPECT_THAT(model.m_warnings,
                ElementsAre("the model is 173.2 m across: its length unit (metre) looks wrong; "
                            "in millimetres it would be 173.2 mm"));
}

TEST_F(OddSizes, DoubtsATinyModelToo)
{
    EXPECT_THAT(importGeometry(writeStep("tiny.step", cube(0.1))).m_warnings,
                ElementsAre(HasSubstr("0.1732 mm across")));
}

TEST_F(OddSizes, DoubtsAHugeBolt)
{
    auto const file = writeStep("bolt.step", [](XCAFDoc_ShapeTool& tool) {
        nameLabel(tool.AddShape(cube(800.0), Standard_False), "hex bolt");
    });
    EXPECT_THAT(importGeometry(file).m_warnings, ElementsAre(HasSubstr("'hex bolt'")));
}

TEST_F(OddSizes, AreSilentOnAnOrdinaryModel)
{
    EXPECT_THAT(importGeometry(writeStep("cube.step", cube(800.0))).m_warnings, IsEmpty());
}

}  // namespace
}  // namespace vrn::orlo::host::geometry

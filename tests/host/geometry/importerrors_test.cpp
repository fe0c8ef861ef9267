#include "host/geometry/testfiles.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace vrn::orlo::host::geometry {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

/// One line that names the file and says the reason.
auto saysOf(std::string const& file, std::string const& reason)
{
    return AllOf(HasSubstr(file), HasSubstr(reason), Not(HasSubstr("\n")));
}

class ImportErrors : public WithFolder {};

TEST_F(ImportErrors, NameTheFileAndTheReason)
{
    std::string const step = contentOf(writeStep("good.step", cube(10.0)));
    struct Row {
        char const* m_file;
        std::string m_content;
        char const* m_reason;
    };
    std::string const header = step.substr(0, step.find("DATA;") + 5);
    for (Row const& row : {
             Row{"empty.step", "", "empty"},
             Row{"notes.txt", "text", ".step"},
             Row{"text.step", "just some words\n", "ISO-10303-21"},
             Row{"half.step", step.substr(0, step.size() / 2), "cut off"},
             Row{"noend.step", step.substr(0, step.rfind("END-ISO")), "cut off"},
             Row{"bare.step", header + "\nENDSEC;\nEND-ISO-10303-21;\n", ""},
             Row{"hole.step", header + "\n#1=((;\nENDSEC;\nEND-ISO-10303-21;\n", ""},
             Row{"text.stl", "just some words\n", "no STL"},
             Row{"half.stl", "solid a\n facet normal 0 0 1\n  outer loop\n", "cut off"},
             Row{"short.stl",
                 std::string(80, '\0') + std::string("\x05\0\0\0", 4) + std::string(100, '\0'),
                 "cut off"},
             Row{"none.stl", std::string(84, '\0'), "no triangles"},
         }) {
        SCOPED_TRACE(row.m_file);
        EXPECT_THAT(importErrorOf(write(row.m_file, row.m_content)),
                    saysOf(row.m_file, row.m_reason));
    }
}

TEST_F(ImportErrors, NameAMissingFileAndAFolder)
{
    EXPECT_THAT(importErrorOf(folder() / "nowhere.step"), saysOf("nowhere.step", "no such file"));
    std::filesystem::create_directory(folder() / "folder.step");
    EXPECT_THAT(importErrorOf(folder() / "folder.step"), saysOf("folder.step", "folder"));
}

TEST_F(ImportErrors, TakesAFileWithMarkBlanksAndCommentInFront)
{
    std::string const step = contentOf(writeStep("good.step", cube(10.0)));
    EXPECT_EQ(importGeometry(write("front.step", " \n/* by hand */\n" + step)).m_totals.m_solids,
              1u);
}

// The kernel follows references to missing or wrong records without a look at them.
TEST_F(ImportErrors, DamagedRecordsEndInAModelOrAnErrorButNoCrash)
{
    std::string const step = contentOf(writeStep("good.step", cube(10.0)));
    for (std::string const record :
         {"CARTESIAN_POINT(", "DIRECTION(", "VECTOR(", "VERTEX_POINT(", "EDGE_CURVE(", "LINE(",
          "ORIENTED_EDGE(", "EDGE_LOOP(", "FACE_BOUND(", "ADVANCED_FACE(", "CLOSED_SHELL(",
          "MANIFOLD_SOLID_BREP(", "AXIS2_PLACEMENT_3D(", "PLANE(", "PRODUCT_DEFINITION("}) {
        SCOPED_TRACE(record);
        std::size_t const at = step.find(record);
        ASSERT_NE(at, std::string::npos);
        std::size_t const line = step.rfind("\n#", at) + 1;
        std::string text = step;
        text.erase(line, step.find(";\n", at) + 2 - line);
        try {
            GeometryModel const model = importGeometry(write("damaged.step", text));
            EXPECT_FALSE(model.m_warnings.empty());
        } catch (ImportError const& error) {
            EXPECT_THAT(error.what(), saysOf("damaged.step", ""));
        }
    }
}

}  // namespace
}  // namespace vrn::orlo::host::geometry

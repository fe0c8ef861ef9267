#include "host/study/study.h"

#include "tests/support/temporaryfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>

namespace vrn::orlo::host::study {
namespace {

using test::TemporaryFolder;

namespace fs = std::filesystem;

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

/// A folder with a geometry file, a folder "parts", and studies.
class StudyFolder {
public:
    StudyFolder()
    {
        fs::create_directory(m_folder.path() / "parts");
        m_folder.write("bracket.step", "x");
        m_folder.write("parts/bolt.step", "x");
    }

    [[nodiscard]] fs::path const& path() const { return m_folder.path(); }

    [[nodiscard]] Study load(std::string const& text) const
    {
        return loadStudy(m_folder.write("plate.yaml", text));
    }

    /// The message without the folder: it begins with "plate.yaml:".
    [[nodiscard]] std::string errorOf(std::string const& text) const
    {
        try {
            static_cast<void>(load(text));
        } catch (StudyError const& error) {
            std::string const message = error.what();
            EXPECT_THAT(message, StartsWith(path().string()));
            return message.substr(path().string().size() + 1);
        }
        return "";
    }

private:
    TemporaryFolder m_folder;
};

TEST(LoadStudy, ReadsEveryKeyAndRemembersItsPlace)
{
    StudyFolder const folder;
    Study const study = folder.load(
        "study: two plates\ngeometry: parts/bolt.step\n"
        "outputs:\n  tree: a/t.txt\n  json: m.json\n");
    EXPECT_EQ(study.m_file, folder.path() / "plate.yaml");
    EXPECT_EQ(study.m_name, "two plates");
    EXPECT_EQ(study.m_geometry, folder.path() / "parts/bolt.step");
    EXPECT_EQ(study.m_outputs.m_tree, "a/t.txt");
    EXPECT_EQ(study.m_outputs.m_json, "m.json");
    EXPECT_EQ(study.placeOf("geometry").m_line, 2);
    EXPECT_EQ(study.placeOf("outputs.json").m_line, 5);
}

TEST(LoadStudy, NeedsTheGeometryOnlyByAPathUpOrDownOrAbsolute)
{
    StudyFolder const folder;
    Study const study = folder.load("geometry: bracket.step\n");
    EXPECT_EQ(study.m_name, "plate") << "the name of the file without its ending";
    EXPECT_TRUE(study.m_outputs.m_tree.empty());
    EXPECT_TRUE(study.m_outputs.m_json.empty());
    EXPECT_EQ(study.placeOf("study").m_line, 0) << "left out of the file";
    EXPECT_EQ(study.placeOf("study").m_key, "study");
    fs::path const geometry = folder.path() / "bracket.step";
    for (std::string const& path : {geometry.string(), std::string("parts/../bracket.step")}) {
        EXPECT_EQ(folder.load("study: 7\ngeometry: " + path + "\n").m_geometry, geometry);
    }
}

TEST(LoadStudy, ReadsHowAMeshIsWanted)
{
    StudyFolder const folder;
    Study const study = folder.load(
        "geometry: bracket.step\nmesh:\n  size: 5\n  minimum: 0\n  order: 2\n  dimension: 2\n"
        "  faces: true\n  curvature: 0\n  parts:\n    - {part: long bolt, size: 2.5}\n"
        "  face-sizes: [{face: 12, size: 1e-1}]\noutputs: {mesh: a/m.msh}\n");
    ASSERT_TRUE(study.m_mesh.has_value());
    StudyMesh const& mesh = *study.m_mesh;
    EXPECT_EQ(mesh.m_size, 5.0);
    EXPECT_EQ(mesh.m_minimum, 0.0);
    EXPECT_EQ(mesh.m_order, 2);
    EXPECT_EQ(mesh.m_dimension, 2);
    EXPECT_EQ(mesh.m_faces, true);
    EXPECT_EQ(mesh.m_curvature, 0);
    ASSERT_EQ(mesh.m_partSizes.size(), 1U);
    EXPECT_EQ(mesh.m_partSizes[0].m_part, "long bolt");
    EXPECT_EQ(mesh.m_partSizes[0].m_size, 2.5);
    EXPECT_EQ(mesh.m_faceSizes, (std::map<unsigned, double>{{12, 0.1}}));
    EXPECT_EQ(study.m_outputs.m_mesh, "a/m.msh");
    EXPECT_EQ(study.placeOf("mesh.parts[1].part").m_line, 10);

    Study const least = folder.load("geometry: bracket.step\nmesh: {size: 5}\n");
    EXPECT_FALSE(least.m_mesh->m_minimum || least.m_mesh->m_order || least.m_mesh->m_faces);
    EXPECT_FALSE(folder.load("geometry: bracket.step\n").m_mesh.has_value());
}

// clang-format off
struct {
    char const* name;
    char const* text;
    char const* beginning;  // of the message
    char const* part;       // of the message
} const kBadStudies[] = {
    // name                   text                                          beginning             part
    {"Empty",                 "",                                           "1: ",                "for instance 'geometry: bracket.step'"},
    {"NoGeometry",            "\nstudy: a\n",                               "2: geometry: ",      "is missing; write for instance 'geometry: bracket.step'"},
    {"MisspelledKey",         "geometri: bracket.step\n",                   "1: geometri: ",      "did you mean 'geometry'? known here: geometry, mesh, outputs, study"},
    {"StrangeKey",            "geometry: bracket.step\ncolour: red\n",      "2: colour: ",        "is no known key; known here: geometry, mesh, outputs, study"},
    {"MisspelledKeyBelow",    "geometry: bracket.step\noutputs:\n  tre: t\n", "3: outputs.tre: ", "did you mean 'tree'? known here: json, mesh, tree"},
    {"NoBlankAfterTheColon",  "study: a\ngeometry:bracket.step\n",          "2: geometry:b",      "lacks the blank after its colon; write 'geometry: bracket.step'"},
    {"GeometryWithoutValue",  "study: a\ngeometry:\n",                      "2: geometry: ",      "has no value"},
    {"GeometryIsAList",       "geometry: [a, b]\n",                         "1: geometry: ",      "is a list, and should be a text"},
    {"GeometryIsAMap",        "geometry:\n  file: a\n",                     "1: geometry: ",      "is a map of keys, and should be a text"},
    {"GeometryIsNotThere",    "study: a\ngeometry: brackett.step\n",        "2: geometry: ",      "there is no file"},
    {"GeometryIsAFolder",     "geometry: parts\n",                          "1: geometry: ",      "is a folder; give the geometry file in it"},
    {"GeometryByBackslash",   "geometry: parts\\bolt.step\n",               "1: geometry: ",      "write / between folders"},
    {"StudyHasTwoLines",      "study: |\n  a\n  b\ngeometry: bracket.step\n", "1: study: ",       "write it on one line"},
    {"OutputsIsAText",        "geometry: bracket.step\noutputs: tree.txt\n", "2: outputs: ",      "is a text, and should be a map of keys; write for instance 'outputs: {tree: tree.txt}'"},
    {"OutputsWithoutKeys",    "geometry: bracket.step\noutputs:\n",         "2: outputs: ",       "has no value"},
    {"OutputWithoutName",     "geometry: bracket.step\noutputs:\n  tree:\n", "3: outputs.tree: ", "has no value; write for instance 'tree: tree.txt'"},
    {"OutputClimbsOut",       "geometry: bracket.step\noutputs: {tree: ../t}\n", "2: outputs.tree: ", "'../t' leaves the output folder"},
    {"OutputsOfOneName",      "geometry: bracket.step\noutputs:\n  json: a\n  tree: ./a\n", "4: outputs.tree: ", "'a' is the name of 'json' too"},
    {"MeshWithoutSize",       "geometry: bracket.step\nmesh: {order: 2}\n",  "2: mesh.size: ",     "is missing; write for instance 'size: 5'"},
    {"MeshIsANumber",         "geometry: bracket.step\nmesh: 5\n",           "2: mesh: ",          "is a text, and should be a map of keys; write for instance 'mesh: {size: 5}'"},
    {"MeshSizeIsZero",        "geometry: bracket.step\nmesh: {size: 0}\n",   "2: mesh.size: ",     "'0' is no length; write mm as a number above 0, such as 2.5"},
    {"MeshSizeInWords",       "geometry: bracket.step\nmesh: {size: 5 mm}\n", "2: mesh.size: ",    "'5 mm' is no length"},
    {"MeshSizeWithComma",     "geometry: bracket.step\nmesh:\n  size: 2,5\n", "3: mesh.size: ",   "with a point"},
    {"MeshSizeIsInfinite",    "geometry: bracket.step\nmesh: {size: inf}\n", "2: mesh.size: ",     "'inf' is no length"},
    {"MeshOrderThree",        "geometry: bracket.step\nmesh: {size: 5, order: 3}\n", "2: mesh.order: ", "'3' cannot be taken; write 1, or 2"},
    {"MeshFacesMaybe",        "geometry: bracket.step\nmesh: {size: 5, faces: yes}\n", "2: mesh.faces: ", "'yes' is neither; write true or false"},
    {"MeshPartsIsAText",      "geometry: bracket.step\nmesh: {size: 5, parts: bolt}\n", "2: mesh.parts: ", "is a text, and should be a list"},
    {"MeshPartIsAText",       "geometry: bracket.step\nmesh:\n  size: 5\n  parts:\n    - bolt\n", "5: mesh.parts[1]: ", "is a text, and should be a map of keys; write for instance '- {part: bolt, size: 2.5}'"},
    {"MeshPartWithoutSize",   "geometry: bracket.step\nmesh: {size: 5, parts: [{part: a}]}\n", "2: mesh.parts[1].size: ", "is missing"},
    {"MeshPartTwice",         "geometry: bracket.step\nmesh: {size: 5, parts: [{part: a, size: 1}, {part: a, size: 2}]}\n", "2: mesh.parts[2]: ", "gives part 'a' a size again; keep one"},
    {"MeshFaceByName",        "geometry: bracket.step\nmesh: {size: 5, face-sizes: [{face: top, size: 1}]}\n", "2: mesh.face-sizes[1].face: ", "'top' is no number of a face; write"},
    {"MeshOutputUnknown",     "geometry: bracket.step\nmesh: {size: 5}\noutputs: {mesh: m.vtk}\n", "3: outputs.mesh: ", "end it in .inp, .msh or .orlo"},
    {"MeshOutputAlone",       "geometry: bracket.step\noutputs: {mesh: m.inp}\n", "2: outputs.mesh: ", "does not describe; add for instance 'mesh: {size: 5}'"},
};
// clang-format on

TEST(BadStudies, AreRefusedInOneLineWithLineAndKey)
{
    for (auto const& row : kBadStudies) {
        SCOPED_TRACE(row.name);
        StudyFolder const folder;
        std::string const message = folder.errorOf(row.text);
        EXPECT_THAT(message, StartsWith(std::string("plate.yaml:") + row.beginning));
        EXPECT_THAT(message, HasSubstr(row.part));
        EXPECT_THAT(message, HasSubstr("; ")) << "says what would be right";
        EXPECT_THAT(message, Not(HasSubstr("\n")));
    }
}

std::string errorOfFile(fs::path const& file)
{
    try {
        static_cast<void>(loadStudy(file));
    } catch (StudyError const& error) {
        return error.what();
    }
    return "";
}

TEST(LoadStudy, RefusesWhatIsNoStudyFile)
{
    EXPECT_EQ(errorOfFile("no/such.yaml"),
              "no/such.yaml: there is no such file; give the path of a study file");
    EXPECT_THAT(errorOfFile("/dev/null"), HasSubstr("is no regular file"));
    TemporaryFolder const folder;
    std::string const path = folder.path().string();
    EXPECT_THAT(errorOfFile(path), StartsWith(path + ": is a folder; give the study file in it"));
    fs::path const file = folder.write("bracket.step", std::string(1024 * 1024 + 1, '#'));
    EXPECT_THAT(errorOfFile(file), HasSubstr("is longer than 1 MiB"));
}

}  // namespace
}  // namespace vrn::orlo::host::study

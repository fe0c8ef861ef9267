#include "host/study/study.h"

#include "tests/support/temporaryfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <ostream>
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

TEST(LoadStudy, ReadsEveryKey)
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
}

TEST(LoadStudy, NeedsTheGeometryOnly)
{
    StudyFolder const folder;
    Study const study = folder.load("geometry: bracket.step\n");
    EXPECT_EQ(study.m_name, "plate") << "the name of the file without its ending";
    EXPECT_TRUE(study.m_outputs.m_tree.empty());
    EXPECT_TRUE(study.m_outputs.m_json.empty());
}

TEST(LoadStudy, TakesAnAbsoluteGeometryPathAsItIs)
{
    StudyFolder const folder;
    fs::path const geometry = folder.path() / "bracket.step";
    EXPECT_EQ(folder.load("geometry: " + geometry.string() + "\n").m_geometry, geometry);
}

TEST(LoadStudy, WalksUpFromTheStudysFolderToTheGeometry)
{
    StudyFolder const folder;
    EXPECT_EQ(folder.load("geometry: parts/../bracket.step\n").m_geometry,
              folder.path() / "bracket.step");
}

TEST(LoadStudy, DoesNotDependOnTheOrderOfKeys)
{
    StudyFolder const folder;
    Study const study = folder.load("outputs: {json: j}\ngeometry: bracket.step\nstudy: 7\n");
    EXPECT_EQ(study.m_name, "7");
    EXPECT_EQ(study.m_outputs.m_json, "j");
}

TEST(LoadStudy, RemembersThePlacesOfKeysForLaterErrors)
{
    StudyFolder const folder;
    Study const study =
        folder.load("# remark\ngeometry: bracket.step\noutputs:\n  tree: t\n  json: j\n");
    EXPECT_EQ(study.placeOf("geometry").m_line, 2);
    EXPECT_EQ(study.placeOf("outputs.json").m_line, 5);
    EXPECT_EQ(study.placeOf("study").m_line, 0) << "left out of the file";
    EXPECT_EQ(study.placeOf("study").m_key, "study");
}

struct BadStudy {
    char const* name;
    char const* text;
    char const* beginning;  // of the message
    char const* part;       // of the message
};

void PrintTo(BadStudy const& row, std::ostream* out)
{
    *out << row.name << ": " << ::testing::PrintToString(row.text);
}

class BadStudies : public ::testing::TestWithParam<BadStudy> {};

TEST_P(BadStudies, AreRefusedInOneLineWithLineAndKey)
{
    StudyFolder const folder;
    std::string const message = folder.errorOf(GetParam().text);
    EXPECT_THAT(message, StartsWith(std::string("plate.yaml:") + GetParam().beginning));
    EXPECT_THAT(message, HasSubstr(GetParam().part));
    EXPECT_THAT(message, HasSubstr("; ")) << "says what would be right";
    EXPECT_THAT(message, Not(HasSubstr("\n")));
}

// clang-format off
BadStudy const kBadStudies[] = {
    // name                   text                                          beginning             part
    {"Empty",                 "",                                           "1: ",                "for instance 'geometry: bracket.step'"},
    {"NoGeometry",            "\nstudy: a\n",                               "2: geometry: ",      "is missing; write for instance 'geometry: bracket.step'"},
    {"MisspelledKey",         "geometri: bracket.step\n",                   "1: geometri: ",      "did you mean 'geometry'? known here: geometry, outputs, study"},
    {"CapitalKey",            "Geometry: bracket.step\n",                   "1: Geometry: ",      "did you mean 'geometry'?"},
    {"StrangeKey",            "geometry: bracket.step\ncolour: red\n",      "2: colour: ",        "is no known key; known here: geometry, outputs, study"},
    {"MisspelledKeyBelow",    "geometry: bracket.step\noutputs:\n  tre: t\n", "3: outputs.tre: ", "did you mean 'tree'? known here: json, tree"},
    {"NoBlankAfterTheColon",  "study: a\ngeometry:bracket.step\n",          "2: geometry:b",      "lacks the blank after its colon; write 'geometry: bracket.step'"},
    {"GeometryTwice",         "geometry: a\ngeometry: b\n",                 "2: geometry: ",      "is given twice, first in line 1"},
    {"GeometryWithoutValue",  "study: a\ngeometry:\n",                      "2: geometry: ",      "has no value"},
    {"GeometryIsEmpty",       "geometry: ''\n",                             "1: geometry: ",      "is an empty text"},
    {"GeometryIsAList",       "geometry: [a, b]\n",                         "1: geometry: ",      "is a list, and should be a text"},
    {"GeometryIsAMap",        "geometry:\n  file: a\n",                     "1: geometry: ",      "is a map of keys, and should be a text"},
    {"GeometryIsNotThere",    "study: a\ngeometry: brackett.step\n",        "2: geometry: ",      "there is no file"},
    {"GeometryIsAFolder",     "geometry: parts\n",                          "1: geometry: ",      "is a folder; give the geometry file in it"},
    {"GeometryThroughAFile",  "geometry: bracket.step/a.step\n",            "1: geometry: ",      "there is no file"},
    {"GeometryByBackslash",   "geometry: parts\\bolt.step\n",               "1: geometry: ",      "write / between folders"},
    {"GeometryWithZeroByte",  "geometry: \"bracket.step\\0x\"\n",           "1: geometry: ",      "control character"},
    {"StudyIsAMap",           "study: {a: b}\ngeometry: bracket.step\n",    "1: study: ",         "is a map of keys, and should be a text"},
    {"StudyHasTwoLines",      "study: |\n  a\n  b\ngeometry: bracket.step\n", "1: study: ",       "write it on one line"},
    {"OutputsIsAText",        "geometry: bracket.step\noutputs: tree.txt\n", "2: outputs: ",      "is a text, and should be a map of keys; write for instance 'outputs: {tree: tree.txt}'"},
    {"OutputsWithoutKeys",    "geometry: bracket.step\noutputs:\n",         "2: outputs: ",       "has no value"},
    {"OutputsNotIndented",    "geometry: bracket.step\noutputs:\ntree: t\n", "2: outputs: ",      "has no value"},
    {"OutputWithoutName",     "geometry: bracket.step\noutputs:\n  tree:\n", "3: outputs.tree: ", "has no value; write for instance 'tree: tree.txt'"},
    {"OutputIsAbsolute",      "geometry: bracket.step\noutputs:\n  json: /tmp/j\n", "3: outputs.json: ", "'/tmp/j' leaves the output folder"},
    {"OutputClimbsOut",       "geometry: bracket.step\noutputs: {tree: ../t}\n", "2: outputs.tree: ", "'../t' leaves the output folder"},
    {"OutputsOfOneName",      "geometry: bracket.step\noutputs:\n  json: a\n  tree: ./a\n", "4: outputs.tree: ", "'a' is the name of 'json' too"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(LoadStudy, BadStudies, ::testing::ValuesIn(kBadStudies),
                         [](auto const& row) { return std::string(row.param.name); });

std::string errorOfFile(fs::path const& file)
{
    try {
        static_cast<void>(loadStudy(file));
    } catch (StudyError const& error) {
        return error.what();
    }
    return "";
}

TEST(LoadStudy, NamesAFileThatIsNotThere)
{
    EXPECT_EQ(errorOfFile("no/such.yaml"),
              "no/such.yaml: there is no such file; give the path of a study file");
}

TEST(LoadStudy, RefusesAFolderAndNamesTheFileToGive)
{
    StudyFolder const folder;
    std::string const parts = (folder.path() / "parts").string();
    EXPECT_THAT(errorOfFile(parts), StartsWith(parts + ": is a folder; give the study file in it"));
}

TEST(LoadStudy, RefusesADevice)
{
    EXPECT_THAT(errorOfFile("/dev/null"), HasSubstr("is no regular file"));
}

TEST(LoadStudy, RefusesAFileTooLongForAStudy)
{
    TemporaryFolder const folder;
    fs::path const file = folder.write("bracket.step", std::string(1024 * 1024 + 1, '#'));
    EXPECT_THAT(errorOfFile(file), HasSubstr("is longer than 1 MiB"));
}

TEST(LoadStudy, RefusesAFileThatMayNotBeRead)
{
    if (::geteuid() == 0) {
        GTEST_SKIP() << "root may read everything";
    }
    TemporaryFolder const folder;
    fs::path const file = folder.write("study.yaml", "geometry: a\n");
    fs::permissions(file, fs::perms::none);
    EXPECT_THAT(errorOfFile(file), HasSubstr("cannot be read: "));
}

}  // namespace
}  // namespace vrn::orlo::host::study

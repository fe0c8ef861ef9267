#include "host/study/study.h"

#include "host/study/keytable.h"
#include "host/study/outputname.h"
#include "host/study/studydocument.h"
#include "host/study/studytext.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <system_error>

namespace vrn::orlo::host::study {

namespace {

namespace fs = std::filesystem;

void readName(KeyPlace const& place, DocumentNode const& value, Study& study)
{
    study.m_name = lineOfText(place, value);
}

void readGeometry(KeyPlace const& place, DocumentNode const& value, Study& study)
{
    fs::path const given = pathOf(place, value);
    study.m_geometry = (study.m_file.parent_path() / given).lexically_normal();
    std::error_code error;
    fs::file_status const status = fs::status(study.m_geometry, error);
    std::string const shown = inQuotes(study.m_geometry.string());
    if (!fs::exists(status)) {
        throw StudyError(place, status.type() == fs::file_type::not_found
                                    ? "there is no file " + shown +
                                          "; give its path from the folder of the study file"
                                    : shown + " cannot be reached: " + error.message());
    }
    if (fs::is_directory(status)) {
        throw StudyError(place, shown + " is a folder; give the geometry file in it");
    }
}

void readTreeOutput(KeyPlace const& place, DocumentNode const& value, StudyOutputs& outputs)
{
    outputs.m_tree = outputName(place, value);
}

void readJsonOutput(KeyPlace const& place, DocumentNode const& value, StudyOutputs& outputs)
{
    outputs.m_json = outputName(place, value);
}

void readMeshOutput(KeyPlace const& place, DocumentNode const& value, StudyOutputs& outputs)
{
    outputs.m_mesh = outputName(place, value);
    constexpr std::array<std::string_view, 3> kEndings{".inp", ".msh", ".orlo"};
    std::string const ending = outputs.m_mesh.extension().string();
    if (std::find(kEndings.begin(), kEndings.end(), ending) == kEndings.end()) {
        throw StudyError(place, inQuotes(outputs.m_mesh.string()) +
                                    " has an ending that no mesh is written with; end it in .inp, "
                                    ".msh or .orlo");
    }
}

// clang-format off
using OutputRow = KeyRow<StudyOutputs>;
constexpr std::array kOutputKeys{
    OutputRow{{"tree", Need::optional, NodeKind::text, "tree: tree.txt"}, readTreeOutput},
    OutputRow{{"json", Need::optional, NodeKind::text, "json: model.json"}, readJsonOutput},
    OutputRow{{"mesh", Need::optional, NodeKind::text, "mesh: model.inp"}, readMeshOutput},
};
// clang-format on

/// Two outputs of one name would overwrite each other.
void refuseEqualOutputs(KeyPlace const& place, DocumentNode const& outputs)
{
    std::vector<fs::path> names;
    for (DocumentNode const& child : outputs.m_children) {
        KeyPlace const childPlace = placeOfKey(place, child);
        names.push_back(outputName(childPlace, child));
        auto const first = std::find(names.begin(), names.end(), names.back());
        auto const index = static_cast<std::size_t>(first - names.begin());
        if (index + 1 < names.size()) {
            throw StudyError(childPlace, inQuotes(names.back().string()) + " is the name of " +
                                             inQuotes(outputs.m_children[index].m_key) +
                                             " too; give each output a name of its own");
        }
    }
}

void readMesh(KeyPlace const& place, DocumentNode const& value, Study& study)
{
    study.m_mesh = readStudyMesh(place, value);
}

void readOutputs(KeyPlace const& place, DocumentNode const& value, Study& study)
{
    readKeys(place, value, kOutputKeys, study.m_outputs);
    refuseEqualOutputs(place, value);
}

// clang-format off
using StudyRow = KeyRow<Study>;
constexpr std::array kStudyKeys{
    StudyRow{{"study", Need::optional, NodeKind::text, "study: bracket"}, readName},
    StudyRow{{"geometry", Need::required, NodeKind::text, "geometry: bracket.step"},
             readGeometry},
    StudyRow{{"mesh", Need::optional, NodeKind::map, "mesh: {size: 5}"}, readMesh},
    StudyRow{{"outputs", Need::optional, NodeKind::map, "outputs: {tree: tree.txt}"},
             readOutputs},
};
// clang-format on

void collectPlaces(KeyPlace const& place, DocumentNode const& node, std::vector<KeyPlace>& places)
{
    for (std::size_t i = 0; i < node.m_children.size(); ++i) {
        DocumentNode const& child = node.m_children[i];
        places.push_back(node.m_kind == NodeKind::list ? placeOfItem(place, child, i + 1)
                                                       : placeOfKey(place, child));
        KeyPlace const here = places.back();  // the vector may move below
        collectPlaces(here, child, places);
    }
}

}  // namespace

KeyPlace Study::placeOf(std::string_view key) const
{
    auto const place = std::find_if(m_places.begin(), m_places.end(),
                                    [&](KeyPlace const& p) { return p.m_key == key; });
    return place == m_places.end() ? KeyPlace{m_file, 0, std::string(key)} : *place;
}

Study loadStudy(fs::path const& file)
{
    DocumentNode const root = parseStudyDocument(file, readStudyText(file));
    KeyPlace const place{file, root.m_line, {}};
    Study study;
    study.m_file = file;
    study.m_name = file.stem().string();
    collectPlaces(place, root, study.m_places);
    readKeys(place, root, kStudyKeys, study);
    if (!study.m_outputs.m_mesh.empty() && !study.m_mesh.has_value()) {
        throw StudyError(study.placeOf("outputs.mesh"),
                         "asks for a mesh that the study does not describe; add for instance "
                         "'mesh: {size: 5}'");
    }
    return study;
}

}  // namespace vrn::orlo::host::study

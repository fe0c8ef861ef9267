#include "host/study/studymesh.h"

#include "host/study/keytable.h"
#include "host/study/studydocument.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <system_error>

namespace vrn::orlo::host::study {

namespace {

/// A face size as its map gives it.
struct FaceSize {
    unsigned m_face = 0;
    double m_size = 0.0;
};

template <class Number>
std::optional<Number> numberIn(std::string const& text)
{
    Number number{};
    auto const [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    bool const isRead = error == std::errc() && stop == text.data() + text.size();
    return isRead ? std::optional(number) : std::nullopt;
}

double lengthOf(KeyPlace const& place, DocumentNode const& value, bool mayBeZero)
{
    std::string const text = lineOfText(place, value);
    auto const number = numberIn<double>(text);
    bool const isLength = number.has_value() && std::isfinite(*number) &&
                          (*number > 0.0 || (mayBeZero && *number == 0.0));
    if (!isLength) {
        bool const hasComma = text.find(',') != text.npos;
        throw StudyError(place, inQuotes(text) + " is no length; write mm as a number " +
                                    (mayBeZero ? "from 0, such as 0.5" : "above 0, such as 2.5") +
                                    (hasComma ? ", with a point" : ""));
    }
    return *number;
}

int numberFrom(int least, int most, KeyPlace const& place, DocumentNode const& value,
               char const* mend)
{
    std::string const text = lineOfText(place, value);
    auto const number = numberIn<int>(text);
    if (!number.has_value() || *number < least || *number > most) {
        throw StudyError(place, inQuotes(text) + " cannot be taken; write " + mend);
    }
    return *number;
}

void readSize(KeyPlace const& place, DocumentNode const& value, StudyMesh& mesh)
{
    mesh.m_size = lengthOf(place, value, false);
}

void readMinimum(KeyPlace const& place, DocumentNode const& value, StudyMesh& mesh)
{
    mesh.m_minimum = lengthOf(place, value, true);
}

void readOrder(KeyPlace const& place, DocumentNode const& value, StudyMesh& mesh)
{
    mesh.m_order = numberFrom(1, 2, place, value, "1, or 2 for nodes in the middle of the sides");
}

void readDimension(KeyPlace const& place, DocumentNode const& value, StudyMesh& mesh)
{
    mesh.m_dimension = numberFrom(2, 3, place, value, "3, or 2 for shells on the faces of solids");
}

void readFaces(KeyPlace const& place, DocumentNode const& value, StudyMesh& mesh)
{
    std::string const text = lineOfText(place, value);
    if (text != "true" && text != "false") {
        throw StudyError(place, inQuotes(text) + " is neither; write true or false");
    }
    mesh.m_faces = text == "true";
}

void readCurvature(KeyPlace const& place, DocumentNode const& value, StudyMesh& mesh)
{
    constexpr int kMost = 10'000;
    mesh.m_curvature = numberFrom(0, kMost, place, value,
                                  "how many elements go around a full circle, such as 12, or 0");
}

void readPart(KeyPlace const& place, DocumentNode const& value, StudyMesh::PartSize& row)
{
    row.m_part = lineOfText(place, value);
}

void readPartSize(KeyPlace const& place, DocumentNode const& value, StudyMesh::PartSize& row)
{
    row.m_size = lengthOf(place, value, false);
}

void readFace(KeyPlace const& place, DocumentNode const& value, FaceSize& row)
{
    std::string const text = lineOfText(place, value);
    auto const number = numberIn<unsigned>(text);
    if (!number.has_value() || *number == 0) {
        throw StudyError(
            place, inQuotes(text) + " is no number of a face; write one that `orlo inspect` lists");
    }
    row.m_face = *number;
}

void readFaceSize(KeyPlace const& place, DocumentNode const& value, FaceSize& row)
{
    row.m_size = lengthOf(place, value, false);
}

// clang-format off
using PartRow = KeyRow<StudyMesh::PartSize>;
constexpr std::array kPartKeys{
    PartRow{{"part", Need::required, NodeKind::text, "part: bolt"}, readPart},
    PartRow{{"size", Need::required, NodeKind::text, "size: 2.5"}, readPartSize},
};

using FaceRow = KeyRow<FaceSize>;
constexpr std::array kFaceKeys{
    FaceRow{{"face", Need::required, NodeKind::text, "face: 12"}, readFace},
    FaceRow{{"size", Need::required, NodeKind::text, "size: 0.5"}, readFaceSize},
};
// clang-format on

/// Calls for each item of a list with its place.
template <class Read>
void forItems(KeyPlace const& place, DocumentNode const& list, char const* example,
              Read const& read)
{
    for (std::size_t i = 0; i < list.m_children.size(); ++i) {
        DocumentNode const& item = list.m_children[i];
        KeyPlace const itemPlace = placeOfItem(place, item, i + 1);
        if (item.m_kind != NodeKind::map) {
            throw StudyError(itemPlace, "is " + std::string(nameOf(item.m_kind)) +
                                            ", and should be a map of keys; write for instance '" +
                                            example + "'");
        }
        read(itemPlace, item);
    }
}

void readParts(KeyPlace const& place, DocumentNode const& value, StudyMesh& mesh)
{
    forItems(place, value, "- {part: bolt, size: 2.5}",
             [&mesh](KeyPlace const& itemPlace, DocumentNode const& item) {
                 StudyMesh::PartSize row;
                 readKeys(itemPlace, item, kPartKeys, row);
                 auto const twin =
                     std::find_if(mesh.m_partSizes.begin(), mesh.m_partSizes.end(),
                                  [&row](auto const& other) { return other.m_part == row.m_part; });
                 if (twin != mesh.m_partSizes.end()) {
                     throw StudyError(itemPlace, "gives part " + inQuotes(row.m_part) +
                                                     " a size again; keep one of them");
                 }
                 mesh.m_partSizes.push_back(std::move(row));
             });
}

void readFaceSizes(KeyPlace const& place, DocumentNode const& value, StudyMesh& mesh)
{
    forItems(place, value, "- {face: 12, size: 0.5}",
             [&mesh](KeyPlace const& itemPlace, DocumentNode const& item) {
                 FaceSize row;
                 readKeys(itemPlace, item, kFaceKeys, row);
                 if (!mesh.m_faceSizes.emplace(row.m_face, row.m_size).second) {
                     throw StudyError(itemPlace, "gives face " + std::to_string(row.m_face) +
                                                     " a size again; keep one of them");
                 }
             });
}

// clang-format off
using MeshRow = KeyRow<StudyMesh>;
constexpr std::array kMeshKeys{
    MeshRow{{"size", Need::required, NodeKind::text, "size: 5"}, readSize},
    MeshRow{{"minimum", Need::optional, NodeKind::text, "minimum: 0.5"}, readMinimum},
    MeshRow{{"order", Need::optional, NodeKind::text, "order: 2"}, readOrder},
    MeshRow{{"dimension", Need::optional, NodeKind::text, "dimension: 3"}, readDimension},
    MeshRow{{"faces", Need::optional, NodeKind::text, "faces: true"}, readFaces},
    MeshRow{{"curvature", Need::optional, NodeKind::text, "curvature: 12"}, readCurvature},
    MeshRow{{"parts", Need::optional, NodeKind::list, "parts: [{part: bolt, size: 2.5}]"},
            readParts},
    MeshRow{{"face-sizes", Need::optional, NodeKind::list, "face-sizes: [{face: 12, size: 0.5}]"},
            readFaceSizes},
};
// clang-format on

}  // namespace

StudyMesh readStudyMesh(KeyPlace const& place, DocumentNode const& value)
{
    StudyMesh mesh;
    readKeys(place, value, kMeshKeys, mesh);
    return mesh;
}

}  // namespace vrn::orlo::host::study

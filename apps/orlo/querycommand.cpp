#include "apps/orlo/querycommand.h"

#include "apps/orlo/console.h"
#include "apps/orlo/meshreport.h"
#include "apps/orlo/pickfilters.h"
#include "apps/orlo/query.h"
#include "apps/orlo/session.h"
#include "apps/orlo/usageerror.h"
#include "platform/appfw/entity.h"
#include "platform/kfr/numbertext.h"
#include "plugins/modelingplugin/utilities/geometrymesh/meshbodyea.h"
#include "plugins/modelingplugin/utilities/geometrymesh/partmeshea.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace vrn::orlo::app {

namespace {

using plugin::modeling::MeshBodyEA;
using plugin::modeling::PartMeshEA;

void check(QueryOptions const& options)
{
    check(options.m_pixel);
    int const questions = static_cast<int>(options.m_entity.has_value()) +
                          static_cast<int>(options.m_node.has_value()) +
                          static_cast<int>(isGiven(options.m_pixel));
    if (questions != 1) {
        throw UsageError("give one of --entity N, --node N and --at-pixel x,y");
    }
    if (isAnySet(settingsOf(options.m_mesh)) && !options.m_mesh.m_size.has_value()) {
        throw UsageError("options of meshing are given without a size; give --size MM, too");
    }
}

/// Numbers rounded to a millionth for people, lists with commas between, maps in braces.
std::string inLine(Json const& value)
{
    if (value.is_string()) {
        auto const text = value.get<std::string>();
        return text.empty() ? "-" : text;
    }
    if (value.is_number_float()) {
        constexpr double kDigits = 1e6;
        return KFR::numberText(std::round(value.get<double>() * kDigits) / kDigits + 0.0);
    }
    if (value.is_null()) {
        return "-";
    }
    if (!value.is_structured()) {
        return value.dump();
    }
    std::string text;
    for (auto const& [key, item] : value.items()) {
        text += text.empty() ? "" : ", ";
        text += (value.is_object() ? key + " " : std::string()) + inLine(item);
    }
    bool const isPlace = value.is_array() && !value.empty() && value[0].is_number_float();
    return isPlace ? "(" + text + ")" : text.empty() ? "-" : text;
}

bool holdsMaps(Json const& value)
{
    return value.is_array() && !value.empty() && value[0].is_object();
}

void print(Json const& answer, std::string const& indent)
{
    constexpr std::size_t kColumn = 16;
    for (auto const& [key, value] : answer.items()) {
        std::string const label = indent + key;
        if (holdsMaps(value)) {
            for (Json const& row : value) {
                std::printf("%-*s %s\n", static_cast<int>(kColumn), label.c_str(),
                            inLine(row).c_str());
            }
        } else if (value.is_object() && std::ranges::any_of(value, [](Json const& item) {
                       return item.is_structured();
                   })) {
            std::printf("%s\n", label.c_str());
            print(value, indent + "  ");
        } else {
            std::printf("%-*s %s\n", static_cast<int>(kColumn), label.c_str(),
                        inLine(value).c_str());
        }
    }
}

int report(QuerySource& source, QueryOptions const& options)
{
    Json json = Json::object();
    Json answer;
    if (isGiven(options.m_pixel)) {
        std::vector<QueryHit> const hits = source.at(options.m_pixel);
        if (hits.empty()) {
            reportError("nothing of these kinds is at the pixel; try another, or widen --filter");
            return kModelRefused;
        }
        for (QueryHit const& hit : hits) {
            json["hits"].push_back(hit.m_hit);
        }
        answer = hits.front().m_query();
    } else {
        answer = options.m_entity.has_value() ? source.ofEntity(*options.m_entity)
                                              : source.ofNode(*options.m_node);
    }
    json.update(answer);
    if (options.m_json) {
        std::string const text = json.dump(2, ' ', false, Json::error_handler_t::replace);
        std::printf("%s\n", text.c_str());
    } else {
        print(json, "");
    }
    return kDone;
}

}  // namespace

std::string nameOf(KFRIService const& object)
{
    auto const entity = KFR::loose_cast<appfw::IEntityInterface>(object);
    KFRAny value;
    if (entity == KFR::NULLSP || !entity->getProperty("name", value).isOk()) {
        return {};
    }
    if (auto const* const name = value.get<icu::UnicodeString>()) {
        std::string utf8;
        return name->toUTF8String(utf8);
    }
    auto const* const name = value.get<std::string>();
    return name != nullptr ? *name : std::string();
}

Json describe(KFRSmartPointer<CAE::IMeshBodyInterface> const& body)
{
    if (body == KFR::NULLSP) {
        return nullptr;
    }
    MeshBodyEA const wrapped(body);
    Json dimensions = Json::array();
    constexpr unsigned kMostDimensions = 3;
    for (unsigned dimension = 0; dimension <= kMostDimensions; ++dimension) {
        if ((wrapped.getDimensionalities() & (1U << dimension)) != 0) {
            dimensions.push_back(dimension);
        }
    }
    return {{"name", nameOf(body)},
            {"dimensions", std::move(dimensions)},
            {"elements", wrapped.getElementIds().size()},
            {"isPureMesh", wrapped.isPureMesh()}};
}

Json describe(KFRSmartPointer<CAE::IMeshInterface> const& mesh)
{
    if (mesh == KFR::NULLSP) {
        return nullptr;
    }
    unsigned char dimension = 0;
    bool isContinuous = false;
    KFRSequence<unsigned long long> ids;
    static_cast<void>(mesh->getDimension(dimension));
    static_cast<void>(mesh->isContinuous(isContinuous));
    static_cast<void>(mesh->getElementIds(ids));
    return {{"name", nameOf(mesh)},
            {"dimension", dimension},
            {"elements", ids.size()},
            {"isContinuous", isContinuous}};
}

std::string meshStateOf(KFRIService const& part)
{
    switch (PartMeshEA::getPartMeshState(KFR::loose_cast<CAE::IPartInterface>(part))) {
        case PartMeshEA::PartMesh::partly:
            return "partly";
        case PartMeshEA::PartMesh::fully:
            return "fully";
        case PartMeshEA::PartMesh::none:
            break;
    }
    return "none";
}

int query(QueryOptions const& options, SessionOptions const& sessionOptions)
{
    check(options);
    bool const isMesh = isMeshFile(options.m_file);
    std::vector<std::string> filters = options.m_filters;
    if (filters.empty()) {
        filters = {"Vertex", "Edge", "Face"};
    }
    Session session(sessionOptions);
    PickStage const stage(filters, true);
    auto const source =
        isMesh ? openMeshQuery(session, options) : openGeometryQuery(session, options);
    return report(*source, options);
}

}  // namespace vrn::orlo::app

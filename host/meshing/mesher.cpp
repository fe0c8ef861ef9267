#include "host/meshing/mesher.h"

#include "host/geometry/tightbox.h"
#include "host/meshing/gmshbody.h"
#include "host/meshing/gmshsession.h"
#include "host/meshing/meshrepair.h"
#include "host/meshing/storeassembly.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <limits>
#include <stdexcept>

namespace vrn::orlo::host::meshing {

using geometry::TopologyLevel;

namespace {

constexpr ExternalId kLastFirstId =
    std::numeric_limits<ExternalId>::max() - std::numeric_limits<LocalNumber>::max();

std::string textOf(double number)
{
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.6g", number);
    return text.data();
}

[[noreturn]] void refuse(std::string const& line)
{
    throw std::invalid_argument(line);
}

/// A length that is above 0 and finite.
void checkLength(double length, std::string const& what)
{
    if (!(length > 0.0) || !std::isfinite(length)) {
        refuse(what + " is " + textOf(length) + " mm; give a number above 0");
    }
}

void checkChoices(MeshOptions const& options)
{
    if (options.m_order != 1 && options.m_order != 2) {
        refuse("the order of the elements is " + std::to_string(options.m_order) + "; give 1 or 2");
    }
    if (options.m_dimension != 2 && options.m_dimension != 3) {
        refuse("the dimension of the elements in solids is " + std::to_string(options.m_dimension) +
               "; give 3, or 2 for shells");
    }
    if (options.m_curvature < 0) {
        refuse("the number of elements on a circle is " + std::to_string(options.m_curvature) +
               "; give 0 for any, or more");
    }
    for (ExternalId const id : {options.m_firstNodeId, options.m_firstElementId}) {
        if (id < 1 || id > kLastFirstId) {
            refuse("the first id is " + std::to_string(id) + "; give one from 1 to " +
                   std::to_string(kLastFirstId));
        }
    }
}

void checkFaceSizes(MeshOptions const& options, geometry::PartTopology const& topology,
                    std::string const& part)
{
    unsigned const first = topology.firstNumber(TopologyLevel::face);
    for (auto const& [face, size] : options.m_faceSizes) {
        if (face < first || face - first >= topology.count(TopologyLevel::face)) {
            refuse("entity " + std::to_string(face) +
                   " has a mesh size of its own, but is no face "
                   "of part \"" +
                   part + "\"");
        }
        checkLength(size, "the mesh size of face " + std::to_string(face));
    }
}

void checkSizes(MeshOptions const& options, geometry::PartTopology const& topology,
                std::string const& part)
{
    std::string const range = "; the mesh size of part \"" + part + "\" is above 0 and up to ";
    double smallest = std::numeric_limits<double>::infinity();
    unsigned smallestBody = 0;
    unsigned const first = topology.firstNumber(TopologyLevel::body);
    for (unsigned i = 0; i < topology.count(TopologyLevel::body); ++i) {
        double const diagonal = geometry::tightBox(topology.shapeOf(first + i)).diagonal();
        if (dimensionOf(topology, first + i) > 0 && diagonal < smallest) {
            smallest = diagonal;
            smallestBody = first + i;
        }
    }
    std::string const mend =
        smallestBody == 0 ? "; give a number above 0" : range + textOf(smallest) + " mm";
    if (!(options.m_size > 0.0) || !std::isfinite(options.m_size)) {
        refuse("the mesh size is " + textOf(options.m_size) + " mm" + mend);
    }
    constexpr double kToSpare = 1.0 + 1e-5;  // the user may give the number as the line prints it
    if (options.m_size > smallest * kToSpare) {
        refuse("the mesh size is " + textOf(options.m_size) + " mm, but the box of body " +
               std::to_string(smallestBody) + " has a diagonal of " + textOf(smallest) + " mm" +
               mend);
    }
    if (!(options.m_minimumSize >= 0.0) || options.m_minimumSize > options.m_size) {
        refuse("the smallest mesh size is " + textOf(options.m_minimumSize) +
               " mm; give 0 for a twentieth of the mesh size, or up to the mesh size of " +
               textOf(options.m_size) + " mm");
    }
}

/// Bodies of one part, one after the other.
class PartMesher {
public:
    PartMesher(geometry::Part const& part, geometry::PartTopology const& topology,
               MeshOptions const& options, MeshProgress const& progress)
        : m_topology(topology),
          m_options(options),
          m_progress(progress),
          m_assembly(part.m_name, topology, options)
    {
        unsigned const count = static_cast<unsigned>(topology.count(TopologyLevel::body));
        for (unsigned i = 0; i < count; ++i) {
            unsigned const number = topology.firstNumber(TopologyLevel::body) + i;
            m_bodies.push_back(
                {count == 1 ? part.m_name : "body " + std::to_string(number), number});
        }
    }

    MeshedPartResult run()
    {
        MeshedPartResult result;
        for (std::size_t i = 0; i < m_bodies.size(); ++i) {
            MeshBodyRow const& body = m_bodies[i];
            if (dimensionOf(m_topology, body.m_entity) == 0) {
                m_assembly.addEmpty(body);
                continue;
            }
            try {
                BodyMesh mesh = meshed(i);
                std::size_t const straightened = straightenInverted(mesh);
                m_assembly.add(body, mesh);
                result.m_straightened += straightened;
            } catch (MesherError const& error) {
                m_assembly.addEmpty(body);
                result.m_failures.push_back({body.m_entity, body.m_name, error.what()});
            }
        }
        result.m_store = m_assembly.finish();
        report(m_bodies.size(), 0.0, "done");
        return result;
    }

private:
    BodyMesh meshed(std::size_t index)
    {
        unsigned const number = m_bodies[index].m_entity;
        std::uint8_t const own = dimensionOf(m_topology, number);
        auto const dimension = std::min(own, static_cast<std::uint8_t>(m_options.m_dimension));
        auto const reportStage = [&](double fraction, char const* step) {
            report(index, fraction, m_bodies[index].m_name + ": " + step);
        };
        reportStage(0.0, "taking its geometry");
        GmshSession const session;
        GmshBody body(m_topology, number, m_options);
        body.mesh(dimension, reportStage);
        reportStage(0.9, "taking its mesh");
        BodyMesh mesh = body.extract(dimension);
        if (own == 3 && dimension == 2) {
            turnOutwards(mesh);
        }
        return mesh;
    }

    void report(std::size_t bodiesDone, double fraction, std::string const& step) const
    {
        if (m_progress) {
            m_progress((static_cast<double>(bodiesDone) + fraction) /
                           static_cast<double>(std::max<std::size_t>(m_bodies.size(), 1)),
                       step);
        }
    }

    geometry::PartTopology const& m_topology;
    MeshOptions const& m_options;
    MeshProgress const& m_progress;
    StoreAssembly m_assembly;
    std::vector<MeshBodyRow> m_bodies;
};

}  // namespace

MeshedPartResult meshPart(geometry::GeometryModel const& model, std::size_t part,
                          MeshOptions const& options, MeshProgress const& progress)
{
    geometry::Part const& row = model.m_parts.at(part);
    geometry::PartTopology const& topology = model.shapes().part(part);
    checkChoices(options);
    checkSizes(options, topology, row.m_name);
    checkFaceSizes(options, topology, row.m_name);
    if (topology.count(TopologyLevel::body) > std::numeric_limits<std::uint16_t>::max()) {
        refuse("part \"" + row.m_name + "\" has more than 65535 bodies; split it");
    }
    return PartMesher(row, topology, options, progress).run();
}

}  // namespace vrn::orlo::host::meshing

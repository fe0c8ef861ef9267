// The readers of Gmsh meshes and bulk data on a million tetrahedra, against the Gmsh library's own
// reading of the same files.

#include "benchmarks/support/ratio.h"
#include "host/meshing/bulkdatareader.h"
#include "host/meshing/gmshreader.h"
#include "host/meshing/meshbuilder.h"
#include "host/meshing/meshwriter.h"

#include <gmsh.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include <unistd.h>

namespace {

namespace meshing = vrn::orlo::host::meshing;
namespace fs = std::filesystem;

/// Cubes of six tetrahedra each.
constexpr std::int64_t kCubes = 55;
constexpr std::int64_t kElements = 6 * kCubes * kCubes * kCubes;

std::int64_t nodeAt(std::int64_t x, std::int64_t y, std::int64_t z)
{
    return 1 + x + (kCubes + 1) * (y + (kCubes + 1) * z);
}

/// Calls with the number of each element and its nodes: from one corner of a cube to the opposite
/// one by each order of the axes.
template <class Visit>
void forEachElement(Visit const& visit)
{
    constexpr std::array<std::array<std::size_t, 3>, 6> kOrders{
        {{0, 1, 2}, {1, 2, 0}, {2, 0, 1}, {1, 0, 2}, {2, 1, 0}, {0, 2, 1}}};
    std::int64_t element = 0;
    for (std::int64_t cube = 0; cube < kCubes * kCubes * kCubes; ++cube) {
        for (std::size_t order = 0; order < kOrders.size(); ++order) {
            std::array<std::int64_t, 3> at{cube % kCubes, cube / kCubes % kCubes,
                                           cube / (kCubes * kCubes)};
            std::array<std::int64_t, 4> nodes{nodeAt(at[0], at[1], at[2])};
            for (std::size_t step = 0; step < 3; ++step) {
                ++at[kOrders[order][step]];
                nodes[step + 1] = nodeAt(at[0], at[1], at[2]);
            }
            if (order >= 3) {  // the odd orders turn the other way
                std::swap(nodes[1], nodes[2]);
            }
            visit(++element, nodes);
        }
    }
}

template <class Visit>
void forEachNode(Visit const& visit)
{
    for (std::int64_t i = 0; i < (kCubes + 1) * (kCubes + 1) * (kCubes + 1); ++i) {
        auto const coordinate = [](std::int64_t step) {
            return static_cast<double>(step % (kCubes + 1)) / 7.0;
        };
        visit(i + 1, meshing::Point{coordinate(i), coordinate(i / (kCubes + 1)),
                                    coordinate(i / (kCubes + 1) / (kCubes + 1))});
    }
}

void writeMsh(fs::path const& file)
{
    meshing::MeshBuilder builder("block");
    auto const type = builder.typeName("TETRAHEDRON4");
    auto const group = builder.group(3, "volume 1");
    forEachNode([&](std::int64_t id, meshing::Point const& point) {
        builder.addNode(id, point, meshing::MeshBuilder::kNoSet, 1);
    });
    forEachElement([&](std::int64_t id, std::array<std::int64_t, 4> const& nodes) {
        builder.addElement(id, meshing::ElementType::tetra4, type, meshing::MeshBuilder::kNoSet, 1,
                           group);
        for (std::int64_t const node : nodes) {
            builder.addElementNode(node);
        }
    });
    std::vector<std::string> warnings;
    static_cast<void>(
        meshing::writeGmshMesh(builder.finish(meshing::SourceLines(), warnings), file));
}

void writeBulkData(fs::path const& file)
{
    std::ofstream out(file);
    std::array<char, 128> line;
    auto const put = [&](int length) {
        out.write(line.data(), length);
    };
    out << "BEGIN BULK\n";
    forEachNode([&](std::int64_t id, meshing::Point const& p) {
        put(std::snprintf(line.data(), line.size(), "GRID    %8ld%8d%8.5f%8.5f%8.5f\n", id, 0, p[0],
                          p[1], p[2]));
    });
    forEachElement([&](std::int64_t id, std::array<std::int64_t, 4> const& n) {
        put(std::snprintf(line.data(), line.size(), "CTETRA  %8ld%8d%8ld%8ld%8ld%8ld\n", id, 1,
                          n[0], n[1], n[2], n[3]));
    });
    out << "ENDDATA\n";
}

[[noreturn]] void stop(char const* who)
{
    std::fprintf(stderr, "%s did not read all elements\n", who);
    std::exit(2);
}

void readByLibrary(fs::path const& file)
{
    gmsh::clear();
    gmsh::open(file.string());
    std::vector<int> types;
    std::vector<std::vector<std::size_t>> elements;
    std::vector<std::vector<std::size_t>> nodes;
    gmsh::model::mesh::getElements(types, elements, nodes, 3);
    if (elements.size() != 1 || elements[0].size() != static_cast<std::size_t>(kElements)) {
        stop("the library");
    }
}

void check(meshing::MeshFile const& file)
{
    if (file.m_parts[0]->countOf(3) != kElements) {
        stop("the reader");
    }
}

}  // namespace

int main()
{
    fs::path const folder =
        fs::temp_directory_path() / ("orlo-bench-" + std::to_string(::getpid()));
    fs::create_directories(folder);
    fs::path const msh = folder / "block.msh";
    fs::path const bdf = folder / "block.bdf";
    writeMsh(msh);
    writeBulkData(bdf);

    orlo::bench::Ratios ratios;
    gmsh::initialize();
    gmsh::option::setNumber("General.Terminal", 0);
    ratios.compare(
        "msh 4.1 text, 1e6 tetrahedra / Gmsh library", 0.2,
        [&] { check(meshing::readGmshMesh(msh)); }, [&] { readByLibrary(msh); });
    ratios.compare(
        "bulk data, 1e6 tetrahedra / Gmsh library", 0.35,
        [&] { check(meshing::readBulkDataMesh(bdf)); }, [&] { readByLibrary(bdf); });
    gmsh::finalize();
    fs::remove_all(folder);
    return ratios.exitStatus();
}

/// \file
/// What an imported file holds, free of the geometry kernel's types: parts, the tree of their
/// instances, and every topological entity with its number and class.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vrn::orlo::host::geometry {

/// Class numbers of the geometry server. Bodies are 7 to 15, the rest is what bodies are made of.
enum class EntityClass : std::uint8_t {
    solidBody = 7,
    sheetBody = 8,
    wireBody = 9,
    pointBody = 10,
    generalBody = 11,
    facetSolid = 12,
    facetSheet = 13,
    facetWire = 14,
    facetGeneral = 15,
    volume = 16,
    face = 18,
    edge = 21,
    vertex = 22,
};

/// Type name of a class, as the type registry knows it: "BODY", "SHEETBODY", "FACE", ...
[[nodiscard]] std::string_view typeNameOf(EntityClass entityClass) noexcept;

/// True for the classes of whole bodies.
[[nodiscard]] constexpr bool isBodyClass(EntityClass entityClass) noexcept
{
    return entityClass <= EntityClass::facetGeneral;
}

/// One topological entity of one part. What it measures is GeometryModel::measure().
struct Entity {
    unsigned m_number = 0;  ///< The entity's number. Unique over all classes.
    EntityClass m_class = EntityClass::vertex;
    unsigned m_part = 0;  ///< Index of its part in GeometryModel::parts().
    unsigned m_body = 0;  ///< Number of the body it belongs to; its own number for a body.
};

/// An axis-aligned box in mm. Empty when no corner was ever added.
struct Box {
    std::array<double, 3> m_min{1.0, 1.0, 1.0};
    std::array<double, 3> m_max{0.0, 0.0, 0.0};

    [[nodiscard]] bool isEmpty() const noexcept { return m_min[0] > m_max[0]; }
    void add(std::array<double, 3> const& point) noexcept;
    [[nodiscard]] double diagonal() const noexcept;  ///< mm; 0 for an empty box.
};

/// How many entities of each kind there are.
struct Counts {
    std::size_t m_solids = 0;  ///< 3D bodies, facet solids among them.
    std::size_t m_sheets = 0;  ///< 2D bodies.
    std::size_t m_wires = 0;   ///< 1D bodies.
    std::size_t m_points = 0;  ///< Point bodies.
    std::size_t m_volumes = 0;
    std::size_t m_faces = 0;
    std::size_t m_edges = 0;
    std::size_t m_vertices = 0;

    Counts& operator+=(Counts const& other) noexcept;
    friend bool operator==(Counts const&, Counts const&) = default;
};

/// A part: geometry that is stored once, however often the assembly uses it.
struct Part {
    std::string m_name;          ///< UTF-8, as the file gives it; never empty.
    unsigned m_firstEntity = 0;  ///< Range of its entities in GeometryModel::entities().
    unsigned m_entityCount = 0;
    unsigned m_instanceCount = 0;  ///< How many leaves of the tree use it.
    Counts m_counts;
    Box m_box;  ///< In part coordinates.
};

/// Rotation, scale and translation, row-major, three rows of four: the part's coordinates to the
/// parent's. The fourth column is the translation in mm.
struct Placement {
    std::array<double, 12> m_rows{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0};

    [[nodiscard]] bool isIdentity() const noexcept;
};

/// A node of the assembly tree: an assembly with children, or a leaf that places a part.
struct Instance {
    static constexpr int kNoPart = -1;

    std::string m_name;         ///< The occurrence's own name; the product's if it has none. UTF-8.
    std::string m_productName;  ///< Name of the part or assembly that is placed here.
    int m_part = kNoPart;       ///< Index of the part for a leaf.
    Placement m_placement;      ///< Relative to the parent.
    std::vector<Instance> m_children;
};

/// The length unit of the imported file.
struct LengthUnit {
    std::string m_name;          ///< "millimetre", "inch", ...; "none" when the file states none.
    double m_millimetres = 1.0;  ///< How many mm one unit is.
};

class ShapeStore;  // the kernel's shapes, in shapestore.h, for the sources of this module only

/// An imported file.
///
/// Units      mm, mm2, mm3, whatever the unit of the file was.
/// Order      Entities of a part stand together: bodies, volumes, faces, edges, vertices, each in
///            the kernel's map order. Two imports of one file give the same numbers, from 1 unless
///            numberFrom() says otherwise.
/// Ownership  Move-only. Spans and references live as long as the model.
/// Threads    Const operations may run on several threads.
class GeometryModel {
public:
    GeometryModel();
    GeometryModel(GeometryModel&&) noexcept;
    GeometryModel& operator=(GeometryModel&&) noexcept;
    ~GeometryModel();

    std::string m_sourceFile;             ///< The path as it was given.
    LengthUnit m_unit;                    ///< The file's own length unit.
    std::vector<std::string> m_warnings;  ///< One line each, for the user.
    std::vector<Instance> m_roots;   ///< The free assemblies and parts of the file, in its order.
    std::vector<Part> m_parts;       ///< In the order of their first use in the tree.
    std::vector<Entity> m_entities;  ///< Number n stands at index n - firstNumber().
    Counts m_totals;                 ///< Over all instances: a part used twice counts twice.
    unsigned m_assemblyCount = 0;    ///< Distinct assemblies (products with components).
    Box m_box;                       ///< Over all instances, in model coordinates.

    [[nodiscard]] unsigned firstNumber() const noexcept { return m_firstNumber; }
    /// Moves all numbers, so that they are unique among several models. To be called before anybody
    /// remembers one.
    void numberFrom(unsigned first);

    /// The entities of a part, in number order. An index out of range gives an empty span.
    [[nodiscard]] std::span<Entity const> entitiesOf(std::size_t part) const noexcept;

    /// The entity of a number; nullptr for a number that the model does not have.
    [[nodiscard]] Entity const* entity(unsigned number) const noexcept;

    /// Numbers of the entities directly or indirectly below `number` of the class, ascending.
    [[nodiscard]] std::vector<unsigned> children(unsigned number, EntityClass entityClass) const;

    /// Numbers of the entities above `number` that are of the class, ascending.
    [[nodiscard]] std::vector<unsigned> parents(unsigned number, EntityClass entityClass) const;

    /// What an entity measures, in part coordinates: mm3 of a volume and of a 3D body, mm2 of a
    /// face and of a 2D body, mm of an edge and of a 1D body; 0 of a vertex, and for a number that
    /// the model does not have. Computed at the first question and then kept: for all entities of
    /// a large model it takes about half as long as its import.
    [[nodiscard]] double measure(unsigned number) const;

    /// mm3 of all volumes of a part; 0 for an index out of range. Costs as measure() does.
    [[nodiscard]] double volumeOf(std::size_t part) const;

    /// mm3 of the volumes of all instances. Costs as measure() does, once per part.
    [[nodiscard]] double volume() const;

    [[nodiscard]] ShapeStore& shapes() noexcept { return *m_shapes; }
    [[nodiscard]] ShapeStore const& shapes() const noexcept { return *m_shapes; }

private:
    unsigned m_firstNumber = 1;
    std::unique_ptr<ShapeStore> m_shapes;
};

}  // namespace vrn::orlo::host::geometry

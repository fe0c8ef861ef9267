/// \file
/// The parts of an Abaqus input file while it is read.

#pragma once

#include "host/meshing/abaqusscanner.h"
#include "host/meshing/meshbuilder.h"
#include "host/meshing/meshfile.h"

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vrn::orlo::host::meshing {

/// Gathers parts and their instances. What stands outside of parts is one more, named after the
/// file.
class AbaqusParts {
public:
    static constexpr std::size_t kNone = ~std::size_t{0};

    AbaqusParts(AbaqusScanner const& scanner, std::string stem)
        : m_scanner(scanner), m_stem(std::move(stem))
    {
    }

    /// \return index of a new part
    /// Failure    MeshFileError for a name that another part has.
    [[nodiscard]] std::size_t add(std::string const& name);
    /// kNone for a name that no part has.
    [[nodiscard]] std::size_t find(std::string_view name) const;
    /// The part's builder, which does not move. kNone is what stands outside of parts.
    [[nodiscard]] MeshBuilder& builder(std::size_t part);
    /// Whether there are parts, and nothing outside of them.
    [[nodiscard]] bool areAll() const noexcept { return m_flat == kNone && !m_builders.empty(); }

    /// \return the instance, until the next is added
    [[nodiscard]] MeshInstance& addInstance(std::string const& name, std::size_t part);
    /// kNone for a name that no instance has.
    [[nodiscard]] std::size_t partOfInstance(std::string_view name) const;

    /// \param arePlaced  the file says itself where its parts are
    [[nodiscard]] MeshFile finish(bool arePlaced, std::vector<std::string>& warnings);

private:
    AbaqusScanner const& m_scanner;
    std::string m_stem;
    std::deque<MeshBuilder> m_builders;
    std::vector<MeshInstance> m_instances;
    std::size_t m_flat = kNone;
};

}  // namespace vrn::orlo::host::meshing

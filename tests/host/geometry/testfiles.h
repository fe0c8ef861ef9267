/// \file
/// Geometry files for tests: real ones from the shared folder, and ones that the kernel writes.

#pragma once

#include "host/geometry/geometryimport.h"

#include "tests/support/shareddata.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include <TDF_Label.hxx>
#include <TopoDS_Shape.hxx>
#include <XCAFDoc_ShapeTool.hxx>

namespace vrn::orlo::host::geometry {

/// Tests on real STEP files.
class RealFile : public test::WithSharedData {
protected:
    [[nodiscard]] static std::filesystem::path stepFile(std::string const& name)
    {
        return sharedFile("step", name);
    }
};

/// A folder of its own for each test, removed at the end.
class WithFolder : public ::testing::Test {
protected:
    WithFolder();
    ~WithFolder() override;

    [[nodiscard]] std::filesystem::path const& folder() const { return m_folder; }
    std::filesystem::path write(std::string const& name, std::string const& content) const;

    /// Lets `fill` build a document and writes it as STEP in a unit ("MM", "INCH", "M").
    std::filesystem::path writeStep(std::string const& name,
                                    std::function<void(XCAFDoc_ShapeTool&)> const& fill,
                                    std::string const& unit = "MM") const;

    /// A file of one product with the shape.
    std::filesystem::path writeStep(std::string const& name, TopoDS_Shape const& shape,
                                    std::string const& unit = "MM") const;

private:
    std::filesystem::path m_folder;
};

void nameLabel(TDF_Label const& label, std::string const& name);
[[nodiscard]] TopoDS_Shape cube(double size, double x = 0.0);
[[nodiscard]] TopoDS_Shape compoundOf(std::vector<TopoDS_Shape> const& shapes);
[[nodiscard]] std::string contentOf(std::filesystem::path const& file);

/// The text with each `from` replaced; fails the test when there is none.
[[nodiscard]] std::string replaced(std::string text, std::string const& from,
                                   std::string const& to);

/// What importGeometry() throws for the file; a test failure when it throws nothing.
[[nodiscard]] std::string importErrorOf(std::filesystem::path const& file);

/// Numbers of a class in the whole model.
[[nodiscard]] std::vector<unsigned> numbersOf(GeometryModel const& model, EntityClass entityClass);

}  // namespace vrn::orlo::host::geometry

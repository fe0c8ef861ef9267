#include "host/geometry/steptree.h"

#include "host/geometry/modelbuilder.h"
#include "host/geometry/textdecoding.h"

#include <algorithm>
#include <map>
#include <optional>
#include <stdexcept>
#include <string_view>

#include <unicode/unistr.h>
#include <TDataStd_Name.hxx>
#include <TDF_LabelSequence.hxx>
#include <TDF_Tool.hxx>
#include <TopLoc_Location.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>

namespace vrn::orlo::host::geometry {

namespace {

constexpr std::size_t kMostInstances = 5'000'000;

std::string entryOf(TDF_Label const& label)
{
    TCollection_AsciiString entry;
    TDF_Tool::Entry(label, entry);
    return entry.ToCString();
}

std::string nameOf(TDF_Label const& label)
{
    Handle(TDataStd_Name) attribute;
    if (!label.FindAttribute(TDataStd_Name::GetID(), attribute)) {
        return {};
    }
    TCollection_ExtendedString const& name = attribute->Get();
    std::string utf8;
    icu::UnicodeString(name.ToExtString(), name.Length()).toUTF8String(utf8);
    return cleanName(utf8);
}

Placement placementOf(TopLoc_Location const& location)
{
    gp_Trsf const transformation = location.Transformation();
    Placement placement;
    for (int row = 1; row <= 3; ++row) {
        for (int column = 1; column <= 4; ++column) {
            placement.m_rows[static_cast<std::size_t>((row - 1) * 4 + column - 1)] =
                transformation.Value(row, column);
        }
    }
    return placement;
}

/// The kernel makes components without any name of what a product has of its own beside its
/// occurrences: when it has geometry in several representations, for instance.
bool isOwnGeometry(TDF_Label const& component)
{
    TDF_Label product;
    return XCAFDoc_ShapeTool::GetReferredShape(component, product) && nameOf(component).empty() &&
           nameOf(product).empty() && !XCAFDoc_ShapeTool::IsAssembly(product);
}

class TreeReader {
public:
    TreeReader(GeometryModel& model, std::set<std::string> const& bareIds)
        : m_model(model), m_bareIds(bareIds)
    {
    }

    /// \param owner name of the product that holds the label.
    std::optional<Instance> read(TDF_Label const& label, std::string const& owner,
                                 std::size_t level)
    {
        if (level > kMostLevels || ++m_instances > kMostInstances) {
            throw std::length_error(level > kMostLevels ? "its assemblies nest too deep"
                                                        : "it holds too many instances");
        }
        TDF_Label product = label;
        Instance instance;
        if (XCAFDoc_ShapeTool::IsReference(label)) {
            XCAFDoc_ShapeTool::GetReferredShape(label, product);
            instance.m_placement = placementOf(XCAFDoc_ShapeTool::GetLocation(label));
        }
        TDF_LabelSequence components;
        if (XCAFDoc_ShapeTool::IsAssembly(product)) {
            XCAFDoc_ShapeTool::GetComponents(product, components);
        }
        if (std::all_of(components.begin(), components.end(), isOwnGeometry)) {
            components.Clear();
        }
        Product const& known = productOf(product, owner, components.Length() > 0);
        if (known.m_isEmpty) {
            return std::nullopt;
        }
        instance.m_productName = known.m_name;
        instance.m_part = known.m_part;
        instance.m_name = label == product ? std::string() : nameOf(label);
        if (instance.m_name.empty() || instance.m_name.starts_with("=>[") ||
            m_bareIds.contains(instance.m_name)) {
            instance.m_name = instance.m_productName;
        }
        for (TDF_Label const& component : components) {
            if (auto child = read(component, instance.m_productName, level + 1)) {
                instance.m_children.push_back(std::move(*child));
            }
        }
        return instance;
    }

private:
    struct Product {
        std::string m_name;
        int m_part = Instance::kNoPart;
        bool m_isEmpty = false;
    };

    /// Adds the part or counts the assembly at its first use.
    Product const& productOf(TDF_Label const& label, std::string const& owner, bool isAssembly)
    {
        auto const [found, isNew] = m_products.try_emplace(entryOf(label));
        Product& product = found->second;
        if (!isNew) {
            return product;
        }
        product.m_name = nameOf(label);
        if (isAssembly) {
            ++m_model.m_assemblyCount;
            if (product.m_name.empty()) {
                product.m_name = "assembly-" + std::to_string(m_model.m_assemblyCount);
            }
            return product;
        }
        if (product.m_name.empty()) {
            // Geometry that an assembly has of its own comes as a component without a name.
            product.m_name =
                owner.empty() ? "part-" + std::to_string(m_model.m_parts.size() + 1) : owner;
        }
        TopoDS_Shape const shape = XCAFDoc_ShapeTool::GetShape(label);
        std::vector<BodyShape> const bodies = bodiesOf(shape);
        product.m_isEmpty = bodies.empty();
        if (product.m_isEmpty) {
            m_model.m_warnings.push_back("the product '" + product.m_name +
                                         "' holds no geometry and is left out");
        } else {
            product.m_part = static_cast<int>(addPart(m_model, product.m_name, shape, bodies));
        }
        return product;
    }

    GeometryModel& m_model;
    std::set<std::string> const& m_bareIds;
    std::map<std::string, Product> m_products;  // by label
    std::size_t m_instances = 0;
};

}  // namespace

void readTree(GeometryModel& model, Handle(TDocStd_Document) const& document,
              std::set<std::string> const& bareIds)
{
    TDF_LabelSequence roots;
    XCAFDoc_DocumentTool::ShapeTool(document->Main())->GetFreeShapes(roots);
    TreeReader reader(model, bareIds);
    for (TDF_Label const& root : roots) {
        if (auto instance = reader.read(root, {}, 1)) {
            model.m_roots.push_back(std::move(*instance));
        }
    }
}

}  // namespace vrn::orlo::host::geometry

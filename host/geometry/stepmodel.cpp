#include "host/geometry/stepmodel.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <map>
#include <string_view>
#include <utility>

#include <Interface_Check.hxx>
#include <StepBasic_ProductDefinition.hxx>
#include <STEPConstruct_UnitContext.hxx>
#include <StepGeom_GeometricRepresentationContextAndGlobalUnitAssignedContext.hxx>
#include <StepGeom_GeomRepContextAndGlobUnitAssCtxAndGlobUncertaintyAssCtx.hxx>
#include <StepRepr_GlobalUnitAssignedContext.hxx>
#include <StepRepr_NextAssemblyUsageOccurrence.hxx>
#include <StepShape_ShapeRepresentation.hxx>

namespace vrn::orlo::host::geometry {

namespace {

struct UnitRow {
    std::string_view m_name;
    double m_millimetres;
};

// clang-format off
constexpr std::array kUnits{
    UnitRow{"millimetre",  1.0},
    UnitRow{"centimetre",  10.0},
    UnitRow{"decimetre",   100.0},
    UnitRow{"metre",       1000.0},
    UnitRow{"kilometre",   1e6},
    UnitRow{"micrometre",  1e-3},
    UnitRow{"nanometre",   1e-6},
    UnitRow{"inch",        25.4},
    UnitRow{"foot",        304.8},
    UnitRow{"yard",        914.4},
    UnitRow{"mile",        1609344.0},
    UnitRow{"mil",         0.0254},
    UnitRow{"microinch",   25.4e-6},
};
// clang-format on

Handle(StepRepr_GlobalUnitAssignedContext) unitsOf(Handle(StepRepr_RepresentationContext) const& c)
{
    if (auto const plain = Handle(
            StepGeom_GeometricRepresentationContextAndGlobalUnitAssignedContext)::DownCast(c)) {
        return plain->GlobalUnitAssignedContext();
    }
    if (auto const full =
            Handle(StepGeom_GeomRepContextAndGlobUnitAssCtxAndGlobUncertaintyAssCtx)::DownCast(c)) {
        return full->GlobalUnitAssignedContext();
    }
    return Handle(StepRepr_GlobalUnitAssignedContext)::DownCast(c);
}

std::string nameOrFactor(double millimetres)
{
    std::string name = unitName(millimetres);
    if (name.empty()) {
        std::array<char, 48> text{};
        std::snprintf(text.data(), text.size(), "unit of %.9g mm", millimetres);
        name = text.data();
    }
    return name;
}

/// The units of the contexts that shapes use, the most used first.
class UnitCount {
public:
    void add(StepShape_ShapeRepresentation const& shape)
    {
        Handle(StepRepr_RepresentationContext) const context = shape.ContextOfItems();
        if (context.IsNull()) {
            return;
        }
        auto const [known, isNew] = m_factors.try_emplace(context.get(), 0.0);
        if (isNew) {
            Handle(StepRepr_GlobalUnitAssignedContext) const units = unitsOf(context);
            STEPConstruct_UnitContext reader;
            if (!units.IsNull() && !units->Units().IsNull() && reader.ComputeFactors(units) == 0 &&
                reader.LengthDone()) {
                known->second = reader.LengthFactor();
            }
        }
        if (known->second > 0.0) {
            ++m_uses[nameOrFactor(known->second)].m_count;
            m_uses[nameOrFactor(known->second)].m_factor = known->second;
        }
    }

    void tell(StepFacts& facts) const
    {
        auto const most = std::max_element(
            m_uses.begin(), m_uses.end(),
            [](auto const& a, auto const& b) { return a.second.m_count < b.second.m_count; });
        facts.m_unit.m_name = "none";
        if (most == m_uses.end()) {
            return;
        }
        facts.m_unit = {most->first, most->second.m_factor};
        for (auto const& [name, use] : m_uses) {
            if (name != most->first) {
                facts.m_otherUnits.push_back(name);
            }
        }
    }

private:
    struct Use {
        std::size_t m_count = 0;
        double m_factor = 1.0;
    };
    std::map<void const*, double> m_factors;
    std::map<std::string, Use> m_uses;
};

/// Which product holds which; finds cycles and depth without recursion, as files can be hostile.
class ProductGraph {
public:
    void add(StepRepr_NextAssemblyUsageOccurrence const& occurrence)
    {
        void const* const upper = occurrence.RelatingProductDefinition().get();
        void const* const lower = occurrence.RelatedProductDefinition().get();
        if (upper != nullptr && lower != nullptr) {
            m_lower[upper].push_back(lower);
            m_uppers.try_emplace(upper, 0);
            ++m_uppers[lower];
        }
    }

    /// Takes products away from the top, level by level; what remains at the end is in a cycle.
    void tell(StepFacts& facts) const
    {
        std::map<void const*, std::size_t> open = m_uppers;
        std::vector<void const*> taken;  // in levels, one behind the other
        for (auto const& [product, uppers] : open) {
            if (uppers == 0) {
                taken.push_back(product);
            }
        }
        std::size_t depth = 0;
        for (std::size_t first = 0; first < taken.size();) {
            ++depth;
            std::size_t const last = taken.size();
            for (; first < last; ++first) {
                auto const lower = m_lower.find(taken[first]);
                if (lower == m_lower.end()) {
                    continue;
                }
                for (void const* const child : lower->second) {
                    if (--open[child] == 0) {
                        taken.push_back(child);
                    }
                }
            }
        }
        facts.m_hasCycle = taken.size() != m_uppers.size();
        facts.m_depth = facts.m_hasCycle ? 0 : depth;
    }

private:
    std::map<void const*, std::vector<void const*>> m_lower;
    std::map<void const*, std::size_t> m_uppers;
};

bool hasText(Handle(TCollection_HAsciiString) const& text)
{
    return !text.IsNull() && text->UsefullLength() > 0;
}

}  // namespace

std::string unitName(double millimetres)
{
    constexpr double kSame = 1e-6;  // relative; far below the difference of the two kinds of feet
    auto const row = std::find_if(kUnits.begin(), kUnits.end(), [&](UnitRow const& r) {
        return std::abs(millimetres - r.m_millimetres) <= kSame * r.m_millimetres;
    });
    return row == kUnits.end() ? std::string() : std::string(row->m_name);
}

StepFacts factsOf(StepData_StepModel const& model)
{
    StepFacts facts;
    UnitCount units;
    ProductGraph products;
    std::set<std::string> givenNames;
    for (int i = 1; i <= model.NbEntities(); ++i) {
        facts.m_brokenRecords += model.IsErrorEntity(i) ? 1 : 0;
        Handle(Standard_Transient) const record = model.Value(i);
        if (auto const shape = Handle(StepShape_ShapeRepresentation)::DownCast(record)) {
            units.add(*shape);
        } else if (auto const use =
                       Handle(StepRepr_NextAssemblyUsageOccurrence)::DownCast(record)) {
            products.add(*use);
            if (hasText(use->Name())) {
                givenNames.insert(use->Name()->ToCString());
            } else if (use->HasDescription() && hasText(use->Description())) {
                givenNames.insert(use->Description()->ToCString());
            } else if (hasText(use->Id())) {
                facts.m_bareOccurrenceIds.insert(use->Id()->ToCString());
            }
        }
    }
    for (std::string const& name : givenNames) {
        facts.m_bareOccurrenceIds.erase(name);
    }
    units.tell(facts);
    products.tell(facts);
    return facts;
}

}  // namespace vrn::orlo::host::geometry

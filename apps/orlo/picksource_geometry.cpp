// Picks in a geometry file.

#include "apps/orlo/loadmodel.h"
#include "apps/orlo/pickfilters.h"
#include "apps/orlo/picksource.h"
#include "apps/orlo/usageerror.h"
#include "apps/orlo/valuetext.h"
#include "host/display/pixelpicker.h"
#include "host/geometry/geometrypicker.h"
#include "host/geometry/geometryqueries.h"
#include "platform/kfr/numbertext.h"
#include "plugins/modelingplugin/utilities/identity/entconvert.h"
#include "plugins/modelingplugin/utilities/identity/entitytypeid.h"
#include "plugins/modelingplugin/utilities/selection/selectionmakeup.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <optional>
#include <vector>

namespace vrn::orlo::app {

namespace {

using host::geometry::Box;
using host::geometry::BoxRule;
using host::geometry::Entity;
using host::geometry::EntityClass;
using host::geometry::GeometryPicker;
using host::geometry::NearPick;
using plugin::modeling::EntConvert;
using plugin::modeling::EntityTypeID;
using plugin::modeling::SelectionMakeup;

using Numbers = std::vector<unsigned>;

std::array<double, 3> tripleOf(std::vector<double> const& values)
{
    return {values[0], values[1], values[2]};
}

/// The numbers that stand in both; in the first one's order.
Numbers bothOf(Numbers const& left, Numbers right)
{
    std::ranges::sort(right);
    Numbers both;
    std::ranges::copy_if(left, std::back_inserter(both), [&right](unsigned number) {
        return std::ranges::binary_search(right, number);
    });
    return both;
}

class GeometryPicks final : public PickSource {
public:
    GeometryPicks(Session& session, std::filesystem::path const& file)
        : m_model(loadModel(session, file)), m_picker(m_model->geometry())
    {
    }

    CAE::EntityReferenceSequence hits(PickOptions const& options,
                                      host::selection::PickFilterManager const& filter) override
    {
        std::vector<EntityClass> const classes = pickableClasses(filter);
        CAE::EntityReferenceSequence references;
        addPartHits(options, filter, references);
        if (!classes.empty()) {
            for (unsigned const number : entityHits(options, classes)) {
                references.append(m_model->reference(number));
            }
        }
        return references;
    }

    CAE::EntityReferenceSequence madeUp(CAE::EntityReferenceSequence const& picked) override
    {
        SelectionMakeup makeup;
        for (auto const& entity : EntConvert().toEntities(picked)) {
            if (auto const geometry = KFR::loose_cast<CAE::IGeometryInterface>(entity);
                geometry != KFR::NULLSP) {
                makeup.add(CAE::IGeometrySequence{geometry});
            } else if (auto const part = KFR::loose_cast<CAE::IPartInterface>(entity);
                       part != KFR::NULLSP) {
                makeup.add(CAE::IPartSequence{part});
            }
        }
        return makeup.getEntRefs();
    }

    std::string describe(CAE::EntityReference const& reference) override
    {
        std::string text = "#" + std::to_string(reference.id) + " ";
        EntityTypeID::nameOf(reference.typeId).toUTF8String(text);
        auto const& geometry = m_model->geometry();
        Entity const* const entity = geometry.entity(reference.id);
        if (entity == nullptr || m_model->reference(reference.id) != reference) {
            return text + nameOf(reference);
        }
        text += " of " + geometry.m_parts[entity->m_part].m_name;
        if (double const measure = geometry.measure(reference.id); measure > 0.0) {
            text +=
                ", " + KFR::numberText(std::round(measure * 1e3) / 1e3) + unitOf(entity->m_class);
        }
        if (auto const middle = m_picker.middleOf(reference.id)) {
            text += ", at " + textOf(middle->m_point);
            if (middle->m_normal.has_value()) {
                text += ", looks to " + textOf(*middle->m_normal);
            }
        }
        return text;
    }

private:
    static char const* unitOf(EntityClass entityClass)
    {
        switch (entityClass) {
            case EntityClass::solidBody:
            case EntityClass::facetSolid:
            case EntityClass::volume:
                return " mm3";
            case EntityClass::edge:
            case EntityClass::wireBody:
            case EntityClass::facetWire:
                return " mm";
            default:
                return " mm2";
        }
    }

    static std::string nameOf(CAE::EntityReference const& reference)
    {
        return reference.service != KFR::NULLSP ? ", " + reference.service->getObjectName() : "";
    }

    /// Parts and instances can be picked by name, or all of them.
    void addPartHits(PickOptions const& options, host::selection::PickFilterManager const& filter,
                     CAE::EntityReferenceSequence& references) const
    {
        auto const add = [&](auto const& objects) {
            for (auto const& object : objects) {
                CAE::EntityReference const reference = object->getEntityReference();
                icu::UnicodeString name;
                static_cast<void>(object->getName(name));
                bool const isHit =
                    options.m_all || (!options.m_name.empty() &&
                                      name == icu::UnicodeString::fromUTF8(options.m_name));
                if (isHit && filter.isPickable(reference)) {
                    references.append(reference);
                }
            }
        };
        add(m_model->parts());
        add(m_model->instances());
    }

    [[nodiscard]] Numbers entityHits(PickOptions const& options,
                                     std::vector<EntityClass> const& classes) const
    {
        auto const ofClasses = [&](unsigned number) {
            Entity const* const entity = m_model->geometry().entity(number);
            return entity != nullptr &&
                   std::ranges::find(classes, entity->m_class) != classes.end();
        };
        std::optional<Numbers> found;
        auto const restrict = [&found, &ofClasses](Numbers numbers) {
            std::erase_if(numbers, [&ofClasses](unsigned number) { return !ofClasses(number); });
            found = found.has_value() ? bothOf(*found, std::move(numbers)) : std::move(numbers);
        };
        if (options.m_all) {
            Numbers all;
            for (Entity const& entity : m_model->geometry().m_entities) {
                all.push_back(entity.m_number);
            }
            restrict(std::move(all));
        }
        if (!options.m_ids.empty()) {
            Numbers numbers;
            for (unsigned long long const id : options.m_ids) {
                if (id == 0 || id > m_model->geometry().m_entities.size()) {
                    throw UsageError("--id " + std::to_string(id) +
                                     ": the file has entities 1 to " +
                                     std::to_string(m_model->geometry().m_entities.size()));
                }
                numbers.push_back(static_cast<unsigned>(id));
            }
            restrict(std::move(numbers));
        }
        if (!options.m_name.empty()) {
            restrict(below(m_picker.byName(options.m_name)));
        }
        if (!options.m_box.empty()) {
            Box box;
            box.add(tripleOf(options.m_box));
            box.add({options.m_box[3], options.m_box[4], options.m_box[5]});
            restrict(GeometryPicker::numbersOf(m_picker.inBox(
                box, classes, options.m_touching ? BoxRule::touching : BoxRule::contained)));
        }
        if (!options.m_normal.empty()) {
            restrict(GeometryPicker::numbersOf(
                m_picker.byNormal(tripleOf(options.m_normal), options.m_angle)));
        }
        if (!options.m_area.empty()) {
            restrict(m_picker.byArea(options.m_area[0], options.m_area[1]));
        }
        if (!options.m_at.empty()) {
            Numbers nearest;
            for (NearPick const& pick :
                 m_picker.nearest(tripleOf(options.m_at), classes, options.m_within)) {
                if (std::ranges::find(nearest, pick.m_pick.m_number) == nearest.end()) {
                    nearest.push_back(pick.m_pick.m_number);
                }
            }
            restrict(std::move(nearest));
        }
        if (isGiven(options.m_pixel)) {
            restrict(inFrontAt(options.m_pixel, classes));
        }
        Numbers numbers = found.value_or(Numbers());
        if (options.m_grow.has_value()) {
            Numbers const grown = m_picker.grow(numbers, *options.m_grow);
            for (unsigned const number : grown) {
                if (std::ranges::find(numbers, number) == numbers.end()) {
                    numbers.push_back(number);
                }
            }
        }
        return numbers;
    }

    /// What a click hits: of all under the pixel the first.
    [[nodiscard]] Numbers inFrontAt(PixelOptions const& pixel,
                                    std::vector<EntityClass> const& classes) const
    {
        Box const& box = m_model->geometry().m_box;
        host::display::Camera const camera = cameraOf(pixel, {box.m_min, box.m_max});
        host::geometry::GeometryQueries const queries(m_model->geometry());
        auto const hits = host::display::PixelPicker(m_model->geometry(), m_picker, queries)
                              .at(camera, pixel.m_pixel[0], pixel.m_pixel[1], classes);
        return hits.empty() ? Numbers() : Numbers{hits.front().m_number};
    }

    /// Bodies with all that they are made of.
    [[nodiscard]] Numbers below(Numbers const& bodies) const
    {
        Numbers all;
        for (Entity const& entity : m_model->geometry().m_entities) {
            if (std::ranges::find(bodies, entity.m_body) != bodies.end()) {
                all.push_back(entity.m_number);
            }
        }
        return all;
    }

    std::unique_ptr<host::model::Model> m_model;
    GeometryPicker m_picker;
};

}  // namespace

std::unique_ptr<PickSource> openGeometryPicks(Session& session, std::filesystem::path const& file)
{
    return std::make_unique<GeometryPicks>(session, file);
}

}  // namespace vrn::orlo::app

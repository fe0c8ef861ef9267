#include "host/meshing/meshpart.h"

#include "host/meshing/elementobjects.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace vrn::orlo::host::meshing {

namespace {

std::shared_ptr<MeshTables const> tablesOf(std::shared_ptr<MeshStore const> const& store)
{
    return std::make_shared<MeshTables const>(
        store != nullptr ? store : std::make_shared<MeshStore const>(MeshStore::Content{}));
}

KFRSequence<unsigned int> numbersOf(Numbering const& numbering,
                                    KFRSequence<unsigned long long> const& ids)
{
    KFRSequence<unsigned int> numbers;
    numbers.reserve(ids.size());
    for (unsigned long long const id : ids) {
        if (LocalNumber const number = numberIn(numbering, id, true); number != 0) {
            numbers.append(number);
        }
    }
    return numbers;
}

}  // namespace

MeshPart::MeshPart(CAE::IPersistentObjectInterface& part, Names names,
                   std::shared_ptr<MeshContext> context, std::shared_ptr<MeshStore const> store)
    : ModelObjectOf(std::move(names.m_own), KFR::NULLSP, context->m_types.m_meshPart, 1,
                    context->m_service),
      m_part(&part),
      m_context(std::move(context)),
      m_bodyName(std::move(names.m_bodies)),
      m_bodyNames(m_bodyName)
{
    attach(m_part);
    declareProperty(model::kNameProperty, KFRAny(icu::UnicodeString(u"MeshPart")));
    declareProperty("visible", KFRAny(true));
    MeshChanges untold;
    show(std::move(store), untold);
}

CAE::EntityReference MeshPart::getEntityReference()
{
    CAE::EntityReference reference = ModelObjectOf::getEntityReference();
    reference.service = partAbove(*this);
    return reference;
}

std::shared_ptr<MeshStore const> MeshPart::replace(std::shared_ptr<MeshStore const> store)
{
    std::shared_ptr<MeshStore const> before = m_store;
    MeshChanges changes;
    show(std::move(store), changes);
    changes.tell(m_context->m_service);
    return before;
}

void MeshPart::show(std::shared_ptr<MeshStore const> store, MeshChanges& changes)
{
    auto const tables = tablesOf(store);
    std::vector<MeshBodyRow> const& rows = tables->store().bodies();
    m_tables = tables;
    m_present.assign(rows.size(), {});
    changes.settle(*this, store != nullptr);
    for (std::size_t row = 0; row < rows.size(); ++row) {
        auto const index = static_cast<MeshIndex>(row);
        if (store != nullptr && (rows.size() == 1 || !tables->groupsOf(index).empty())) {
            m_present[row] = bodyFor(rows[row]);
            m_present[row]->show(tables, index, changes);
        }
    }
    for (KFRSmartPointer<MeshBody> const& body : m_bodies) {
        if (std::find(m_present.begin(), m_present.end(), body) == m_present.end()) {
            body->show(tables, std::nullopt, changes);
        }
    }
    auto const& ids = tables->store().nodes().ids();
    auto const highest = std::max_element(ids.begin(), ids.end());
    m_highestNodeId = highest != ids.end() ? static_cast<unsigned long long>(*highest) : 0;
    m_store = std::move(store);
}

KFRSmartPointer<MeshBody> MeshPart::bodyFor(MeshBodyRow const& row)
{
    auto const isItsBody = [&](KFRSmartPointer<MeshBody> const& body) {
        bool const isSame = row.m_entity != 0
                                ? body->row().m_entity == row.m_entity
                                : body->row().m_entity == 0 && body->row().m_name == row.m_name;
        return isSame && std::find(m_present.begin(), m_present.end(), body) == m_present.end();
    };
    auto const found = std::find_if(m_bodies.begin(), m_bodies.end(), isItsBody);
    if (found != m_bodies.end()) {
        return *found;
    }
    auto const number = static_cast<unsigned>(m_bodies.size()) + 1;
    auto body = KFR::make<MeshBody>(nameOfBody(row), row, number, m_context);
    body->attach(m_part);
    m_bodies.push_back(body);
    return body;
}

std::string MeshPart::nameOfBody(MeshBodyRow const& row)
{
    if (!m_hasNamesake && row.m_name == m_tables->store().name()) {
        m_hasNamesake = true;
        return m_bodyName;
    }
    return m_bodyNames.next(row.m_name.empty() ? "body" : row.m_name);
}

KFRResult MeshPart::getNodeById(unsigned long long id, KFRSmartPointer<CAE::INodeInterface>& node,
                                bool flag)
{
    LocalNumber const number = numberIn(m_tables->store().nodes(), id, flag);
    if (number == 0) {
        return KFRResult(kNoNode).addParam("Mesh part " + persistentName() +
                                           " has no node with the " + (flag ? "id " : "number ") +
                                           std::to_string(id) + ".");
    }
    node = KFR::make<Node>(m_tables, number);
    return KFR::ok;
}

KFRResult MeshPart::getElementById(unsigned long long id,
                                   KFRSmartPointer<CAE::IElementInterface>& element, bool flag)
{
    KFRResult result;
    LocalNumber const number =
        findElement(m_tables->store(), id, flag, "Mesh part " + persistentName(), result);
    if (number != 0) {
        element = this->element(number);
    }
    return result;
}

KFRSmartPointer<CAE::IElementInterface> MeshPart::element(LocalNumber number) const
{
    return KFR::make<Element>(m_tables, m_present.at(m_tables->bodyOf(number)), number);
}

KFRResult MeshPart::getElementNumbers(KFRSequence<unsigned long long> const& ids,
                                      KFRSequence<unsigned int>& numbers)
{
    numbers = numbersOf(m_tables->store().elements(), ids);
    return KFR::ok;
}

KFRResult MeshPart::getNodeNumbers(KFRSequence<unsigned long long> const& ids,
                                   KFRSequence<unsigned int>& numbers)
{
    numbers = numbersOf(m_tables->store().nodes(), ids);
    return KFR::ok;
}

KFRResult MeshPart::getElementsConnectedTo(KFRSmartPointer<CAE::INodeInterface> const& node,
                                           CAE::IElementSequence& elements)
{
    unsigned long long id = 0;
    int number = 0;
    KFRDouble3DPoint location;
    if (node == KFR::NULLSP || !node->getId(id).isOk() || !node->getNumber(number).isOk() ||
        !node->getLocation(location).isOk()) {
        return KFRResult(kNoNode).addParam("The node is null or has no data.");
    }
    MeshStore const& store = m_tables->store();
    LocalNumber const own = numberIn(store.nodes(), id, true);
    if (own == 0 || own != static_cast<LocalNumber>(number) ||
        store.position(own) != Point{location.x, location.y, location.z}) {
        return KFRResult(kNoNode).addParam("Node " + std::to_string(id) +
                                           " is not of the present mesh of " + persistentName() +
                                           ".");
    }
    CAE::IElementSequence found;
    for (LocalNumber const connected : m_tables->elementsAt(own)) {
        found.append(element(connected));
    }
    elements = found;
    return KFR::ok;
}

KFRResult MeshPart::getMeshBodies(CAE::IMeshBodySequence& bodies)
{
    bodies = this->bodies();
    return KFR::ok;
}

KFRResult MeshPart::getElementNodes(std::span<long long const> elementIds, CAE::ElementNodes& nodes)
{
    MeshStore const& store = m_tables->store();
    nodes.m_first.clear();
    nodes.m_ids.clear();
    nodes.m_locations.clear();
    nodes.m_first.push_back(0);
    for (long long const id : elementIds) {
        if (LocalNumber const element = store.elements().numberOf(id); element != 0) {
            for (LocalNumber const node : store.nodesOf(element)) {
                Point const& position = store.position(node);
                nodes.m_ids.push_back(store.nodes().idOf(node));
                nodes.m_locations.push_back({position[0], position[1], position[2]});
            }
        }
        nodes.m_first.push_back(nodes.m_ids.size());
    }
    return KFR::ok;
}

KFRResult MeshPart::getNextAvaialbleNodeID(unsigned long long& id)
{
    id = m_highestNodeId + 1;
    return KFR::ok;
}

KFRResult MeshPart::isNodeIdFree(unsigned long long id, bool& free)
{
    constexpr auto kLargest =
        static_cast<unsigned long long>(std::numeric_limits<ExternalId>::max());
    free = id != 0 && id <= kLargest && numberIn(m_tables->store().nodes(), id, true) == 0;
    return KFR::ok;
}

}  // namespace vrn::orlo::host::meshing
